// The enrolment of this Switch with an external manager, and the way out again.
#pragma once

#include "platform/service/sim/Steps.h"

namespace zeqd {

/// "managedSetting" has been set; `globals` is the record as it is about to be kept.
void beginEnrolment(Transaction& tx, Record& globals);
void enrol(StepContext& step);

/// How the connections to the managers stand, by their addresses and by what answers there.
void showManagers(Record& globals);

} // namespace zeqd
