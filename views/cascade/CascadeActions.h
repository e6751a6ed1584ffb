#pragma once

#include <initializer_list>

/// Actions of the Cascade page, in their order.
enum class CascadeAction { Link, Unlink, RoleSwitch, Promote };

/// What decides which of them are allowed.
struct CascadeState {
    bool peer = false;         ///< a peer is linked, and its record is there
    bool peerControls = false; ///< it is the controller at this time
    bool standbyReady = false; ///< the Switch that would take over by a switch of roles is ready and "backup"
};

namespace cascade {

enum class Is { No, Yes, Any };

struct Row {
    Is peer;
    Is peerControls;
    Is standbyReady;
    bool allowed[4]; ///< by CascadeAction
};

// clang-format off
inline constexpr Row kRows[] = {
    // peer     controls  ready       link   unlink switch promote
    {Is::No,  Is::No,  Is::Any, {true,  false, false, false}},
    {Is::Yes, Is::No,  Is::No,  {false, true,  false, false}},
    {Is::Yes, Is::No,  Is::Yes, {false, true,  true,  false}},
    {Is::Yes, Is::Yes, Is::Yes, {false, false, true,  true}},
    {Is::Yes, Is::Yes, Is::No,  {false, false, false, true}},
    // On purpose: a peer that is said to control but is not linked leaves Link on.
    {Is::No,  Is::Yes, Is::Yes, {true,  false, true,  true}},
    {Is::No,  Is::Yes, Is::No,  {true,  false, false, true}},
};
// clang-format on

constexpr bool fits(Is wanted, bool is) {
    return wanted == Is::Any || (wanted == Is::Yes) == is;
}

constexpr bool fits(const Row& row, const CascadeState& state) {
    return fits(row.peer, state.peer) && fits(row.peerControls, state.peerControls) &&
           fits(row.standbyReady, state.standbyReady);
}

constexpr bool eachStateFitsOneRow() {
    for (int bits = 0; bits < 8; ++bits) {
        int fitting = 0;
        for (const Row& row : kRows)
            fitting += fits(row, {(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0});
        if (fitting != 1) return false;
    }
    return true;
}
static_assert(eachStateFitsOneRow());

} // namespace cascade

constexpr bool cascadeAllows(const CascadeState& state, CascadeAction action) {
    for (const cascade::Row& row : cascade::kRows)
        if (cascade::fits(row, state)) return row.allowed[static_cast<int>(action)];
    return false;
}
