#pragma once

#include <Wt/WEvent.h>
#include <Wt/WObject.h>
#include <Wt/WSignal.h>

namespace Wt {

namespace Impl {
class WebSession;
}

/// A timer that the browser keeps: it fires only while the page is there, and its timeout is a TimerEvent.
/// A timeout that is on its way when the timer is stopped or deleted is dropped.
class WTimer : public WObject {
public:
    explicit WTimer(WObject* parent = nullptr);
    ~WTimer() override;

    /// In milliseconds; takes effect at the next start.
    void setInterval(int msec);
    void setSingleShot(bool singleShot) { mSingleShot = singleShot; }
    void start();
    void stop();

    int interval() const { return mInterval; }
    bool isActive() const { return mActive; }
    bool isSingleShot() const { return mSingleShot; }

    EventSignal<WMouseEvent>& timeout() { return mTimeout; }

    /// Calls `method` of `receiver` once after `msec` milliseconds, unless the receiver is gone by then.
    template <class T, class V>
    static void singleShot(int msec, T* receiver, void (V::*method)()) {
        auto* timer = new WTimer(receiver);
        timer->setInterval(msec);
        timer->setSingleShot(true);
        timer->timeout().connect(receiver, method);
        timer->mDeleteAfter = true;
        timer->start();
    }

private:
    friend class Impl::WebSession;
    void fired();

    EventSignal<WMouseEvent> mTimeout{this};
    int mInterval = 0;
    unsigned mRun = 0; // number of the current run; 0 = none yet
    bool mSingleShot = false, mActive = false, mDeleteAfter = false;
};

} // namespace Wt
