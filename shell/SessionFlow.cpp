// How a session connects and ends.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/WMsgBox.h"
#include "frame/WMsgBoxSimple.h"
#include "platform/client/EventLog.h"
#include "shell/DeleteOwned.h"
#include "shell/MirlApplication.h"
#include "shell/Security.h"
#include "shell/SessionLimit.h"
#include "shell/SteadyClock.h"
#include "shell/WEndingNotice.h"
#include "shell/WStandardHeader.h"

#include <Wt/WPushButton>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kConnectRetries = 5;
constexpr unsigned kNoticeMs = 1000;
constexpr int kNoticeWidthPx = 250;
constexpr std::uint32_t kSecondsPerMinute = 60;
/// Before the end of an idle session; of a short limit the second half.
constexpr std::uint32_t kNoticeSec = 60;
/// Stands in for an idle limit below one minute, which nobody can have meant.
constexpr std::uint32_t kReplacedLimitSec = 300;

/// Shows a notice for a second; the session's other events go on meanwhile.
void showNotice(const Wt::WString& title, const Wt::WString& message) {
    WMsgBox box(WMsgBox::Info);
    box.titleSet(title);
    box.msgSet(message);
    box.setMaximumSize(kNoticeWidthPx, Wt::WLength::Auto);
    box.execWithTimeout(kNoticeMs);
}

} // namespace

void MirlApplication::initZeq() {
    deleteOwned(mDbErrorBox);
    ZeqClient_s* client = nullptr;
    bool connected = Db::db.getZeqClient(client) == 0;
    for (int i = 0; i < kConnectRetries && !connected; ++i) {
        showNotice(tr("[RSnnn]Retrying"),
                   tr("[RSnnn]Attempting to establish a connection with the internal database server. "
                      "Please wait."));
        connected = Db::db.getZeqClient(client) == 0;
    }
    if (connected) {
        EventLog_write(4, 7, "initZeq", "Connection made to ZEQ Server.");
        if (readInactivityTimeout()) {
            showBannerOrLogin();
            return;
        }
    }
    closeZeqClient();
    EventLog_write(
        4, 7, "initZeq",
        "Unable to set up a good connection with ZEQ Server. Session limit may have been reached.");
    showConnectionError();
}

void MirlApplication::showConnectionError() {
    mDbErrorBox = new WMsgBoxSimple(WMsgBoxSimple::Error, tr("[RSnnn]Error"),
                                    tr("[RSnnn]Error communicating with the internal database server."),
                                    tr("[RSnnn]Reset"), tr("[RSnnn]Retry"));
    mDbErrorBox->rejectWhenEscapePressed(false); // there is nothing behind it
    mDbErrorBox->button1->clicked().connect(this, &MirlApplication::exitApplication);
    mDbErrorBox->button2->clicked().connect(this, &MirlApplication::initZeq);
    mDbErrorBox->button2->setFocus();
    mDbErrorBox->show();
}

bool MirlApplication::readInactivityTimeout() {
    unsigned minutes = 0;
    std::vector<std::string> errors;
    if (Db::db.readUInt32("systemGlobals", 0, "mirlInactivityTimeout", minutes, errors) != 0) return false;
    updateMirlInactivityTimeout(minutes);
    return true;
}

void MirlApplication::updateMirlInactivityTimeout(unsigned int minutes) {
    mMirlInactivityTimeoutSec = minutes * kSecondsPerMinute;
}

void MirlApplication::notify(const Wt::WEvent& event) {
    const unsigned long asked = zeqExchangeCount();
    const unsigned long unanswered = zeqUnansweredCount();
    watchInactivity(event.eventType());
    Wt::WApplication::notify(event);
    showPlace();
    const bool away = zeqUnansweredCount() != unanswered;
    if (mUserLoggedIn && mHeader && (away || zeqExchangeCount() != asked)) mHeader->setServiceAway(away);
}

void MirlApplication::watchInactivity(Wt::EventType type) {
    if (!mUserLoggedIn) return;
    if (type == Wt::UserEvent) {
        // A click that comes after the absolute limit is no reason to go on.
        mLastUserActivityMs = SteadyClock_nowMs();
        deleteOwned(mEndingNotice);
    }
    EndReason reason = EndReason::None;
    if (timeLimitExceeded()) {
        EventLog_write(3, 7, "notify", "Web user logged out: the session has reached its longest time.");
        reason = EndReason::TimeLimit;
    } else if (type != Wt::UserEvent && idleLimitExceeded()) {
        EventLog_write(3, 7, "notify", "Web user logged out due to inactivity.");
        reason = EndReason::Inactivity;
    }
    if (reason == EndReason::None) {
        if (type != Wt::UserEvent) announceEnd();
        return;
    }
    logOutUser(reason);
    Wt::WApplication::instance()->processEvents();
}

/// The pages' own ticks bring it on show: nobody waits for it longer than they.
void MirlApplication::announceEnd() {
    if (mMirlInactivityTimeoutSec == 0) return;
    const auto idleSec = static_cast<std::uint32_t>((SteadyClock_nowMs() - mLastUserActivityMs) / 1000);
    const std::uint32_t leftSec = mMirlInactivityTimeoutSec - std::min(mMirlInactivityTimeoutSec, idleSec);
    if (leftSec > std::min(kNoticeSec, mMirlInactivityTimeoutSec / 2)) {
        deleteOwned(mEndingNotice);
        return;
    }
    if (!mEndingNotice) mEndingNotice = new WEndingNotice;
    mEndingNotice->setSecondsLeft(leftSec);
}

bool MirlApplication::idleLimitExceeded() {
    if (mMirlInactivityTimeoutSec == 0) return false;
    if (mMirlInactivityTimeoutSec < kSecondsPerMinute) {
        EventLog_write(4, 7, "notify", "mirlInactivityTimeoutSec = %u.", mMirlInactivityTimeoutSec);
        mMirlInactivityTimeoutSec = kReplacedLimitSec;
    }
    return SteadyClock_nowMs() - mLastUserActivityMs > std::int64_t{mMirlInactivityTimeoutSec} * 1000;
}

bool MirlApplication::timeLimitExceeded() {
    const int hours = SessionLimit_hours();
    return hours != 0 && SteadyClock_nowMs() - mLoginMs >= hours * std::int64_t{3'600'000};
}

void MirlApplication::logOutUser(EndReason reason) {
    std::vector<std::string> errors;
    Security_logoutMirlUser(mLoggedInUsrIndex, mMirlSession, errors);
    mMirlSession = {};
    mLoggedInUsrIndex = 0;
    mUserLoggedIn = false;
    restartWebApp(reason);
}

void MirlApplication::restartWebApp(EndReason reason) {
    stopModeChangeCheckTimer();
    stopSessionCheckTimer();
    stopRedirectCheckTimer();
    const std::string word = endReasonRow(reason).word;
    redirect(word.empty() ? "/" : std::string("/?") + kEndParameter + "=" + word + placeParameter());
    quit();
}

/// So that the login leads back to where the user was.
std::string MirlApplication::placeParameter() const {
    const std::string address = bookmarkUrl();
    const std::size_t query = address.find("?_=");
    return query == std::string::npos ? "" : "&" + address.substr(query + 1);
}

void MirlApplication::exitApplication() {
    deleteOwned(mDbErrorBox);
    showNotice(tr("[RSnnn]Resetting"), tr("[RSnnn]Resetting web server. Please wait."));
    // No static destructors: the other sessions' threads still run.
    std::quick_exit(EXIT_FAILURE);
}
