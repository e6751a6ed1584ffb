#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace Wt {

class WTimer;

namespace Impl {

class Renderer;

/// The timers of a session that run or ran in the browser. Only the state at the flush is sent.
class TimerBook {
public:
    /// A run of `timer` began (its number is unique in the session) or ended.
    std::uint32_t begin(WTimer& timer);
    void end(std::uint32_t run);

    void flush(Renderer& renderer);
    /// Another page has to start all that run.
    void forgetShown();
    /// The timer whose run this is and which still runs; null for late timeouts.
    WTimer* find(std::uint32_t run) const;
    /// A timeout of this run has been handled, when `posted` events had come to the session.
    /// What had come by then from the same run says nothing new:
    /// a timer whose handler is slower than its interval does not pile up.
    void handled(std::uint32_t run, std::uint64_t posted);
    bool isOld(std::uint32_t run, std::uint64_t ordinal) const;
    /// The running timers by run; a later run has a greater number.
    std::unordered_map<std::uint32_t, WTimer*> const& running() const { return mRunning; }

private:
    std::unordered_map<std::uint32_t, WTimer*> mRunning;
    std::unordered_map<std::uint32_t, std::uint64_t> mHandled;
    std::unordered_set<std::uint32_t> mShown, mChanged;
    std::uint32_t mLast = 0;
};

} // namespace Impl
} // namespace Wt
