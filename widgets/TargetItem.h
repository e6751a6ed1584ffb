#pragma once

#include <Wt/WString>

#include <string>

/// One Transmitter in a list of targets. Ordered by index alone.
struct TargetItem {
    unsigned index = 0;
    bool conflict = false; // some but not all of the users in question may reach it
    std::string eid;       // empty if absent
    std::string name;      // empty if absent

    bool operator<(const TargetItem& other) const { return index < other.index; }
};

/// How a choice names a Transmitter: "00A703-030186 (CAD 4)", or its EID alone when it has no name.
inline Wt::WString targetText(const std::string& eid, const std::string& name) {
    return Wt::WString::fromUTF8(name.empty() ? eid : eid + " (" + name + ")");
}
