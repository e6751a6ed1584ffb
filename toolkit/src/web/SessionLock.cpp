#include "web/SessionLock.h"

#include <unordered_map>

namespace Wt::Impl {

namespace {

/// The applications of the process that live.
struct Living {
    std::mutex mutex;
    std::unordered_map<const WApplication*, std::weak_ptr<SessionLock>> locks;
};

Living& living() {
    static Living table;
    return table;
}

} // namespace

void SessionLock::take() {
    std::unique_lock lock(mMutex);
    const std::uint64_t ticket = mTickets++;
    mNext.wait(lock, [&] { return mServing == ticket; });
}

void SessionLock::leave() {
    {
        const std::lock_guard lock(mMutex);
        ++mServing;
    }
    mNext.notify_all();
}

std::shared_ptr<SessionLock> SessionLock::of(const WApplication* application) {
    Living& table = living();
    const std::lock_guard lock(table.mutex);
    const auto found = table.locks.find(application);
    return found == table.locks.end() ? nullptr : found->second.lock();
}

void SessionLock::enter(const std::shared_ptr<SessionLock>& self, WebSession* session,
                        const WApplication* application) {
    Living& table = living();
    const std::lock_guard lock(table.mutex);
    if (self->mApplication) table.locks.erase(self->mApplication);
    self->mApplication = application;
    self->mSession = application ? session : nullptr;
    if (application) table.locks.insert_or_assign(application, self);
}

} // namespace Wt::Impl
