// The settings actions of "swxControl".
#pragma once

#include "platform/service/domain/Context.h"

namespace zeqd {

/// Judges what came of the file, which was made or read before, off the event loop.
void settingsAction(Context& context);

/// The settings of a file that was read before the last stop take effect, and all sessions end: who may do what is
/// another matter now. Answers what there is to tell of it; empty when there were no settings.
std::string installPendingSettings(Transaction& tx);

} // namespace zeqd
