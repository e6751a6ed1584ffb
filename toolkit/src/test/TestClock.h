#pragma once

#include <chrono>
#include <cstdint>
#include <map>

namespace Wt::Impl {

class TimerBook;
class WebSession;

/// The time of a session without a browser: timers fire when it is advanced, each as an event of its own, in
/// the order in which a browser would fire them.
class TestClock {
public:
    explicit TestClock(WebSession& session) : mSession(session) {}

    /// Timers that handlers start on the way fire too when their time comes.
    void advance(std::chrono::milliseconds by);

private:
    void learnTimers();

    WebSession& mSession;
    std::chrono::milliseconds mNow{0};
    std::map<std::uint32_t, std::chrono::milliseconds> mDue; ///< by run of a timer
};

} // namespace Wt::Impl
