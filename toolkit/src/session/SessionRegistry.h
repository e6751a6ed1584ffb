#pragma once

#include "core/Secret.h"
#include "session/Session.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace Wt::Impl {

struct SessionLimits {
    std::size_t sessions = 0;
    std::size_t perAddress = 0;
};

/// All sessions of the process. Thread-safe.
class SessionRegistry : public std::enable_shared_from_this<SessionRegistry> {
public:
    using Clock = std::chrono::steady_clock;

    SessionRegistry(SessionLimits limits, HostFactory makeHost)
        : mLimits(limits), mMakeHost(std::move(makeHost)) {}

    struct Started {
        std::shared_ptr<Session> session; ///< null: refused with `status`
        int status = 0;     ///< 429: too many of this address; 503: too many in all, or no thread
        std::string token;  ///< the page's secret; nobody keeps it here
        std::string cookie; ///< the browser's
    };

    /// Makes a session and starts its thread. `cookie`: the browser's,
    /// kept if one of its sessions still lives, otherwise replaced by a fresh one.
    /// `start.sessionId` is set here: `prefix` and 16 random characters.
    Started start(StartRequest start, const std::string& prefix, const std::string& resourceRoot,
                  std::string_view cookie);

    /// The session of a page; null unless token and cookie both fit.
    std::shared_ptr<Session> find(std::string_view token, std::string_view cookie) const;

    /// The session by its public name, for its resources; null unless the cookie fits.
    std::shared_ptr<Session> findByName(std::string_view name, std::string_view cookie) const;

    /// The session by its public name, for the process itself.
    std::shared_ptr<Session> findByName(std::string_view name) const;

    /// Ends the sessions whose page is silent at `now`, forgets those that have said their last word. Returns
    /// how many are left.
    std::size_t expire(Clock::time_point now);

    void forEach(const std::function<void(Session&)>& function) const;
    std::size_t size() const;

    /// Ends all, and waits for their threads up to `limit`. False if some are still inside a handler.
    bool endAll(EndReason reason, std::chrono::steady_clock::duration limit);

private:
    void ended(const std::shared_ptr<Session>& session);
    void reap();

    const SessionLimits mLimits;
    const HostFactory mMakeHost;
    mutable std::mutex mMutex;
    std::condition_variable mOneEnded;
    std::unordered_map<Digest, std::shared_ptr<Session>, DigestHash> mByToken;
    std::unordered_map<std::string, std::weak_ptr<Session>> mByName;
    std::unordered_map<std::string, std::size_t> mPerAddress;       ///< running sessions
    std::unordered_map<Digest, std::size_t, DigestHash> mPerCookie; ///< running sessions
    std::size_t mRunning = 0;
    std::vector<std::shared_ptr<Session>> mToJoin;
};

} // namespace Wt::Impl
