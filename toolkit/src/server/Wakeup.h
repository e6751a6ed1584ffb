#pragma once

#include "server/Io.h"

#include <atomic>
#include <memory>

namespace Wt::Impl {

/// Lets a coroutine of an I/O thread sleep until another thread has something for it. Signals that come
/// before the wait are not lost; several are one.
class Wakeup : public std::enable_shared_from_this<Wakeup> {
public:
    explicit Wakeup(const IoExecutor& executor) : mTimer(executor) {}

    /// From any thread.
    void signal();

    /// On the I/O thread, one at a time. True when signalled, false after `limit`.
    Awaitable<bool> wait(std::chrono::steady_clock::duration limit);

private:
    Timer mTimer;
    std::atomic<bool> mPosted = false; ///< a post() is on its way
    bool mSignalled = false;           ///< on the I/O thread
};

} // namespace Wt::Impl
