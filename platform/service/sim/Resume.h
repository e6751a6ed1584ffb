// What a stop of the service left in the middle.
#pragma once

#include "platform/service/store/Transaction.h"

namespace zeqd {

/// Reboots go on, updates under way are lost, this Switch is up. `now`: seconds since 1970 UTC.
void resumeAll(Transaction& tx, std::int64_t now);

} // namespace zeqd
