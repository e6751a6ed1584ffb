// Simulated time and what is to happen in it.
#pragma once

#include "platform/service/store/Transaction.h"

#include <optional>
#include <queue>

namespace zeqd {

class Schedule {
public:
    explicit Schedule(std::int64_t monotonicMs) : mRealAnchor(monotonicMs) {}

    void add(std::int64_t monotonicMs, const TimedTask& task);
    /// Tasks whose time has come, in the order of their times.
    std::vector<Task> takeDue(std::int64_t monotonicMs);
    /// Simulated time runs `factor` times as fast from now on. At least 1.
    void setFactor(std::int64_t monotonicMs, std::int64_t factor);
    /// Simulated time jumps ahead.
    void step(std::int64_t milliseconds) { mSimAnchor += milliseconds; }

    /// Monotonic milliseconds of the next task; nothing when there is none.
    std::optional<std::int64_t> nextDue() const;

private:
    struct Entry {
        std::int64_t due;
        std::uint64_t order; ///< of two tasks at one time, the earlier added goes first
        Task task;
        bool operator>(const Entry& other) const {
            return std::tie(due, order) > std::tie(other.due, other.order);
        }
    };
    std::int64_t simNow(std::int64_t monotonicMs) const {
        return mSimAnchor + (monotonicMs - mRealAnchor) * mFactor;
    }

    std::int64_t mRealAnchor;
    std::int64_t mSimAnchor = 0;
    std::int64_t mFactor = 1;
    std::uint64_t mOrder = 0;
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> mEntries;
};

} // namespace zeqd
