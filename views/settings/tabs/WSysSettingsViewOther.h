#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// What happens to devices by themselves or on request.
class WSysSettingsViewOtherTable : public WSettingsTable {
public:
    explicit WSysSettingsViewOtherTable(Wt::WContainerWidget* parent = nullptr);
};

class WSysSettingsViewOther : public WSettingsTab {
public:
    explicit WSysSettingsViewOther(Wt::WContainerWidget* parent = nullptr);

    /// The custom icons, in a dialog of their own.
    void iconsButtonClickedHandler();
    Wt::WPushButton* iconsButton() const { return mIconsButton; }

private:
    Wt::WPushButton* mIconsButton;
};
