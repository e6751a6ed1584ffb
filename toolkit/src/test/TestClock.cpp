#include "test/TestClock.h"

#include "web/WebSession.h"

#include <Wt/WTimer.h>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/value.hpp>

namespace Wt::Impl {

void TestClock::learnTimers() {
    const auto& running = mSession.timers().running();
    std::erase_if(mDue, [&](const auto& due) { return !running.contains(due.first); });
    for (const auto& [run, timer] : running)
        mDue.try_emplace(run, mNow + std::chrono::milliseconds(timer->interval()));
}

void TestClock::advance(std::chrono::milliseconds by) {
    const auto end = mNow + by;
    for (;;) {
        learnTimers();
        auto next = mDue.end();
        for (auto due = mDue.begin(); due != mDue.end(); ++due)
            if (due->second <= end && (next == mDue.end() || due->second < next->second)) next = due;
        if (next == mDue.end()) break;
        const std::uint32_t run = next->first;
        mNow = next->second;
        const WTimer* timer = mSession.timers().find(run);
        const int interval = timer->interval();
        if (timer->isSingleShot())
            mDue.erase(next);
        else
            next->second += std::chrono::milliseconds(interval > 0 ? interval : 1);
        mSession.flush();
        mSession.handlePage(boost::json::array{boost::json::object{{"k", "timer"}, {"t", run}}});
    }
    mNow = end;
}

} // namespace Wt::Impl
