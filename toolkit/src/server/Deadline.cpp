#include "server/Deadline.h"

#include <atomic>

namespace Wt::Impl {

using Clock = std::chrono::steady_clock;

namespace {
std::atomic<int> divisor = 1;
}

void Deadline::hurry(int times) {
    divisor = times;
}

Clock::duration Deadline::hurried(Clock::duration time) {
    return time / divisor.load();
}

struct Deadline::State {
    State(const IoExecutor& executor, std::function<void()> function)
        : timer(executor), passed(std::move(function)) {}

    Timer timer;
    std::function<void()> passed;
    Clock::time_point due = Clock::time_point::max();   ///< max: off
    Clock::time_point armed = Clock::time_point::max(); ///< when the timer fires; max: it does not run
};

Deadline::Deadline(const IoExecutor& executor, std::function<void()> passed)
    : mState(std::make_shared<State>(executor, std::move(passed))) {}

Deadline::~Deadline() {
    mState->passed = nullptr;
    mState->timer.cancel();
}

void Deadline::in(Clock::duration time) {
    mState->due = Clock::now() + hurried(time);
    if (mState->due < mState->armed) arm(mState);
}

void Deadline::off() {
    mState->due = Clock::time_point::max();
}

void Deadline::arm(const std::shared_ptr<State>& state) {
    state->armed = state->due;
    state->timer.expires_at(state->due);
    state->timer.async_wait([weak = std::weak_ptr(state)](const error_code& ec) {
        const auto self = weak.lock();
        if (!self || ec) return; // cancelled: gone, or armed anew for an earlier time
        self->armed = Clock::time_point::max();
        if (self->due == Clock::time_point::max()) return;
        if (Clock::now() < self->due) return arm(self);
        self->due = Clock::time_point::max();
        if (self->passed) self->passed();
    });
}

} // namespace Wt::Impl
