#pragma once

#include "views/cascade/OneSwitchPage.h"

class WSlaveSettingsViewSwxModeTable;

/// The page of a slave Switch, and of the backup that stands by for its controller.
class WSlaveSettingsView : public OneSwitchPage {
public:
    explicit WSlaveSettingsView(Wt::WContainerWidget* parent = nullptr);

    /// To be a master is chosen: says what it means.
    virtual void modeChangedHandler();

    WSlaveSettingsViewSwxModeTable* modeTable() const { return mMode; }

protected:
    bool modeIsChanged() const override;
    void setDependentWidgets() override;

private:
    WSlaveSettingsView(WSlaveSettingsViewSwxModeTable* mode, Wt::WContainerWidget* parent);

    WSlaveSettingsViewSwxModeTable* mMode;
    bool mOffersPromote = false;
};
