#pragma once

#include <cstdint>

/// Milliseconds of the machine's steady clock, which nobody can set: for limits that are to hold whatever the
/// time of day is set to.
std::int64_t SteadyClock_nowMs();

/// Where it comes from, for the whole process; null = the machine. Any thread may read it meanwhile.
void SteadyClock_setSource(std::int64_t (*source)());
