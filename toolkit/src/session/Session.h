#pragma once

#include "core/Secret.h"
#include "session/Channel.h"
#include "session/Mailbox.h"
#include "session/SessionHost.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <pthread.h>

namespace Wt::Impl {

/// One browser page's session: a mailbox, a channel, and the thread that runs the application between them.
class Session : public std::enable_shared_from_this<Session> {
public:
    Session(HostFactory makeHost, StartRequest start, std::string resourceBase);

    /// Starts the thread. `ended` is called on it as its very last deed, `recognised` when the application knows its
    /// user. Throws std::system_error.
    void run(std::function<void(const std::shared_ptr<Session>&)> ended, std::function<void()> recognised);

    /// Waits for the thread; once, after `ended`.
    void join();

    /// Asks the session to end; the first reason holds.
    void end(EndReason reason);

    const std::string& name() const { return mStart.sessionId; }
    const std::string& clientNetwork() const { return mStart.clientNetwork; }
    Mailbox& mailbox() { return mMailbox; }
    Channel& channel() { return mChannel; }
    bool hasEnded() const {
        return mEnded;
    } ///< the application is gone; the channel may still have last words

    std::atomic<bool> hasUser = false; ///< set by the registry

    /// What the registry keeps of a session, under the registry's lock.
    struct Standing {
        Digest token{};  ///< the page's
        Digest cookie{}; ///< the browser's
        std::optional<Digest> newToken;
        Digest earlierCookie{}; ///< good until `earlierUntil`
        std::chrono::steady_clock::time_point earlierUntil{};
        bool started = false; ///< its thread runs, or ran
        bool counted = true;  ///< against the limits
        bool recognised = false;
        bool renewalDue = false; ///< the page may ask for new secrets
    };
    Standing standing;

private:
    static void* threadMain(void* argument);
    void runHost();

    const HostFactory mMakeHost;
    const StartRequest mStart;
    const std::string mResourceBase;
    Mailbox mMailbox;
    Channel mChannel{mMailbox};
    pthread_t mThread{};
    std::atomic<bool> mEnded = false;
    std::function<void(const std::shared_ptr<Session>&)> mOnEnd;
};

/// As the page is told: "quit", "closed", "expired", "stopping", "overload", "displaced".
const char* endReasonName(EndReason reason);

} // namespace Wt::Impl
