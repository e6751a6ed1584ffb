#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>

namespace Wt {
class WApplication;
}

namespace Wt::Impl {

class WebSession;

/// Whose turn it is in a session: its own thread's while that handles an event, or another thread's in
/// between (WApplication::UpdateLock). First come, first served, so that a busy session does not keep others
/// out for ever. Outlives the session for those who still wait.
class SessionLock {
public:
    /// Waits for the turn.
    void take();
    void leave();

    /// Gives the lock of an application that lives, or null. From any thread.
    static std::shared_ptr<SessionLock> of(const WApplication* application);

    /// With the turn held: the session has an application now, or (null) none any more.
    static void enter(const std::shared_ptr<SessionLock>& self, WebSession* session,
                      const WApplication* application);
    WebSession* session() const { return mSession; } ///< with the turn held; null: there is no application

private:
    std::mutex mMutex;
    std::condition_variable mNext;
    std::uint64_t mTickets = 0, mServing = 0;
    WebSession* mSession = nullptr;
    const WApplication* mApplication = nullptr;
};

} // namespace Wt::Impl
