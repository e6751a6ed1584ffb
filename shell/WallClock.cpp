#include "shell/WallClock.h"

#include <atomic>

namespace {

std::time_t systemTime() {
    return std::time(nullptr);
}

std::atomic<std::time_t (*)()> sSource{systemTime};

} // namespace

std::time_t WallClock_now() {
    return sSource.load()();
}

unsigned WallClock_secondsSince(std::time_t start) {
    const std::time_t now = WallClock_now();
    return now > start ? static_cast<unsigned>(now - start) : 0;
}

void WallClock_setSource(std::time_t (*source)()) {
    sSource = source ? source : systemTime;
}
