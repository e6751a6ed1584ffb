#include "session/Channel.h"

#include "core/Limits.h"

#include <algorithm>
#include <iterator>

namespace Wt::Impl {

namespace {

constexpr std::chrono::milliseconds kBusyFrom{250};

} // namespace

void Channel::send(std::string operations) {
    bool overflow = false;
    {
        const std::lock_guard lock(mMutex);
        if (mFinished || mClosed || mForFormer) return;
        queue(std::move(operations));
        overflow = mQueuedBytes > kOutputQueueBytes;
        wakePeer();
    }
    if (!overflow) return;
    SessionEvent end;
    end.kind = SessionEvent::Kind::End;
    end.reason = EndReason::Overload;
    mMailbox.post(std::move(end));
}

void Channel::finish(std::string operations) {
    const std::lock_guard lock(mMutex);
    if (mFinished || mClosed) return;
    if (!operations.empty()) queue(std::move(operations));
    mFinished = true;
    wakePeer();
}

void Channel::close(const char* reason) {
    const std::lock_guard lock(mMutex);
    mClosed = true;
    if (!mFinished) mGone = reason;
    wakePeer();
}

bool Channel::attach(const std::shared_ptr<ChannelPeer>& peer, const PageInput& hello) {
    const std::lock_guard lock(mMutex);
    if (hello.page < mPage || (hello.page > mPage && (mFinished || mClosed))) return false;
    if (hello.page > mPage) reload(hello);
    if (const auto earlier = mPeer.lock(); earlier && earlier != peer) earlier->wake();
    mPeer = peer;
    mPeerKey = peer.get();
    mEverAttached = true;
    mLastHeard = Clock::now();
    mLeft = false;
    acknowledge(hello.ack);
    return true;
}

void Channel::reload(const PageInput& hello) {
    mPage = hello.page;
    mUnacknowledged.clear();
    mQueuedBytes = 0;
    mLastSent = mAcknowledged = mLastReceived = 0;
    mForFormer = true;
    SessionEvent event;
    event.kind = SessionEvent::Kind::Reload;
    event.pageNumber = hello.page;
    event.path = hello.path;
    mMailbox.post(std::move(event));
}

void Channel::begin(std::uint64_t page) {
    const std::lock_guard lock(mMutex);
    if (page == mPage) mForFormer = false;
}

void Channel::leave(std::uint64_t page) {
    const std::lock_guard lock(mMutex);
    if (page == mPage) mLeft = true;
}

void Channel::detach(const ChannelPeer* peer) {
    const std::lock_guard lock(mMutex);
    if (mPeerKey != peer) return;
    mPeer.reset();
    mPeerKey = nullptr;
    mLastHeard = Clock::now();
}

bool Channel::isAttached(const ChannelPeer* peer) const {
    const std::lock_guard lock(mMutex);
    return mPeerKey == peer;
}

Channel::Verdict Channel::receive(PageInput input) {
    std::deque<SessionEvent> dropped; // destroyed outside of the lock
    {
        const std::lock_guard lock(mMutex);
        if (input.page != mPage) return Verdict::Gap; // of a page that has been loaded anew since
        mLastHeard = Clock::now();
        acknowledge(input.ack);
        if (!takeTokens(input)) return Verdict::TooFast;
        for (PageMessage& message : input.messages) {
            if (message.number <= mLastReceived) continue; // came already, over an earlier connection
            if (message.number != mLastReceived + 1) return Verdict::Gap;
            mLastReceived = message.number;
            mLastEvent = mLastHeard;
            SessionEvent event;
            event.kind = SessionEvent::Kind::Page;
            event.page = std::move(message.events);
            // Inside the lock: two connections must not swap their order.
            std::deque<SessionEvent> refused = mMailbox.post(std::move(event));
            std::move(refused.begin(), refused.end(), std::back_inserter(dropped));
        }
    }
    return Verdict::Taken;
}

std::optional<Channel::Outgoing> Channel::next(std::uint64_t& cursor) {
    const std::lock_guard lock(mMutex);
    cursor = std::max(cursor, mAcknowledged);
    const auto message = std::find_if(mUnacknowledged.begin(), mUnacknowledged.end(),
                                      [&](const Message& candidate) { return candidate.number > cursor; });
    if (message != mUnacknowledged.end()) {
        cursor = message->number;
        Outgoing out;
        out.text.reserve(message->operations.size() + 64);
        out.text.append("{\"n\":").append(std::to_string(message->number));
        out.text.append(",\"ack\":").append(std::to_string(mLastReceived));
        out.text.append(",\"o\":").append(message->operations).append("}");
        return out;
    }
    if (mFinished) return Outgoing{"{\"end\":" + std::to_string(mLastSent) + "}", true};
    if (mClosed) return Outgoing{"{\"gone\":\"" + mGone + "\"}", true};
    return std::nullopt;
}

std::string Channel::acknowledgement() const {
    const std::lock_guard lock(mMutex);
    const auto busy = mMailbox.busy();
    return "{\"ack\":" + std::to_string(mLastReceived) +
           (busy >= kBusyFrom ? ",\"busy\":" + std::to_string(busy.count()) : "") + "}";
}

Channel::Liveness Channel::liveness() const {
    const std::lock_guard lock(mMutex);
    Liveness now;
    now.attached = mPeerKey != nullptr;
    now.everAttached = mEverAttached;
    now.delivered = mClosed && mUnacknowledged.empty();
    now.left = mLeft;
    now.lastHeard = mLastHeard;
    now.lastEvent = mLastEvent;
    return now;
}

void Channel::queue(std::string&& operations) {
    mQueuedBytes += operations.size();
    mUnacknowledged.push_back({++mLastSent, std::move(operations)});
}

void Channel::acknowledge(std::uint64_t ack) {
    mAcknowledged = std::max(mAcknowledged, std::min(ack, mLastSent));
    while (!mUnacknowledged.empty() && mUnacknowledged.front().number <= mAcknowledged) {
        mQueuedBytes -= mUnacknowledged.front().operations.size();
        mUnacknowledged.pop_front();
    }
}

bool Channel::takeTokens(const PageInput& input) {
    double events = 0;
    for (const PageMessage& message : input.messages) {
        const auto* list = message.events.if_array();
        if (list && message.number > mLastReceived) events += static_cast<double>(list->size());
    }
    const auto now = Clock::now();
    const double passed = std::chrono::duration<double>(now - mTokensAt).count();
    mTokensAt = now;
    mTokens = std::min(kMessageBurst, mTokens + passed * kMessagesPerSecond);
    mEventTokens = std::min(kEventBurst, mEventTokens + passed * kEventsPerSecond);
    if (mTokens < 1 || mEventTokens < events) return false;
    mTokens -= 1;
    mEventTokens -= events;
    return true;
}

void Channel::wakePeer() const {
    if (const auto peer = mPeer.lock()) peer->wake();
}

} // namespace Wt::Impl
