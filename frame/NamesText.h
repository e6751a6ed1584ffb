#pragma once

#include <Wt/WString.h>

#include <string>
#include <vector>

/// "a, b, c and 4 more". Names are UTF-8.
Wt::WString namesText(const std::vector<std::string>& names);

/// A record that an action would reach: its name, and its state as the list tells it ("Online"); the state may be empty.
struct HitRecord {
    std::string name;
    std::string state;
};

/// Whom an action reaches, for the question before it: "Desk 1: Online", or for several how many of what, the first
/// names, and below how many are in which state, the most frequent first. Empty without records. `counted` is the
/// message key of "{1} devices".
Wt::WString hitText(const std::vector<HitRecord>& records, const char* counted);
