#include "platform/service/catalogue/Catalogue.h"

#include "platform/service/catalogue/ActionRows.h"
#include "platform/service/catalogue/AlertRows.h"
#include "platform/service/catalogue/DeviceRows.h"
#include "platform/service/catalogue/DiagnosticRows.h"
#include "platform/service/catalogue/SystemRows.h"
#include "platform/service/catalogue/UserRows.h"

namespace zeqd {

namespace {

constexpr std::uint32_t kMaxDevices = 20000;
constexpr std::uint32_t kMaxSwitches = 50;
constexpr std::uint32_t kMaxUsers = 256;
constexpr std::uint32_t kMaxEdids = 128;
constexpr std::uint32_t kMaxUpgrades = 8;
constexpr std::uint32_t kMaxAdminSessions = 4096;
constexpr std::uint32_t kMaxUnacknowledged = 500;
constexpr std::uint32_t kMaxHistory = 1000;

constexpr std::uint8_t kGet = static_cast<std::uint8_t>(Method::Get);
constexpr std::uint8_t kGetSet = Method::Get | Method::Set;
constexpr std::uint8_t kGetSetDelete = kGetSet | Method::Delete;
constexpr std::uint8_t kAll = kGetSetDelete | Method::Create;
constexpr std::uint8_t kSession = Method::Get | Method::Create | Method::Delete;
constexpr std::uint8_t kSet = static_cast<std::uint8_t>(Method::Set);

constexpr std::span<const KeyRow> kNoKeys{};

constexpr ResourceRow kResources[] = {
    {Res::Swx, "swx", Shape::Table, kGetSetDelete, true, InfoId::Switch, kMaxSwitches, rows::kSwx,
     "Switches; record 1 is this Switch"},
    {Res::Rx, "rx", Shape::Table, kGetSetDelete, true, InfoId::Receiver, kMaxDevices, rows::kRx, "Receivers"},
    {Res::Tx, "tx", Shape::Table, kGetSetDelete, true, InfoId::Transmitter, kMaxDevices, rows::kTx,
     "Transmitters"},
    {Res::User, "user", Shape::Table, kAll, true, InfoId::User, kMaxUsers, rows::kUser, "user accounts"},
    {Res::UserTargetList, "userTargetList", Shape::Computed, kGetSet, false, InfoId::None, 0,
     rows::kUserTargetList, "the users' target lists by themselves; the index is the user's"},
    {Res::UserSession, "userSession", Shape::Table, kSession, true, InfoId::UserSession, kMaxDevices,
     rows::kUserSession, "users logged in at Receivers"},
    {Res::AdminSession, "adminSession", Shape::Table, kSession, false, InfoId::AdminSession,
     kMaxAdminSessions, rows::kAdminSession,
     "administrators logged in to the web interface; they end with the service"},
    {Res::Connection, "connection", Shape::Table, kSession, true, InfoId::Connection, kMaxDevices,
     rows::kConnection, "KVM sessions"},
    {Res::Edid, "edid", Shape::Table, kAll, true, InfoId::Edid, kMaxEdids, rows::kEdid, "stored monitors"},
    {Res::Upgrade, "upgrade", Shape::Table, kAll, true, InfoId::Upgrade, kMaxUpgrades, rows::kUpgrade,
     "sources of firmware"},
    {Res::SystemGlobals, "systemGlobals", Shape::Singleton, kGetSet, true, InfoId::SystemGlobals, 1,
     rows::kSystemGlobals, "settings of the system"},
    {Res::CfgDefaults, "cfgDefaults", Shape::Singleton, kGetSet, true, InfoId::Defaults, 1,
     rows::kCfgDefaults, "defaults of new records"},
    {Res::EventLogControl, "eventLogControl", Shape::Singleton, kGetSet, true, InfoId::EventControl, 1,
     rows::kEventLogControl, "severities that go to the event log"},
    {Res::AlertLogControl, "alertLogControl", Shape::Singleton, kGetSet, true, InfoId::EventControl, 1,
     rows::kAlertLogControl, "events that raise an alert"},
    {Res::ChangeStatus, "changeStatus", Shape::Table, kGet, true, InfoId::None, kLastInfoId,
     rows::kChangeStatus, "one record per kind of data"},
    {Res::UnacknowledgedAlerts, "unacknowledgedAlerts", Shape::Table, kGet, true, InfoId::Alert,
     kMaxUnacknowledged, rows::kAlert, "events not yet acknowledged"},
    {Res::HistoricalAlerts, "historicalAlerts", Shape::Table, kGet, true, InfoId::AlertHistory, kMaxHistory,
     rows::kAlert, "acknowledged events; the oldest make room"},
    {Res::PortStatus, "portStatus", Shape::Computed, kGet, false, InfoId::None, kMaxSwitches,
     rows::kPortStatus,
     "ports of the Switches; queried by index or by swxIndex, numbers 1 to 50 always answer"},
    {Res::RxUsbDiag, "rxUsbDiag", Shape::Computed, kGet, false, InfoId::None, 0, rows::kRxUsbDiag,
     "USB diagnostics of a Receiver, by its index"},
    {Res::TxUsbDiag, "txUsbDiag", Shape::Computed, kGet, false, InfoId::None, 0, rows::kTxUsbDiag,
     "USB diagnostics of a Transmitter, by its index"},
    {Res::AlertsControl, "alertsControl", Shape::Action, kSet, false, InfoId::None, 0, rows::kAlertsControl,
     "acknowledges and clears events"},
    {Res::EdidControl, "edidControl", Shape::Action, kSet, false, InfoId::None, 0, rows::kEdidControl,
     "moves EDID blocks between devices and the library"},
    {Res::SwxControl, "swxControl", Shape::Action, kSet, false, InfoId::None, 0, rows::kSwxControl,
     "cascade roles, settings files, flashing of a Switch's display"},
    {Res::RxControl, "rxControl", Shape::Action, kSet, false, InfoId::None, 0, rows::kDeviceControl,
     "flashing of a Receiver's display"},
    {Res::TxControl, "txControl", Shape::Action, kSet, false, InfoId::None, 0, rows::kDeviceControl,
     "flashing of a Transmitter's display"},
    {Res::SimControl, "simControl", Shape::Action, kSet, false, InfoId::None, 0, rows::kSimControl,
     "steers the simulated devices; not part of a Switch"},
    {Res::ZeqHello, "zeqHello", Shape::Computed, kGet, false, InfoId::None, 0, rows::kHello,
     "tells the version of the protocol"},
    {Res::ZeqCatalogue, "zeqCatalogue", Shape::Computed, kGet, false, InfoId::None, 0, kNoKeys,
     "describes the resources; queried by resource"},
    {Res::PendingSettings, "pendingSettings", Shape::Table, 0, true, InfoId::None, 1, rows::kPendingSettings,
     "settings of a file that take effect at the next start"},
};

consteval bool inOrder() {
    for (std::size_t i = 0; i < kResourceCount; ++i)
        if (static_cast<std::size_t>(kResources[i].id) != i) return false;
    return std::size(kResources) == kResourceCount;
}
static_assert(inOrder());

} // namespace

std::span<const ResourceRow> catalogue() {
    return kResources;
}

const ResourceRow& resource(Res id) {
    return kResources[static_cast<std::size_t>(id)];
}

const ResourceRow* findResource(std::string_view name) {
    for (const ResourceRow& row : kResources)
        if (row.name == name) return &row;
    return nullptr;
}

int findKey(std::span<const KeyRow> rows, std::string_view key) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].key == key) return static_cast<int>(i);
    return -1;
}

int findValue(const ValueList& list, std::string_view value) {
    for (std::size_t i = 0; i < list.values.size(); ++i)
        if (list.values[i] == value) return static_cast<int>(i);
    return -1;
}

} // namespace zeqd
