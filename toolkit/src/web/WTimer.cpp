#include <Wt/WTimer.h>

#include "web/WebSession.h"

namespace Wt {

using Impl::WebSession;

WTimer::WTimer(WObject* parent) : WObject(parent) {}

WTimer::~WTimer() {
    stop();
}

void WTimer::setInterval(int msec) {
    mInterval = msec < 0 ? 0 : msec;
}

// Starting a timer that runs starts its interval anew.
void WTimer::start() {
    WebSession* session = WebSession::current();
    if (!session) return;
    stop();
    mRun = session->timers().begin(*this);
    mActive = true;
}

void WTimer::stop() {
    if (!mActive) return;
    mActive = false;
    if (WebSession* session = WebSession::current()) session->timers().end(mRun);
}

void WTimer::fired() {
    const bool deleteAfter = mDeleteAfter;
    if (mSingleShot) stop();
    if (!deleteAfter) {
        mTimeout.emit();
        return;
    }
    // The handler may delete the timer's parent, and the timer with it: take it out first.
    if (WObject* owner = parent()) owner->removeChild(this);
    mTimeout.emit();
    delete this;
}

} // namespace Wt
