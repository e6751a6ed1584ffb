#include "views/settings/tabs/WSysSettingsViewMgr.h"

#include "views/settings/tabs/SysRows.h"
#include "widgets/ValidatedFields.h"
#include "widgets/ValueTexts.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WManagementMode.h"
#include "widgets/WMgrCommStatus.h"

namespace {

constexpr SettingsTableSpec kSpec = sysTable("systemGlobals");

constexpr auto kPrimary = WMgrCommStatus::MgrInstance::Primary;
constexpr auto kAuxiliary = WMgrCommStatus::MgrInstance::Auxiliary;

constexpr const char* kModeKey = "managedSetting";

constexpr SettingsRow kRows[] = {
    {.label = "SystemSettings.Manager.label.system.mode",
     .make = makeSettingsField<WManagementMode>,
     .key = kModeKey},
    {.label = "SystemSettings.Manager.label.server.tcp.port",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "switchApiPort",
     .bottom = 0,
     .top = 65535,
     .tooltip = "tt.sysSettings.mgr.serverApiPort"},
    {.label = "SystemSettings.Manager.label.client.tcp.port",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "managerApiPort",
     .bottom = 0,
     .top = 65535,
     .tooltip = "tt.sysSettings.mgr.clientApiPort"},
    {.label = "SystemSettings.Manager.label.primary.ip.address",
     .make = makeSettingsField<WIpAddr>,
     .key = "managerIpAddress"},
    {.label = "SystemSettings.Manager.label.auxiliary.ip.Address",
     .make = makeSettingsField<WIpAddr>,
     .key = "auxiliaryManagerIpAddress"},
    {.label = "SystemSettings.Manager.label.primary.communication",
     .make = makeSettingsField<WMgrCommStatus, kPrimary>},
    {.label = "SystemSettings.Manager.label.auxiliary.communication",
     .make = makeSettingsField<WMgrCommStatus, kAuxiliary>},
    {.label = "SystemSettings.Manager.label.preferred.manager",
     .make = makeSettingsField<WTextManagerServer>,
     .key = "preferredManager"},
    {.label = "SystemSettings.Manager.label.current.manager",
     .make = makeSettingsField<WTextManagerServer>,
     .key = "currentManager"},
};

} // namespace

WSysSettingsViewMgrTable::WSysSettingsViewMgrTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

void WSysSettingsViewMgrTable::readFromDatabase(const Indexes& indexes, bool force) {
    WSettingsTable::readFromDatabase(indexes, force);
    Errors errors;
    widget<WManagementMode>(kModeKey)->readFromDatabase(indexes, errors, force); // reads itself only
}

WSysSettingsViewMgr::WSysSettingsViewMgr(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SYS_SETTINGS, {}) {
    setTables({new WSysSettingsViewMgrTable});
}
