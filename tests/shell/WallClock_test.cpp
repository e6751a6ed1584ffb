#include "shell/WallClock.h"
#include "tests/shell/AppSession.h"

#include <gtest/gtest.h>

namespace {

TEST(WallClock, NothingHasPassedSinceATimeToCome) {
    TestClock clock;
    const std::time_t now = WallClock_now();
    EXPECT_EQ(WallClock_secondsSince(now - 90), 90u);
    EXPECT_EQ(WallClock_secondsSince(now), 0u);
    EXPECT_EQ(WallClock_secondsSince(now + 1), 0u) << "as after a clock that was set back";
    clock.advance(5);
    EXPECT_EQ(WallClock_secondsSince(now + 1), 4u);
}

} // namespace
