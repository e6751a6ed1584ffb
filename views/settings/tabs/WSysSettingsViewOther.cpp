#include "views/settings/tabs/WSysSettingsViewOther.h"

#include "views/settings/icons/WTxIconsDialog.h"
#include "views/settings/tabs/SysRows.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WLineEditUInt32Zeq.h"

namespace {

constexpr SettingsTableSpec kSpec = sysTable("systemGlobals");

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Automatic Device Reboot After Firmware Update",
     .make = makeSettingsField<WEnableDisable>,
     .key = "resetAfterUpgrade",
     .tooltip = "tt.sysSettings.other.autoRebootControl"},
    {.label = "[RSnnn]Default Time to Flash LCD Backlight (seconds)",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "backlightFlashDuration",
     .bottom = 1,
     .top = 86400,
     .mandatory = true,
     .tooltip = "tt.sysSettings.other.backlightFlashDuration"},
};

} // namespace

WSysSettingsViewOtherTable::WSysSettingsViewOtherTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

WSysSettingsViewOther::WSysSettingsViewOther(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SYS_SETTINGS, {}) {
    setTables({new WSysSettingsViewOtherTable});
    auto* row = new Wt::WContainerWidget;
    mIconsButton = new Wt::WPushButton(tr("settings.icons.button"), row);
    mIconsButton->clicked().connect(this, &WSysSettingsViewOther::iconsButtonClickedHandler);
    addBelowTables(row);
}

void WSysSettingsViewOther::iconsButtonClickedHandler() {
    WTxIconsDialog().exec();
}
