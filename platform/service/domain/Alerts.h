// Events: raised by the switches of "alertLogControl", unacknowledged until acknowledged, then history.
#pragma once

#include "platform/service/store/Transaction.h"

namespace zeqd {

struct AlertKind {
    std::string_view key; ///< its switch in "alertLogControl"
    std::string_view severity;
};

namespace alerts {
inline constexpr AlertKind kFirmwareUpdateFailed{"enableAlertFirmwareUpdateFailed", "error"};
inline constexpr AlertKind kFirmwareUpdateSucceeded{"enableAlertFirmwareUpdateSucceeded", "info"};
inline constexpr AlertKind kPrivateSession{"enableAlertPrivateKvmSessionEstablished", "info"};
inline constexpr AlertKind kSharedSession{"enableAlertSharedKvmSessionEstablished", "info"};
inline constexpr AlertKind kSessionEnded{"enableAlertKvmSessionDisconnected", "info"};
inline constexpr AlertKind kSessionLinkDown{"enableAlertKvmSessionDisconnectedLinkDown", "warning"};
inline constexpr AlertKind kSessionFailed{"enableAlertKvmSessionConnectionFailure", "warning"};
inline constexpr AlertKind kUserLogin{"enableAlertUserLogin", "info"};
inline constexpr AlertKind kFailedUserLogin{"enableAlertFailedUserLogin", "warning"};
inline constexpr AlertKind kUserAutoLogin{"enableAlertUserAutoLogin", "info"};
inline constexpr AlertKind kUserLogout{"enableAlertUserLogout", "info"};
inline constexpr AlertKind kAdminLogin{"enableAlertMirlAdminLogin", "info"};
inline constexpr AlertKind kFailedAdminLogin{"enableAlertMirlFailedAdminLogin", "warning"};
inline constexpr AlertKind kAdminLogout{"enableAlertMirlAdminLogout", "info"};
inline constexpr AlertKind kSwitchCapacity{"enableAlertSwitchExceedsUnmanagedCapacity", "warning"};
inline constexpr AlertKind kReceiverCapacity{"enableAlertReceiverInExceededCapacitySwitch", "warning"};
inline constexpr AlertKind kTransmitterCapacity{"enableAlertTransmitterInExceededCapacitySwitch", "warning"};
inline constexpr AlertKind kDeviceError{"enableAlertDeviceReportedError", "error"};
inline constexpr AlertKind kDeviceInfo{"enableAlertDeviceReportedInfo", "info"};
} // namespace alerts

/// `now`: seconds since 1970 UTC. Also writes a line to the event log, by the switches of "eventLogControl".
void raiseAlert(Transaction& tx, std::int64_t now, const AlertKind& kind, std::string_view originatorEid,
                std::string message);

/// The same without a switch: an event that nobody may turn off.
void addAlert(Transaction& tx, std::int64_t now, std::string_view severity, std::string_view originatorEid,
              std::string message);

/// Moves an event to the history; false when there is none of that number.
bool acknowledge(Transaction& tx, std::uint32_t instance);

} // namespace zeqd
