#include "views/users/tabs/WUsrViewOsdHotkey.h"

#include "widgets/Selectors.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WOsdActivateHotkeyCustom.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "user"};

constexpr const char* kHotKey = "user/keySettings/osdHotKey";

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]OSD Hotkey",
     .make = makeSettingsField<WOsdActivateHotkey>,
     .key = "hotKey",
     .resource = kHotKey,
     .tooltip = "tt.usr.osd.hotkey"},
    {.label = "[RSnnn]Custom Sequence",
     .make = makeSettingsField<WOsdActivateHotkeyCustom>,
     .key = "customKeys",
     .resource = kHotKey,
     .tooltip = "tt.usr.osd.custom",
     .enabledWhen = {.key = "hotKey", .is = "custom", .follows = SettingsChoice::JudgedOnly}},
    {.label = "[RSnnn]OSD Inactivity Timeout (minutes, 0 means never)",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "osdInactivityTimeout",
     .bottom = 0,
     .top = 1440,
     .mandatory = true,
     .tooltip = "tt.usr.osd.inactivityTimeout"},
};

} // namespace

WUsrViewOsdHotkeyTable::WUsrViewOsdHotkeyTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

WUsrViewOsdHotkey::WUsrViewOsdHotkey(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_USR_OSD_HOTKEY, {InfoMgr_InfoID::Users}) {
    setTables({new WUsrViewOsdHotkeyTable});
}
