// The life of Receivers and Transmitters: reboots, going away and coming back.
#pragma once

#include "platform/service/sim/Steps.h"

namespace zeqd {

/// The device is told to reboot; `device` is the record as it is about to be kept.
void beginReset(Transaction& tx, Record& device, std::int64_t delayMs = span::kBeforeReset);

/// The devices stop answering, now. Their sessions end.
void goOffline(Transaction& tx, std::int64_t now, const std::vector<RecordPtr>& devices);

/// The device was away and will be ready in a while.
void comeBack(Transaction& tx, const RecordPtr& device, std::int64_t delayMs);

void deviceDown(StepContext& step);
void deviceConfiguring(StepContext& step);
void deviceReady(StepContext& step);
void flashEnd(StepContext& step);

/// New firmware runs from now on, a failed update is forgotten.
void finishUpgrade(Record& device);

} // namespace zeqd
