// People in a demo's control room: they log in at Receivers, connect, type, and leave again. Whoever was logged in in
// another way stays where he is.
#pragma once

#include "platform/service/sim/Steps.h"

namespace zeqd {

/// One of them does something, by chance.
void operators(StepContext& step);

} // namespace zeqd
