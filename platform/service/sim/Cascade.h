// The cascade of this Switch with its peer, and the enrolment with a manager.
#pragma once

#include "platform/service/domain/Context.h"
#include "platform/service/sim/Steps.h"

namespace zeqd {

/// One of the values of "cascadeRoleAction"; `index`: the Switch it is about.
void changeCascade(Context& context, std::string_view action, std::uint32_t index);

/// A linked peer has taken over the controller's data and is ready to stand in.
void peerReady(StepContext& step);

/// "managedSetting" has been set; `globals` is the record as it is about to be kept.
void beginEnrolment(Transaction& tx, Record& globals);
void enrol(StepContext& step);

/// A master Switch is its own master: puts its EID into "masterSwitchEid" of `globals` when this Switch is
/// one and no Switch of the system has the EID that stands there.
void nameMaster(const View& view, Record& globals);

/// The linked peer, or null.
RecordPtr linkedPeer(const View& view);

} // namespace zeqd
