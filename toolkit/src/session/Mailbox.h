#pragma once

#include <boost/json/value.hpp>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace Wt::Impl {

class ResourceExchange;

/// Why a session ends. Told to the browser where it is still there.
enum class EndReason { Quit, PageClosed, Expired, ServerStopping, Overload, Displaced };

/// One thing for a session to do. Made on any thread, taken by the session's own.
struct SessionEvent {
    enum class Kind {
        Page,     ///< `page`: a JSON array of browser events, in the order in which they happened
        Resource, ///< `exchange`: a request for one of the session's resources
        Reload,   ///< `pageNumber`, `path`: the page has been loaded anew and shows nothing yet
        Call,     ///< `call`: run inside the session (WServer::post, timers of tests)
        End       ///< `reason`: the session is to end; sticky, see Mailbox
    };
    Kind kind = Kind::Call;
    boost::json::value page;
    std::shared_ptr<ResourceExchange> exchange;
    std::function<void()> call;
    EndReason reason = EndReason::Expired;
    std::uint64_t pageNumber = 0;
    std::string path;          ///< internal path of the page's address
    std::uint64_t ordinal = 0; ///< set by Mailbox::post(): how many were posted with it
};

/// What waits for a session. post() from any thread; take() and tryTake() from the session's thread alone,
/// which calls them from its main loop and from every nested loop (WDialog::exec).
///
/// End is sticky: once posted, everything queued behind is dropped and every take() returns End at once, so
/// that a session unwinds through any number of nested loops.
class Mailbox {
public:
    /// Events that may wait; a session that is this far behind ends with EndReason::Overload.
    static constexpr std::size_t kMaxWaiting = 4096;

    /// Gives what it had to drop, if anything: destroyed by the caller, whose locks are not held by then. What was
    /// posted by the application may run code of the application as it goes.
    std::deque<SessionEvent> post(SessionEvent event);
    SessionEvent take();
    bool tryTake(SessionEvent& event);
    bool ending() const;
    std::uint64_t posted() const; ///< events so far
    EndReason endReason() const;  ///< meaningful while ending()
    /// How long the session has been at what it took last; zero while it waits for more.
    std::chrono::milliseconds busy() const;

private:
    SessionEvent next(); // with the lock held, something being there

    mutable std::mutex mMutex;
    std::condition_variable mArrived;
    std::deque<SessionEvent> mWaiting;
    std::uint64_t mPosted = 0;
    std::optional<std::chrono::steady_clock::time_point> mTakenAt;
    bool mEnding = false;
    EndReason mReason = EndReason::Expired;
};

} // namespace Wt::Impl
