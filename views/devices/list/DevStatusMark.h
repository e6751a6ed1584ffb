#pragma once

#include <string_view>

/// Style class that marks a device's status in the list, by shape and colour, beside its words: seen from the
/// other end of the control room.
struct DevStatusMark {
    std::string_view status;  // a device's "status" begins so; empty: any
    std::string_view upgrade; // and its "upgradeStatus" begins so
    std::string_view usage;   // and its "usage" ends so
    const char* styleClass;
};

/// The first row that fits decides.
inline constexpr DevStatusMark kDevStatusMarks[] = {
    // clang-format off
    {"offline",       "",          "",          "mirl-status-offline"},
    {"conflict",      "",          "",          "mirl-status-error"},
    {"isc_failure",   "",          "",          "mirl-status-error"},
    {"configuring",   "",          "",          "mirl-status-working"},
    {"in_recovery",   "",          "",          "mirl-status-working"},
    {"resetting",     "",          "",          "mirl-status-working"},
    {"dc_connected",  "",          "",          "mirl-status-working"},
    {"",              "failed",    "",          "mirl-status-error"},
    {"",              "upgrading", "",          "mirl-status-working"},
    {"",              "complete",  "",          "mirl-status-working"},
    {"reset_pending", "",          "",          "mirl-status-working"},
    {"",              "",          "_capacity", "mirl-status-working"}, // ready, and yet of no use
    {"",              "",          "",          "mirl-status-ready"},
    // clang-format on
};

constexpr const char* devStatusMark(std::string_view status, std::string_view upgrade,
                                    std::string_view usage) {
    for (const DevStatusMark& mark : kDevStatusMarks) {
        if (status.starts_with(mark.status) && upgrade.starts_with(mark.upgrade) &&
            usage.ends_with(mark.usage))
            return mark.styleClass;
    }
    return "";
}
