// The session's timers, and what they watch: the way over HTTPS, a change between managed and unmanaged, and
// a login page that nobody uses.

#include "db/Db.h"
#include "shell/DeleteOwned.h"
#include "shell/MirlApplication.h"

#include <Wt/WEnvironment>
#include <Wt/WTimer>

namespace {

constexpr int kRedirectCheckMs = 2000;
constexpr int kRelaxedRedirectCheckMs = 5000;
constexpr int kSessionCheckMs = 1500;
constexpr int kModeChangeCheckMs = 10000;
constexpr int kLoginInactivityMs = 180000;

constexpr char kManaged[] = "verified";
constexpr char kUnmanaged[] = "non_managed";

void stopTimer(Wt::WTimer*& timer) {
    if (timer && timer->isActive()) timer->stop();
    deleteOwned(timer);
}

} // namespace

Wt::WTimer* MirlApplication::startTimer(int milliseconds, bool singleShot,
                                        void (MirlApplication::*handler)()) {
    auto* timer = new Wt::WTimer(this);
    timer->setSingleShot(singleShot);
    timer->setInterval(milliseconds);
    timer->timeout().connect(this, handler);
    timer->start();
    return timer;
}

void MirlApplication::stopTimers() {
    stopTimer(mInactivityTimer);
    stopTimer(mModeChangeCheckTimer);
    stopTimer(mSessionCheckTimer);
    stopTimer(mRedirectCheckTimer);
}

void MirlApplication::redirectToHttps() {
    if (environment().urlScheme() == "https") return;
    redirect("https://" + environment().hostName() + url(""));
}

/// Each call adds a timer, also while one runs: only the newest can be stopped, the others end with the
/// session. The check does no harm when it runs more often.
void MirlApplication::startRedirectCheckTimer() {
    mRedirectCheckTimer = startTimer(kRedirectCheckMs, false, &MirlApplication::redirectToHttps);
}

void MirlApplication::relaxRedirectCheckTimer() {
    stopRedirectCheckTimer();
    mRedirectCheckTimer = startTimer(kRelaxedRedirectCheckMs, false, &MirlApplication::redirectToHttps);
}

void MirlApplication::stopRedirectCheckTimer() {
    stopTimer(mRedirectCheckTimer);
}

void MirlApplication::startModeChangeCheckTimer() {
    stopModeChangeCheckTimer();
    mModeChangeCheckTimer =
        startTimer(kModeChangeCheckMs, false, &MirlApplication::modeChangeCheckTimeoutHandler);
}

void MirlApplication::stopModeChangeCheckTimer() {
    stopTimer(mModeChangeCheckTimer);
}

void MirlApplication::modeChangeCheckTimeoutHandler() {
    std::string setting;
    std::vector<std::string> errors;
    if (Db::db.readString("systemGlobals", 0, "managedSetting", setting, errors) != 0) return;
    const bool turnedManaged = setting == kManaged && mManagedSetting == kUnmanaged;
    const bool turnedUnmanaged = setting == kUnmanaged && mManagedSetting == kManaged;
    if (turnedManaged || turnedUnmanaged) logOutUser(EndReason::ModeChanged);
}

void MirlApplication::startSessionCheckTimer() {
    stopSessionCheckTimer();
    mSessionCheckTimer = startTimer(kSessionCheckMs, false, &MirlApplication::sessionCheckTimeoutHandler);
}

void MirlApplication::stopSessionCheckTimer() {
    stopTimer(mSessionCheckTimer);
}

void MirlApplication::sessionCheckTimeoutHandler() {
    const EndReason reason = Security_checkMirlSession(mMirlSession);
    if (reason == EndReason::None) return;
    mLoggedInUsrIndex = 0; // there is nothing left to log out of
    mUserLoggedIn = false;
    restartWebApp(reason);
}

void MirlApplication::startInactivityTimer() {
    stopTimer(mInactivityTimer);
    mInactivityTimer = startTimer(kLoginInactivityMs, true, &MirlApplication::inactivityTimeoutHandler);
}

void MirlApplication::inactivityTimeoutHandler() {
    restartWebApp();
}
