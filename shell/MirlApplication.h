#pragma once

#include "shell/ChangeTracker.h"
#include "shell/EndReason.h"
#include "shell/Security.h"
#include "shell/UiVariant.h"

#include <Wt/WApplication>

#include <array>
#include <atomic>
#include <cstdint>
#include <string>

namespace Wt {
class WEvent;
class WMenuItem;
class WTabWidget;
class WTable;
class WTimer;
} // namespace Wt

class PageFrame;
class WBannerDialog;
class WCascadeView;
class WDashView;
class WDevView;
class WEndingNotice;
class WEventView;
class WInitAdminPasswordDialog;
class WLoginDialog;
class WManagedView;
class WMsgBoxSimple;
class WPeriphView;
class WSesView;
class WSlaveSettingsView;
class WStandardHeader;
class WSysSettingsView;
class WUsrView;
struct ZeqClient_s;

/// One browser session: its connection to the internal database service,
/// the road from banner and login to the pages, its timers and its unsaved-change marks.
/// Lives from the browser's first visit to logout or expiry.
class MirlApplication : public Wt::WApplication {
public:
    /// Connects to the database service and puts up the session's first screen:
    /// may wait up to 5 s in nested loops.
    explicit MirlApplication(const Wt::WEnvironment& env);
    ~MirlApplication() override;

    /// The session that the calling thread serves; null outside a session.
    static MirlApplication* current();

    // Database client. Opened on demand, given back while the session waits on banner or login.
    /// The session's client, opened if need be. May be invalid: test it with ZeqClient_isValid.
    /// Owned by this.
    ZeqClient_s* getZeqClient();
    void closeZeqClient();

    bool userIsLoggedIn() const { return mUserLoggedIn; }
    /// Index of the logged-in user's record; 0 when none.
    unsigned int getIndexOfCurrentlyLoggedInUsr() const { return mLoggedInUsrIndex; }

    /// Idle limit of the session in minutes; 0 = never. Takes effect at the next event.
    void updateMirlInactivityTimeout(unsigned int minutes);
    void dashViewEventLogClear();

    // Unsaved changes. A changed section shows "*" behind its main tab's label.
    void subsectionChanged(ChangeTracker::SubsectionId id, bool changed);
    /// Sets or clears all pages of a section. The system settings get no sign this way.
    void sectionChanged(ChangeTracker::SectionId id, bool changed);
    bool sectionChanged(ChangeTracker::SectionId id) const;
    /// Whether any page beside this one in its section holds edits.
    bool parentSectionChanged(ChangeTracker::SubsectionId id) const;
    bool anythingChanged() const;
    void discardChanges();

    // Login sequence, each state showing its own dialog.
    void showBannerOrLogin();
    void showBanner(const std::string& text);
    void showLogin();
    void loginButtonClickedHandler();
    void showLoginLockout();
    void forgotPasswordClickedHandler();
    void showSetPassword(const std::string& username);
    void initPasswordDialogButtonClickedHandler();
    /// Builds the pages of the logged-in user: master, managed or slave variant.
    void createUi();

    // End of the session.
    void logOutUser(EndReason reason = EndReason::None);
    /// Asks the service whether the login still stands, and ends the session if not, as the check does that runs
    /// by itself. For a page that may just have taken its own user's rights away.
    void checkSession() { sessionCheckTimeoutHandler(); }
    /// Sends the browser back to the start page, where a new session begins and says why.
    void restartWebApp(EndReason reason = EndReason::None);
    /// Ends the whole process, with all its sessions.
    void exitApplication();

protected:
    /// Every event of the session passes here: keeps the time of the user's last action and ends
    /// an idle session.
    void notify(const Wt::WEvent& event) override;

private:
    friend struct SessionProbe; // tests look at the session's dialogs and timers

    /// What the session holds beside its page.
    void release();
    void initStringTranslation();
    void setBrand();
    void initZeq();
    void showConnectionError();
    /// False when it cannot be read; the former limit then stays.
    bool readInactivityTimeout();
    /// Called with the kind of every event. Timers and the like are no activity:
    /// they are what ends an idle session.
    void watchInactivity(Wt::EventType type);
    bool idleLimitExceeded();
    void announceEnd();
    std::string placeParameter() const;
    /// A session ends after its longest time, however busy it is.
    bool timeLimitExceeded();

