#include "web/TimerBook.h"

#include "web/Renderer.h"

#include <Wt/WTimer.h>

#include <algorithm>
#include <vector>

namespace Wt::Impl {

std::uint32_t TimerBook::begin(WTimer& timer) {
    mRunning[++mLast] = &timer;
    mChanged.insert(mLast);
    return mLast;
}

void TimerBook::end(std::uint32_t run) {
    if (mRunning.erase(run)) mChanged.insert(run);
    mHandled.erase(run);
}

void TimerBook::handled(std::uint32_t run, std::uint64_t posted) {
    if (mRunning.contains(run)) mHandled[run] = posted;
}

bool TimerBook::isOld(std::uint32_t run, std::uint64_t ordinal) const {
    const auto found = mHandled.find(run);
    return found != mHandled.end() && ordinal <= found->second;
}

WTimer* TimerBook::find(std::uint32_t run) const {
    const auto found = mRunning.find(run);
    return found == mRunning.end() ? nullptr : found->second;
}

void TimerBook::flush(Renderer& renderer) {
    std::vector<std::uint32_t> changed(mChanged.begin(), mChanged.end());
    mChanged.clear();
    std::sort(changed.begin(), changed.end());
    for (const std::uint32_t run : changed) {
        if (const WTimer* timer = find(run)) {
            if (!mShown.insert(run).second) continue;
            renderer.operation("[\"timer\"," + std::to_string(run) + "," + std::to_string(timer->interval()) +
                               (timer->isSingleShot() ? ",1]" : ",0]"));
        } else if (mShown.erase(run)) {
            renderer.operation("[\"stop\"," + std::to_string(run) + "]");
        }
    }
}

void TimerBook::forgetShown() {
    mShown.clear();
    for (const auto& [run, timer] : mRunning) mChanged.insert(run);
}

} // namespace Wt::Impl
