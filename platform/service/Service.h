// The running service, put together.
#pragma once

#include "platform/service/Options.h"

namespace zeqd {

/// Serves until told to stop. Answers the exit code; throws when it cannot start.
int serve(const Options& options);

} // namespace zeqd
