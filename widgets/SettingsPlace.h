#pragma once

#include "db/ZeqPtr.h"
#include "widgets/WWidgetZeq.h"

#include <string>
#include <vector>

/// Where a field's value stands: the resource of the requests, and within its records the nested objects,
/// outermost first. "swx/network/ipv4" is "swx" and {"network", "ipv4"}.
struct SettingsPlace {
    SettingsPlace() = default;
    explicit SettingsPlace(const char* resource);

    /// A table of the innermost objects of an answer's records, each with its record's "index" if it has one.
    /// Empty if there is none.
    ZeqPtr within(const json_t* answer) const;
    /// The object that takes the value in a request's "params". It and those around it are made when missing.
    json_t* into(json_t* params) const;

    std::string resource;
    std::vector<std::string> path;
};
