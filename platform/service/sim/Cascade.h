// The cascade of two Switches that stand in for one another. Which is which stands in "systemGlobals": the master by
// "masterSwitchEid", its peer by "peerControllerSwitchEid", and which of them is the controller by "cascadeController".
// None of that depends on the Switch that one is logged in to, which is always record 1.
#pragma once

#include "platform/service/domain/Context.h"
#include "platform/service/sim/Steps.h"

namespace zeqd {

/// One of the values of "cascadeRoleAction"; `index`: the Switch it is about.
void changeCascade(Context& context, std::string_view action, std::uint32_t index);

/// Looks at the installation from another Switch, without any change of roles: records 1 and `index` change places, what
/// names them by index follows, and the administrator sessions end, which the other Switch does not know.
void lookFrom(Context& context, std::uint32_t index);

/// A linked peer has taken over the controller's data and is ready to stand in.
void peerReady(StepContext& step);

/// A Switch of the cascade is up again: what was interrupted goes on.
void cascadeSwitchReady(Transaction& tx, const Record& swx);

/// Gives every Switch the role that it has by its mode and "systemGlobals", and mends what contradicts itself there. To be
/// called behind every change of either that does not come from here.
void settleCascade(Transaction& tx);

/// The two Switches of the cascade; all null without a peer.
struct CascadePair {
    RecordPtr master;
    RecordPtr peer;
    RecordPtr controller; ///< one of the two
    RecordPtr standby;    ///< the other
    explicit operator bool() const { return peer != nullptr; }
};
CascadePair cascadePair(const View& view);

/// A Switch of the installation that calls itself master and is not its master.
bool isForeignMaster(const View& view, const Record& swx);

} // namespace zeqd
