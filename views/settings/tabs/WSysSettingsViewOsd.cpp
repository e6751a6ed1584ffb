#include "views/settings/tabs/WSysSettingsViewOsd.h"

#include "platform/client/EventLog.h"
#include "views/settings/tabs/SysRows.h"
#include "widgets/Selectors.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WOsdActivateHotkeyCustom.h"
#include "widgets/WTextAreaZeq.h"

namespace {

constexpr SettingsTableSpec kSpec = sysTable("systemGlobals");

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Receiver OSD Hotkey",
     .make = makeSettingsField<WOsdActivateHotkey>,
     .key = "rxOsdHotKey",
     .tooltip = "tt.sysSettings.osd.rxOsdHotKey"},
    {.label = "[RSnnn]OSD Hotkey Custom Sequence",
     .make = makeSettingsField<WOsdActivateHotkeyCustom>,
     .key = "customKeys",
     .resource = "systemGlobals/customKeys",
     .tooltip = "tt.sysSettings.osd.rxOsdHotKeyCustomSeq"},
    {.label = "[RSnnn]Receiver OSD Banner",
     .make = makeSettingsField<WEnableDisable>,
     .key = "rxOsdBannerEnable",
     .tooltip = "tt.sysSettings.osd.rxOsdBannerEnable"},
    {.label = "[RSnnn]OSD Banner Text",
     .make = makeSettingsField<WTextAreaZeq>,
     .key = "rxOsdBannerText",
     .pattern = "([ -~\n]{0,450})",
     .tooltip = "tt.sysSettings.osd.rxOsdBannerText",
     .width = 400,
     .height = 90},
};

} // namespace

WSysSettingsViewOsdTable::WSysSettingsViewOsdTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

void WSysSettingsViewOsdTable::nestedReadFailed() {
    EventLog_write(1, 7, "readFromDatabase", "Unable to retrieve OSD custom key sequence.");
}

WSysSettingsViewOsd::WSysSettingsViewOsd(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SYS_SETTINGS, {}) {
    setTables({new WSysSettingsViewOsdTable});
}
