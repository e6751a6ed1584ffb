// KVM sessions at which nobody moves a key or the mouse.
#pragma once

#include "platform/service/sim/Steps.h"

namespace zeqd {

/// A key was pressed at the Receiver now, or its limit has changed: its session has that many minutes from here.
void awaitInput(Transaction& tx, std::int64_t now, std::uint32_t rxIndex);
/// The same for a session that is about to be kept, at a Receiver as it is about to be kept.
void awaitInput(Transaction& tx, std::int64_t now, Record& connection, const Record& rx);

/// The limit has passed.
void sessionIdle(StepContext& step);

/// After a start of the service: each session has what was left of its limit.
void resumeInactivity(Transaction& tx, std::int64_t now);

} // namespace zeqd
