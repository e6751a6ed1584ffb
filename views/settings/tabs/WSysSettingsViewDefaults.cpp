#include "views/settings/tabs/WSysSettingsViewDefaults.h"

#include "views/settings/tabs/SysRows.h"
#include "widgets/Selectors.h"
#include "widgets/WLineEditUInt32Zeq.h"

namespace {

constexpr SettingsTableSpec kSpec = sysTable("cfgDefaults");

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]OSD Inactivity Timeout (minutes, 0 means never)",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "rxDefaultOsdInactivityTimeout",
     .bottom = 0,
     .top = 1440,
     .mandatory = true,
     .tooltip = "tt.sysSettings.defaults.rxDefaultOsdInactivityTimeout"},
    {.label = "[RSnnn]Receiver Session Timeout (minutes, 0 means never)",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "rxDefaultSessionInactivityTimeout",
     .bottom = 0,
     .top = 1440,
     .mandatory = true,
     .tooltip = "tt.sysSettings.defaults.rxDefaultSessionInactivityTimeout"},
    {.label = "[RSnnn]Transmitter USB Mode",
     .make = makeSettingsField<WUsbMode>,
     .key = "txDefaultUsbMode",
     .tooltip = "tt.sysSettings.defaults.txDefaultUsbMode"},
    {.label = "[RSnnn]Transmitter Traffic Priority",
     .make = makeSettingsField<WTrafficPriority>,
     .key = "txDefaultTrafficPriority",
     .tooltip = "tt.sysSettings.defaults.txDefaultTrafficPriority"},
};

} // namespace

WSysSettingsViewDefaultsTable::WSysSettingsViewDefaultsTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

WSysSettingsViewDefaults::WSysSettingsViewDefaults(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SYS_SETTINGS, {}) {
    setTables({new WSysSettingsViewDefaultsTable});
}
