#include "views/devices/list/DevStatusMark.h"

#include <gtest/gtest.h>

TEST(DevStatusMark, FollowsTheWordThatTheListShows) {
    const struct {
        const char *status, *upgrade, *usage, *mark;
    } rows[] = {
        {"ready", "idle", "usable", "mirl-status-ready"},
        {"ready", "", "usable", "mirl-status-ready"},
        {"ready", "failed_flash", "usable", "mirl-status-error"},
        {"offline", "failed", "usable", "mirl-status-offline"}, // the list says offline
        {"resetting", "complete", "usable", "mirl-status-working"},
        {"reset_pending", "idle", "usable", "mirl-status-working"},
        {"reset_pending", "failed", "usable", "mirl-status-error"},
        {"conflict_other_master", "upgrading", "usable", "mirl-status-error"},
        {"ready", "complete", "usable", "mirl-status-working"},
        {"ready", "idle", "not_usable_swx_capacity", "mirl-status-working"},
        {"offline", "idle", "exceeds_unmanaged_capacity", "mirl-status-offline"},
        {"", "", "", "mirl-status-ready"},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(devStatusMark(row.status, row.upgrade, row.usage), row.mark)
            << row.status << "/" << row.upgrade << "/" << row.usage;
}
