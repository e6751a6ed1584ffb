#pragma once

#include "server/Io.h"

#include <functional>
#include <memory>

namespace Wt::Impl {

/// Calls a function when a deadline passes. Moving the deadline costs no system call as long as it moves
/// later, which is what happens once per request; the timer looks again when it fires. One I/O thread.
class Deadline {
public:
    /// `passed` may be called as long as this lives.
    Deadline(const IoExecutor& executor, std::function<void()> passed);
    ~Deadline();

    void in(std::chrono::steady_clock::duration time);
    void off();

    /// For tests: from now on every deadline of a connection comes so many times sooner.
    /// 1 in a server that serves.
    static void hurry(int times);
    static std::chrono::steady_clock::duration hurried(std::chrono::steady_clock::duration time);

private:
    struct State;
    static void arm(const std::shared_ptr<State>& state);

    std::shared_ptr<State> mState;
};

} // namespace Wt::Impl
