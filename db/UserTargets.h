#pragma once

#include <set>

/// Transmitters that a user may connect to.
struct UserTargets {
    bool all = false;
    std::set<unsigned> transmitters; // record indexes; nothing to be looked at while `all`

    bool allows(unsigned txIndex) const { return all || transmitters.contains(txIndex); }
};
