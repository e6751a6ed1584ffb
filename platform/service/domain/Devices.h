// What the rules ask about devices.
#pragma once

#include "platform/service/core/Errors.h"
#include "platform/service/store/View.h"

namespace zeqd {

/// The Switch that this service runs on.
constexpr std::uint32_t kThisSwitch = 1;

/// EID of this Switch, empty before it has one.
std::string thisSwitchEid(const View& view);

/// Name of a device, or its EID when it has none.
std::string deviceLabel(const Record& device);

/// A Receiver or Transmitter that is up and may carry a session.
/// A reboot that is pending does not count as up.
bool isReady(const Record& device);

/// The error that tells of a device of the kind which is not online.
Errno notOnline(Res id);

} // namespace zeqd