    void redirectToHttps();
    void startRedirectCheckTimer();
    void relaxRedirectCheckTimer();
    void stopRedirectCheckTimer();
    void startModeChangeCheckTimer();
    void stopModeChangeCheckTimer();
    void modeChangeCheckTimeoutHandler();
    /// None while the pages are still those that this Switch should have.
    EndReason placeChange() const;
    /// Nothing goes without a word: unsaved edits are named, for some time, before the session ends.
    void tellLostEdits();
    /// Whoever is disabled or logged out elsewhere is to learn it within 2 s.
    void startSessionCheckTimer();
    void stopSessionCheckTimer();
    void sessionCheckTimeoutHandler();
    void startInactivityTimer();
    void inactivityTimeoutHandler();
    Wt::WTimer* startTimer(int milliseconds, bool singleShot, void (MirlApplication::*handler)());
    void stopTimers();

    void connectLoginDialog();
    void loginFailed();
    void boxEnterPressed();
    void loginKeyWentUp();
    void showOverLogin(WMsgBoxSimple& box);
    void deleteDialogs();

    struct MainTab;
    static const std::array<MainTab, 8> kMainTabs;
    void createMasterUi();
    void createManagedUi();
    void createSlaveUi();
    void placeHeaderAndTabs();
    void placeTableAndVersion();
    void mainTabChangedHandler();
    PageFrame* shownPage() const; ///< null: the tab on show is made another way
    std::string place() const;    ///< what the address says: "/devices/00A702-020011/status"
    void goToPlace(std::string path);
    void showPlace();

    static std::atomic<std::int32_t> sAppInstanceCount; // live sessions, for the log

    // Dialogs are owned by this; views, header and tabs by the page.
    WMsgBoxSimple* mDbErrorBox = nullptr;
    WInitAdminPasswordDialog* mInitPasswordDialog = nullptr;
    WBannerDialog* mBannerDialog = nullptr;
    WLoginDialog* mLoginDialog = nullptr;
    WMsgBoxSimple* mAuthFailureBox = nullptr;
    WMsgBoxSimple* mLockoutBox = nullptr;
    WMsgBoxSimple* mForgotPasswordBox = nullptr;
    WEndingNotice* mEndingNotice = nullptr;
    Wt::WTable* mMainTable = nullptr; // two rows: header, tabs
    WSlaveSettingsView* mSlaveSettingsView = nullptr;
    WManagedView* mManagedView = nullptr;
    Wt::WTabWidget* mMainTabs = nullptr;
    WStandardHeader* mHeader = nullptr;
    WDashView* mDashView = nullptr;
    WSesView* mSesView = nullptr;
    WUsrView* mUsrView = nullptr;
    WDevView* mDevView = nullptr;
    WCascadeView* mCascadeView = nullptr;
    WPeriphView* mPeriphView = nullptr;
    WSysSettingsView* mSysSettingsView = nullptr;
    WEventView* mEventView = nullptr;
    std::array<Wt::WMenuItem*, ChangeTracker::kSectionCount>
        mSectionTabItems{}; // null in the one-page variants

    ChangeTracker mChangeTracker;
    bool mUserLoggedIn = false;
    unsigned int mLoggedInUsrIndex = 0;
    MirlSession mMirlSession; // the record of this login
    bool mSlaveUiActive = false;
    bool mAsksBeforeLeaving = false;
    ZeqClient_s* mZeqClient = nullptr;
    bool mEnterHeld = false; // Enter dismissed a box over the login, and no key has gone up since
    std::int64_t mLastUserActivityMs = 0; // of the steady clock, as the next
    std::int64_t mLoginMs = 0;
    std::uint32_t mMirlInactivityTimeoutSec = 600;
    Wt::WTimer* mInactivityTimer = nullptr;
    Wt::WTimer* mModeChangeCheckTimer = nullptr;
    Wt::WTimer* mSessionCheckTimer = nullptr;
    Wt::WTimer* mRedirectCheckTimer = nullptr;
    // As they were when the pages were built:
    std::string mManagedSetting;
    std::string mThisSwxEid;
    UiVariant mUiVariant = UiVariant::Master;
    bool mController = false; // this Switch, of its cascade
};
