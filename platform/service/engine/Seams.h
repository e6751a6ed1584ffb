// What the engine takes from outside, so that tests can bend it: time, disk, and work off the event loop.
#pragma once

#include "platform/service/catalogue/ResourceRow.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zeqd {

class Clock {
public:
    virtual ~Clock() = default;
    /// Seconds since 1970 UTC.
    virtual std::int64_t now() const = 0;
    /// Milliseconds that only go forward.
    virtual std::int64_t monotonicMs() const = 0;
};

/// One record as it is to be on disk; without a body it is to be gone.
struct DiskChange {
    Res resource;
    std::uint32_t index;
    std::optional<std::string> body;
};

class Disk {
public:
    virtual ~Disk() = default;
    /// Keeps all changes or none. Answers only when they survive a power cut. Empty on success, else what
    /// failed.
    virtual std::string write(const std::vector<DiskChange>& changes) = 0;
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
