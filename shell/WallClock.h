#pragma once

#include <ctime>

/// Time of day in seconds since 1970 UTC, as login lockout and inactivity see it. It can be set back by
/// whoever sets the Switch's clock.
std::time_t WallClock_now();

/// Seconds that have passed since then; 0 for a time to come, as after a clock that was set back.
unsigned WallClock_secondsSince(std::time_t start);

/// Where the time comes from, for the whole process; null = the system's clock.
/// Any thread may read it meanwhile.
void WallClock_setSource(std::time_t (*source)());
