#pragma once

#include "views/cascade/OneSwitchPage.h"

class WManagedViewSwxModeTable;

/// The page of a Switch under an external manager.
class WManagedView : public OneSwitchPage {
public:
    explicit WManagedView(Wt::WContainerWidget* parent = nullptr);

    /// Leaving management is chosen: says what it means.
    virtual void modeChangedHandler();

    WManagedViewSwxModeTable* modeTable() const { return mMode; }

protected:
    bool modeIsChanged() const override;

private:
    WManagedView(WManagedViewSwxModeTable* mode, Wt::WContainerWidget* parent);

    WManagedViewSwxModeTable* mMode;
};
