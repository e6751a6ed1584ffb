// What happens later: the steps of the simulated devices, each run when its simulated time has come. A step
// looks at the state it finds and does nothing when something else has happened to the device in between.
#pragma once

#include "platform/service/store/Transaction.h"

namespace zeqd {

enum class Step : std::uint16_t {
    // Receivers and Transmitters
    DeviceDown,        ///< a reboot begins: sessions drop
    DeviceConfiguring, ///< it answers again
    DeviceReady,
    FlashEnd, ///< argument: number of the flash that ends
    // Switches
    SwitchDown,
    SwitchBack,
    SwitchReady,
    RestartService, ///< this Switch itself reboots
    FactoryThisSwitch,
    NtpResult,
    // sessions
    SessionIdle, ///< argument: when the KVM session was to end, as its record tells
    Operators,   ///< argument: state of the chances
    // firmware
    UpgradeFetch,    ///< argument: the upgrade record
    UpgradeProgress, ///< argument: percent
    UpgradeReset,
    // cascade and manager
    PeerReady,
    Enrol,
    // the simulation itself
    SetFactor, ///< argument: the factor
    JumpAhead, ///< argument: milliseconds
};

inline Task makeTask(Step step, Res resource = Res::Swx, std::uint32_t index = 0,
                     std::uint32_t argument = 0) {
    return {static_cast<std::uint16_t>(step), resource, index, argument};
}

/// What a step works with.
struct StepContext {
    Transaction& tx;
    std::int64_t now; ///< seconds since 1970 UTC
    Task task;
};

/// Simulated milliseconds.
namespace span {
constexpr std::int64_t kBeforeReset = 2000;
constexpr std::int64_t kDeviceBoot = 10000;
constexpr std::int64_t kDeviceConfigure = 5000;
constexpr std::int64_t kPlugIn = 3000;
constexpr std::int64_t kSwitchBoot = 15000;
constexpr std::int64_t kSwitchConnect = 3000;
constexpr std::int64_t kRestart = 1500;
constexpr std::int64_t kNtp = 4000;
constexpr std::int64_t kUpgradeTick = 1000;
constexpr std::int64_t kBeforeUpgradeReset = 8000; ///< so that whoever watches sees that it is complete
constexpr std::int64_t kPeerSync = 5000;
constexpr std::int64_t kEnrol = 4000;
constexpr std::int64_t kOperators = 15000; ///< at least; then one of them does something
} // namespace span

} // namespace zeqd
