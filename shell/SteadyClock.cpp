#include "shell/SteadyClock.h"

#include <atomic>
#include <ctime>

namespace {

/// Counts while the machine sleeps, too.
std::int64_t machineMs() {
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

std::atomic<std::int64_t (*)()> sSource{machineMs};

} // namespace

std::int64_t SteadyClock_nowMs() {
    return sSource.load()();
}

void SteadyClock_setSource(std::int64_t (*source)()) {
    sSource = source ? source : machineMs;
}
