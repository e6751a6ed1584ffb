// The life of Switches: reboots, with what hangs on them; factory defaults; time servers.
#pragma once

#include "platform/service/sim/Steps.h"

namespace zeqd {

void switchDown(StepContext& step);
void switchBack(StepContext& step);
void switchReady(StepContext& step);

/// This Switch is to begin anew, and the service may have died in between.
bool owesRestore(const View& view);
/// Everything that people have set goes. Files that hold some of it are the caller's.
void factoryThisSwitch(Transaction& tx, std::int64_t now);

/// The Switch goes away with the devices on its ports.
void switchOffline(Transaction& tx, std::int64_t now, const RecordPtr& swx);

/// What a Switch is in the middle of, begun again by what its record says: behind a restart, or under another index.
void switchGoesOn(Transaction& tx, const Record& swx);

/// All that a client may write goes back to its fallback, or to the system's defaults for new devices.
void restoreFactory(const View& view, Record& device, bool keepNetwork);

/// The time service starts over with its new settings.
void beginNtp(Transaction& tx, Record& swx);
void ntpResult(StepContext& step);

} // namespace zeqd
