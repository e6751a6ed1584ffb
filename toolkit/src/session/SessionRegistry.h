#pragma once

#include "core/Secret.h"
#include "session/Session.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace Wt::Impl {

struct SessionLimits {
    std::size_t recognised = 0; ///< whose users have logged in
    std::size_t perAddress = 0;
    std::size_t anonymous = 0; ///< the others: one more, and the oldest idle one makes room
};

/// All sessions of the process. Thread-safe; no code of the application runs inside of its lock.
///
/// A session begins without a thread: it costs its page's two secrets and a few lines of the request until the page
/// says hello. Until its user is recognised (WApplication::changeSessionId) it belongs to a pool of its own, so that
/// whoever opens pages by the thousand takes the room of no user.
class SessionRegistry : public std::enable_shared_from_this<SessionRegistry> {
public:
    using Clock = std::chrono::steady_clock;

    SessionRegistry(SessionLimits limits, HostFactory makeHost)
        : mLimits(limits), mMakeHost(std::move(makeHost)) {}

    struct Started {
        std::shared_ptr<Session> session; ///< null: refused with `status`
        int status = 0;                   ///< 429: too many of this address; 503: too many users
        std::string token;                ///< the page's secret; nobody keeps it here
        std::string cookie;               ///< the browser's
    };

    /// Makes a session that waits for its page. `cookie`: the browser's, kept if one of its sessions still lives,
    /// otherwise replaced by a fresh one. `start.sessionId` is set here: `prefix` and 16 random characters.
    Started start(StartRequest start, const std::string& prefix, const std::string& resourceRoot,
                  std::string_view cookie);

    /// The session of a page; null unless token and cookie both fit.
    std::shared_ptr<Session> find(std::string_view token, std::string_view cookie);

    /// The same for a page that says hello: the session's thread runs from now on. Null also without a thread.
    std::shared_ptr<Session> claim(std::string_view token, std::string_view cookie);

    /// The session by its public name, for its resources; null unless the cookie fits.
    std::shared_ptr<Session> findByName(std::string_view name, std::string_view cookie) const;

    /// The session by its public name, for the process itself.
    std::shared_ptr<Session> findByName(std::string_view name) const;

    /// Whether a session of this browser has a user.
    bool isOfUser(std::string_view cookie) const;

    struct Renewed {
        int status = 403;   ///< 200: new secrets; 204: the new token was shown, the old ones are void
        std::string token;  ///< the page's new secret
        std::string cookie; ///< the browser's, for all of its pages
    };

    /// New secrets for the page of a session whose user has just been recognised. What was known before the login
    /// is void as soon as the page shows the new token: here or by a hello.
    Renewed renew(std::string_view token, std::string_view cookie);

    /// Ends a session; one that waits for its page is forgotten at once.
    void end(const std::shared_ptr<Session>& session, EndReason reason);

    /// Ends the sessions whose page is silent at `now`, forgets those that have said their last word. Returns
    /// how many are left.
    std::size_t expire(Clock::time_point now);

    /// Those that run.
    void forEach(const std::function<void(Session&)>& function) const;

    /// Those that wait for their page or run.
    std::size_t size() const;

    /// Ends all, and waits for their threads up to `limit`. False if some are still inside a handler.
    bool endAll(EndReason reason, std::chrono::steady_clock::duration limit);

private:
    using SessionPtr = std::shared_ptr<Session>;
    using Victims = std::vector<SessionPtr>; ///< to be ended outside of the lock

    void ended(const SessionPtr& session);
    void recognised(const SessionPtr& session);
    void reap();

    // With the lock held.
    SessionPtr lookUp(std::string_view token, std::string_view cookie);
    bool isCookieOf(const Session& session, const Digest& cookie) const;
    bool opens(const Digest& cookie, const Session& session) const;
    bool isKnown(const Digest& cookie) const;
    void confirm(Session& session);
    bool makeRoom(const std::string& network, Victims& victims);
    SessionPtr oldestIdle(const std::function<bool(const Session&)>& among) const;
    void displace(const SessionPtr& session, Victims& victims);
    void uncount(Session& session);
    void forget(const SessionPtr& session);

    const SessionLimits mLimits;
    const HostFactory mMakeHost;
    mutable std::mutex mMutex;
    std::condition_variable mOneEnded;
    std::unordered_map<Digest, SessionPtr, DigestHash> mByToken;
    std::unordered_map<Digest, SessionPtr, DigestHash> mByNewToken;    ///< not shown yet
    std::unordered_map<Digest, std::string, DigestHash> mNewCookies;   ///< text, by the cookie it replaces
    std::unordered_map<std::string, std::weak_ptr<Session>> mByName;   ///< that run
    std::unordered_map<std::string, std::size_t> mPerAddress;          ///< by network
    std::unordered_map<std::string, std::size_t> mAnonymousPerAddress; ///< by network
    std::size_t mRecognised = 0;
    std::size_t mAnonymous = 0;
    std::size_t mThreads = 0;
    std::size_t mEndedSinceTrim = 0;
    std::vector<SessionPtr> mToJoin;
};

} // namespace Wt::Impl
