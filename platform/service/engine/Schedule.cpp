#include "platform/service/engine/Schedule.h"

#include <algorithm>

namespace zeqd {

void Schedule::add(std::int64_t monotonicMs, const TimedTask& task) {
    mEntries.push({simNow(monotonicMs) + task.delayMs, mOrder++, task.task});
}

std::vector<Task> Schedule::takeDue(std::int64_t monotonicMs) {
    std::vector<Task> due;
    const std::int64_t now = simNow(monotonicMs);
    while (!mEntries.empty() && mEntries.top().due <= now) {
        due.push_back(mEntries.top().task);
        mEntries.pop();
    }
    return due;
}

void Schedule::setFactor(std::int64_t monotonicMs, std::int64_t factor) {
    mSimAnchor = simNow(monotonicMs);
    mRealAnchor = monotonicMs;
    mFactor = std::max<std::int64_t>(1, factor);
}

std::optional<std::int64_t> Schedule::nextDue() const {
    if (mEntries.empty()) return std::nullopt;
    const std::int64_t ahead = std::max<std::int64_t>(0, mEntries.top().due - mSimAnchor);
    return mRealAnchor + (ahead + mFactor - 1) / mFactor;
}

} // namespace zeqd
