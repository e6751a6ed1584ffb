#include "session/Mailbox.h"

#include <utility>

namespace Wt::Impl {

std::deque<SessionEvent> Mailbox::post(SessionEvent event) {
    std::deque<SessionEvent> dropped;
    {
        const std::lock_guard lock(mMutex);
        event.ordinal = ++mPosted;
        if (mEnding) {
            dropped.push_back(std::move(event));
        } else if (event.kind == SessionEvent::Kind::End || mWaiting.size() >= kMaxWaiting) {
            mReason = event.kind == SessionEvent::Kind::End ? event.reason : EndReason::Overload;
            mEnding = true;
            dropped.swap(mWaiting);
            dropped.push_back(std::move(event));
        } else {
            mWaiting.push_back(std::move(event));
        }
    }
    mArrived.notify_one();
    return dropped;
}

SessionEvent Mailbox::take() {
    std::unique_lock lock(mMutex);
    mTakenAt.reset();
    mArrived.wait(lock, [this] { return mEnding || !mWaiting.empty(); });
    mTakenAt = std::chrono::steady_clock::now();
    return next();
}

bool Mailbox::tryTake(SessionEvent& event) {
    const std::lock_guard lock(mMutex);
    if (!mEnding && mWaiting.empty()) return false;
    event = next();
    return true;
}

bool Mailbox::ending() const {
    const std::lock_guard lock(mMutex);
    return mEnding;
}

std::uint64_t Mailbox::posted() const {
    const std::lock_guard lock(mMutex);
    return mPosted;
}

EndReason Mailbox::endReason() const {
    const std::lock_guard lock(mMutex);
    return mReason;
}

std::chrono::milliseconds Mailbox::busy() const {
    using namespace std::chrono;
    const std::lock_guard lock(mMutex);
    return mTakenAt ? duration_cast<milliseconds>(steady_clock::now() - *mTakenAt) : 0ms;
}

SessionEvent Mailbox::next() {
    SessionEvent event;
    if (mEnding) {
        event.kind = SessionEvent::Kind::End;
        event.reason = mReason;
        return event;
    }
    event = std::move(mWaiting.front());
    mWaiting.pop_front();
    return event;
}

} // namespace Wt::Impl
