// The session's timers, and what they watch: the way over HTTPS, a change between managed and unmanaged, and
// a login page that nobody uses.

#include "db/Db.h"
#include "db/HeldRecords.h"
#include "db/ThisSwx.h"
#include "frame/ShowBox.h"
#include "shell/DeleteOwned.h"
#include "shell/MirlApplication.h"

#include <Wt/WEnvironment>
#include <Wt/WMenuItem>
#include <Wt/WTimer>

namespace {

constexpr int kRedirectCheckMs = 2000;
constexpr int kRelaxedRedirectCheckMs = 5000;
constexpr int kSessionCheckMs = 1500;
constexpr int kModeChangeCheckMs = 10000;
constexpr int kLoginInactivityMs = 180000;

constexpr char kManaged[] = "verified";
constexpr char kUnmanaged[] = "non_managed";

constexpr BoxRow kEditsLost{.type = WMsgBox::Warning,
                            .title = "[RSnnn]Unsaved Changes",
                            .buttons = {"[RSnnn]Close"},
                            .maxWidthPx = 400};
constexpr unsigned kEditsLostMs = 60000; // nobody may be there to read it

/// Not on the way in or out, which may still end otherwise.
bool settledManagement(const std::string& setting) {
    return setting == kManaged || setting == kUnmanaged;
}

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
    HeldRecords held;
    const HeldRecords::Use use(held);
    std::string setting;
    std::vector<std::string> errors;
    if (Db::db.readString("systemGlobals", 0, "managedSetting", setting, errors) != 0) return;
    const bool turnedManaged = setting == kManaged && mManagedSetting == kUnmanaged;
    const bool turnedUnmanaged = setting == kUnmanaged && mManagedSetting == kManaged;
    const EndReason reason = turnedManaged || turnedUnmanaged ? EndReason::ModeChanged : placeChange();
    if (reason == EndReason::None) return;
    tellLostEdits();
    logOutUser(reason);
}

/// Enrolment goes through states that are neither: whoever logged in meanwhile would stay on a page that is none of this
/// Switch's any more.
EndReason MirlApplication::placeChange() const {
    std::string role;
    std::string setting;
    std::vector<std::string> errors;
    if (Db::db.readString("swx", kThisSwxIndex, "cascadeRole", role, errors) != 0 ||
        Db::db.readString("systemGlobals", 0, "managedSetting", setting, errors) != 0)
        return EndReason::None;
    const bool controller = role == "controller";
    const UiVariant variant = uiVariantFor(controller, setting != kUnmanaged, false);
    const bool managed = variant == UiVariant::Managed;
    if (managed != (mUiVariant == UiVariant::Managed))
        return settledManagement(setting) ? EndReason::ModeChanged : EndReason::None;
    return variant != mUiVariant || controller != mController ? EndReason::PlaceChanged : EndReason::None;
}

void MirlApplication::tellLostEdits() {
    if (!anythingChanged()) return;
    stopModeChangeCheckTimer();
    Wt::WString text =
        tr("[RSnnn]This Switch is administered in another way from now on. You are logged out, and "
           "changes that you have not saved are lost.");
    for (const Wt::WMenuItem* item : mSectionTabItems)
        if (item && item->text().toUTF8().ends_with("*")) text += " " + item->text();
    WMsgBox box(WMsgBox::Warning);
    fillBox(box, kEditsLost, text);
    box.execWithTimeout(kEditsLostMs);
}

void MirlApplication::startSessionCheckTimer() {
    stopSessionCheckTimer();
    mSessionCheckTimer = startTimer(kSessionCheckMs, false, &MirlApplication::sessionCheckTimeoutHandler);
}

void MirlApplication::stopSessionCheckTimer() {
    stopTimer(mSessionCheckTimer);
}

void MirlApplication::sessionCheckTimeoutHandler() {
    EndReason reason = Security_checkMirlSession(mMirlSession);
    if (reason == EndReason::None) return;
    // It may be the other Switch, which does not know the session. A client whose session has ended is told nothing any more.
    closeZeqClient();
    std::string eid;
    std::vector<std::string> errors;
    if (Db::db.readString("swx", kThisSwxIndex, "eid", eid, errors) == 0 && eid != mThisSwxEid)
        reason = EndReason::OtherSwitch;
    stopSessionCheckTimer();
    if (reason == EndReason::OtherSwitch) tellLostEdits();
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
