#pragma once

#include "frame/WMsgBoxSimple.h"
#include "shell/LoginGate.h"
#include "shell/MirlApplication.h"
#include "shell/WBannerDialog.h"
#include "shell/WEndingNotice.h"
#include "shell/WInitAdminPasswordDialog.h"
#include "shell/WLoginDialog.h"

#include <Wt/WTabWidget>
#include <Wt/WTimer>

/// What tests may see of a session, and the events that only a browser could send it.
struct SessionProbe {
    MirlApplication& app;

    WLoginDialog* login() const { return app.mLoginDialog; }
    WBannerDialog* banner() const { return app.mBannerDialog; }
    WInitAdminPasswordDialog* firstPassword() const { return app.mInitPasswordDialog; }
    WMsgBoxSimple* authFailure() const { return app.mAuthFailureBox; }
    WMsgBoxSimple* lockout() const { return app.mLockoutBox; }
    WMsgBoxSimple* forgotPassword() const { return app.mForgotPasswordBox; }
    WMsgBoxSimple* connectionError() const { return app.mDbErrorBox; }
    Wt::WTabWidget* tabs() const { return app.mMainTabs; }
    Wt::WTimer* inactivityTimer() const { return app.mInactivityTimer; }
    Wt::WTimer* modeTimer() const { return app.mModeChangeCheckTimer; }
    Wt::WTimer* sessionTimer() const { return app.mSessionCheckTimer; }
    Wt::WTimer* redirectTimer() const { return app.mRedirectCheckTimer; }
    WEndingNotice* endingNotice() const { return app.mEndingNotice; }
    std::string place() const { return app.place(); }
    bool holdsClient() const { return app.mZeqClient != nullptr; }

    /// A user's event passes, or any other.
    void userEvent() { app.watchInactivity(Wt::UserEvent); }
    void timerEvent() { app.watchInactivity(Wt::TimerEvent); }
    void sessionCheck() { app.sessionCheckTimeoutHandler(); }
    void modeCheck() { app.modeChangeCheckTimeoutHandler(); }

    static std::uint32_t failureCount() { return LoginGate::instance().failures(); }
    static void forgetFailures() { LoginGate::instance().forgetAll(); }
};
