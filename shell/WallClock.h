#pragma once

#include <ctime>

/// Time of day in seconds since 1970 UTC, as login lockout and inactivity see it. It can be set back by
/// whoever sets the Switch's clock.
std::time_t WallClock_now();

/// Where the time comes from, for the whole process; null = the system's clock.
/// Any thread may read it meanwhile.
void WallClock_setSource(std::time_t (*source)());
