#pragma once

#include <string>

/// One Transmitter in a list of targets. Ordered by index alone.
struct TargetItem {
    unsigned index = 0;
    bool conflict = false; // some but not all of the users in question may reach it
    std::string eid;       // empty if absent
    std::string name;      // empty if absent

    bool operator<(const TargetItem& other) const { return index < other.index; }
};
