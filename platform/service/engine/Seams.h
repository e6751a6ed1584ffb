// What the engine takes from outside, so that tests can bend it: time and work off the event loop.
// The disk is the third of them (store/Disk.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace zeqd {

class Clock {
public:
    virtual ~Clock() = default;
    /// Seconds since 1970 UTC.
    virtual std::int64_t now() const = 0;
    /// Milliseconds that only go forward.
    virtual std::int64_t monotonicMs() const = 0;
};

/// Kinds of work off the event loop. Work of one lane is done in order, lanes do not wait for each other.
enum class Lane : std::uint8_t { Disk, Hash, Fetch, Archive };
constexpr std::size_t kLaneCount = 4;

class Executor {
public:
    virtual ~Executor() = default;
    /// Runs `work` off the event loop, then `done` on it.
    virtual void run(Lane lane, std::function<void()> work, std::function<void()> done) = 0;
};

} // namespace zeqd
