#include "views/settings/tabs/WSysSettingsViewRap.h"

#include "platform/client/EventLog.h"
#include "views/settings/tabs/SysRows.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WPasswordField.h"

namespace {

constexpr SettingsTableSpec kSpec = sysTable("systemGlobals/rapParameters");

constexpr const char* kPasswordPattern = "^([!-~]*)$";

constexpr SettingsRow kRows[] = {
    {.label = "SystemSettings.Rap.TelnetAccess",
     .make = makeSettingsField<WEnableDisable>,
     .key = "telnetAccess"},
    {.label = "SystemSettings.Rap.TelnetPort",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "telnetPort",
     .bottom = 1024,
     .top = 65535},
    {.label = "SystemSettings.Rap.SshAccess", .make = makeSettingsField<WEnableDisable>, .key = "sshAccess"},
    {.label = "SystemSettings.Rap.SshPort",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "sshPort",
     .bottom = 1024,
     .top = 65535},
    {.label = "SystemSettings.Rap.SshPassword",
     .make = makePasswordField,
     .key = "sshPassword",
     .maxLength = 64,
     .pattern = kPasswordPattern,
     .tooltip = "tt.sysSettings.rap.sshPassword"},
    {.label = "SystemSettings.Rap.SshConfirmPassword",
     .make = makePasswordField,
     .key = "sshPassword",
     .maxLength = 64,
     .pattern = kPasswordPattern,
     .repeats = "sshPassword"},
    {.label = "SystemSettings.Rap.SessionTimeout",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "sessionInactivityTimeout",
     .bottom = 0,
     .top = 1440,
     .tooltip = "tt.sysSettings.rap.sessionInactivityTimeout"},
};

} // namespace

WSysSettingsViewRapTable::WSysSettingsViewRapTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

void WSysSettingsViewRapTable::nestedReadFailed() {
    EventLog_write(1, 7, "readFromDatabase", "Unable to retrieve RAP parameters.");
}

WSysSettingsViewRap::WSysSettingsViewRap(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SYS_SETTINGS, {}) {
    setTables({new WSysSettingsViewRapTable});
}
