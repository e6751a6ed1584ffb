#pragma once

#include "core/Secret.h"
#include "session/Channel.h"
#include "session/Mailbox.h"
#include "session/SessionHost.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>

#include <pthread.h>

namespace Wt::Impl {

/// One browser page's session: a mailbox, a channel, and the thread that runs the application between them.
class Session : public std::enable_shared_from_this<Session> {
public:
    Session(HostFactory makeHost, StartRequest start, std::string resourceBase, const Digest& token,
            const Digest& cookie);

    /// Starts the thread. `ended` is called on it as its very last deed. Throws std::system_error.
    void run(std::function<void(const std::shared_ptr<Session>&)> ended);

    /// Waits for the thread; once, after `ended`.
    void join();

    /// Asks the session to end; the first reason holds.
    void end(EndReason reason);

    const std::string& name() const { return mStart.sessionId; }
    const std::string& clientAddress() const { return mStart.clientAddress; }
    const Digest& token() const { return mToken; }
    const Digest& cookie() const { return mCookie; }
    Mailbox& mailbox() { return mMailbox; }
    Channel& channel() { return mChannel; }
    bool hasEnded() const {
        return mEnded;
    } ///< the application is gone; the channel may still have last words

private:
    static void* threadMain(void* argument);
    void runHost();

    const HostFactory mMakeHost;
    const StartRequest mStart;
    const std::string mResourceBase;
    const Digest mToken;
    const Digest mCookie;
    Mailbox mMailbox;
    Channel mChannel{mMailbox};
    pthread_t mThread{};
    std::atomic<bool> mEnded = false;
    std::function<void(const std::shared_ptr<Session>&)> mOnEnd;
};

/// As the page is told: "quit", "closed", "expired", "stopping", "overload".
const char* endReasonName(EndReason reason);

} // namespace Wt::Impl
