// The settings actions of "swxControl".
#pragma once

#include "platform/service/domain/Context.h"

namespace zeqd {

/// Judges what came of the file, which was made or read before, off the event loop.
void settingsAction(Context& context);

/// The settings of a file that was read before the last stop take effect.
/// Answers whether there were any that are sound.
bool installPendingSettings(Transaction& tx);

} // namespace zeqd
