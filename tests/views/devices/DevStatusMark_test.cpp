#include "views/devices/DevStatusMark.h"

#include <gtest/gtest.h>

TEST(DevStatusMark, FollowsTheWordThatTheListShows) {
    const struct {
        const char *status, *upgrade, *mark;
    } rows[] = {
        {"ready", "idle", "mirl-status-ready"},
        {"ready", "", "mirl-status-ready"},
        {"ready", "failed_flash", "mirl-status-error"},
        {"offline", "failed", "mirl-status-offline"}, // the list says offline
        {"resetting", "complete", "mirl-status-working"},
        {"reset_pending", "idle", "mirl-status-working"},
        {"reset_pending", "failed", "mirl-status-error"},
        {"conflict_other_master", "upgrading", "mirl-status-error"},
        {"ready", "complete", "mirl-status-working"},
        {"", "", "mirl-status-ready"},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(devStatusMark(row.status, row.upgrade), row.mark) << row.status << "/" << row.upgrade;
}
