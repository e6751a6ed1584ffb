#include "server/Wakeup.h"

#include <boost/asio/post.hpp>

namespace Wt::Impl {

void Wakeup::signal() {
    if (mPosted.exchange(true)) return;
    asio::post(mTimer.get_executor(), [self = shared_from_this()] {
        self->mPosted = false;
        self->mSignalled = true;
        self->mTimer.cancel();
    });
}

Awaitable<bool> Wakeup::wait(std::chrono::steady_clock::duration limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!mSignalled) {
        if (std::chrono::steady_clock::now() >= end) co_return false;
        mTimer.expires_at(end);
        co_await mTimer.async_wait(kAsTuple);
    }
    mSignalled = false;
    co_return true;
}

} // namespace Wt::Impl
