// The machine's clocks.
#pragma once

#include "platform/service/engine/Seams.h"

#include <chrono>

namespace zeqd {

class SystemClock : public Clock {
public:
    std::int64_t now() const override {
        return std::chrono::duration_cast<std::chrono::seconds>(
                   std::chrono::system_clock::now().time_since_epoch())
            .count();
    }
    std::int64_t monotonicMs() const override {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
                   std::chrono::steady_clock::now().time_since_epoch())
            .count();
    }
};

} // namespace zeqd
