#pragma once

#include "session/Mailbox.h"
#include "session/PageMessage.h"
#include "session/PageSink.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace Wt::Impl {

/// The connection that carries a channel at the moment: a WebSocket, or a poll that waits.
class ChannelPeer {
public:
    virtual ~ChannelPeer() = default;

    /// There is something to send, or another peer has taken over. From any thread;
    /// must not call the channel.
    virtual void wake() = 0;
};

/// The numbered, acknowledged road between a session and its page.
/// It outlives connections: what the page has not yet acknowledged is sent again to the next one,
/// what has arrived already is not handed on twice. Thread-safe.
class Channel : public PageSink {
public:
    using Clock = std::chrono::steady_clock;

    explicit Channel(Mailbox& mailbox) : mMailbox(mailbox) {}

    // The session's side.
    void send(std::string operations) override;
    void finish(std::string operations) override;
    void begin(std::uint64_t page) override;

    void recognised() override {
        if (onRecognised) onRecognised();
    }

    /// Set before the session's thread runs.
    std::function<void()> onRecognised;

    /// The session has ended. Without a finish() before, the page is told the reason (`name` of it).
    void close(const char* reason);

    // The connection's side.
    enum class Verdict {
        Taken,
        TooFast, ///< more messages than allowed; end the connection
        Gap      ///< a message is missing before this one: end the connection, the page sends all again
    };

    /// A new connection, by its hello; an earlier peer is woken and finds itself replaced.
    /// A page that was loaded anew begins with message 1 both ways, and the session is told of it. False: a later
    /// load of the page has the session, or it is over; nothing has changed.
    bool attach(const std::shared_ptr<ChannelPeer>& peer, const PageInput& hello);
    /// The page of that load says that it is being left. It may come back, loaded anew.
    void leave(std::uint64_t page);
    void detach(const ChannelPeer* peer);
    bool isAttached(const ChannelPeer* peer) const;

    Verdict receive(PageInput input);

    /// The next text for the connection that has sent everything up to `cursor` (0 at first: the channel
    /// starts with what is not acknowledged), or nothing. Numbered messages first, the end last.
    struct Outgoing {
        std::string text;
        bool last = false; ///< close the connection behind it
    };
    std::optional<Outgoing> next(std::uint64_t& cursor);

    /// `{"ack":M}`; with `"busy":MS` behind it when the session has been at one event for that long, from a quarter of
    /// a second on.
    std::string acknowledgement() const;

    // The registry's side.
    struct Liveness {
        bool attached = false;
        bool everAttached = false;
        bool delivered = false;      ///< closed, and the page has everything
        bool left = false;           ///< by its own word
        Clock::time_point lastHeard; ///< of the page
        Clock::time_point lastEvent; ///< of its user, or a timer of the page
    };
    Liveness liveness() const;

private:
    struct Message {
        std::uint64_t number = 0;
        std::string operations;
    };

    void queue(std::string&& operations);
    void acknowledge(std::uint64_t ack);
    void reload(const PageInput& hello);
    bool takeTokens(const PageInput& input);
    void wakePeer() const;

    Mailbox& mMailbox;
    mutable std::mutex mMutex;
    std::deque<Message> mUnacknowledged;
    std::size_t mQueuedBytes = 0;
    std::uint64_t mLastSent = 0;     ///< highest number given to a message of ours
    std::uint64_t mAcknowledged = 0; ///< highest the page has applied
    std::uint64_t mLastReceived = 0; ///< highest of the page's numbers
    std::uint64_t mPage = 1;         ///< how often the page has been loaded
    bool mForFormer = false;         ///< what the session sends still is for the page before this load
    bool mLeft = false;
    bool mFinished = false;
    bool mClosed = false;
    std::string mGone; ///< reason, when closed without finish()
    std::weak_ptr<ChannelPeer> mPeer;
    const ChannelPeer* mPeerKey = nullptr;
    bool mEverAttached = false;
    Clock::time_point mLastHeard = Clock::now();
    Clock::time_point mLastEvent = Clock::now();
    double mTokens = 0; ///< messages that may come
    double mEventTokens = 0;
    Clock::time_point mTokensAt{};
};

} // namespace Wt::Impl
