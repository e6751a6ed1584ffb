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

void WallClock_setSource(std::time_t (*source)()) {
    sSource = source ? source : systemTime;
}
