// The road from banner and login to the pages.

#include "db/Db.h"
#include "frame/WMsgBoxSimple.h"
#include "shell/DeleteOwned.h"
#include "shell/LoginGate.h"
#include "shell/MirlApplication.h"
#include "shell/Security.h"
#include "shell/WBannerDialog.h"
#include "shell/WEndingNotice.h"
#include "shell/WInitAdminPasswordDialog.h"
#include "shell/WLoginDialog.h"
#include "widgets/WLineEditPlus.h"

#include <Wt/WAnchor>
#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WTimer>

void MirlApplication::showBannerOrLogin() {
    std::vector<std::string> errors;
    bool enabled = false;
    if (Db::db.readEnableDisable("systemGlobals", 0, "mirlBannerEnable", enabled, errors) != 0)
        enabled = false;
    std::string text;
    if (enabled && Db::db.readString("systemGlobals", 0, "mirlBannerText", text, errors) != 0) text.clear();
    if (text.empty()) {
        showLogin();
    } else {
        showBanner(text);
    }
}

void MirlApplication::showBanner(const std::string& text) {
    deleteOwned(mLoginDialog);
    if (!mBannerDialog) mBannerDialog = new WBannerDialog(text);
    closeZeqClient(); // clients are few: whoever reads the banner needs none
    mBannerDialog->proceedButton->clicked().connect(this, &MirlApplication::showLogin);
    mBannerDialog->proceedButton->enterPressed().connect(this, &MirlApplication::showLogin);
    mBannerDialog->proceedButton->setFocus();
    mBannerDialog->show();
}

void MirlApplication::showLogin() {
    redirectToHttps();
    startRedirectCheckTimer();
    deleteOwned(mInitPasswordDialog);
    deleteOwned(mBannerDialog);
    deleteOwned(mAuthFailureBox);
    deleteOwned(mForgotPasswordBox);
    deleteOwned(mLockoutBox);
    if (!mLoginDialog) {
        const std::string* ended = environment().getParameter(kEndParameter);
        mLoginDialog = new WLoginDialog(endReasonRow(ended ? *ended : "").message);
        connectLoginDialog();
    }
    startInactivityTimer();
    mLoginDialog->clearFields();
    mLoginDialog->setFocusOnUsernameField();
    closeZeqClient(); // opened again by the attempt to log in
    mLoginDialog->show();
}

void MirlApplication::connectLoginDialog() {
    mLoginDialog->loginButton->clicked().connect(this, &MirlApplication::loginButtonClickedHandler);
    mLoginDialog->loginButton->enterPressed().connect(this, &MirlApplication::loginButtonClickedHandler);
    for (Wt::WLineEdit* field : {mLoginDialog->usernameField, mLoginDialog->passwordField}) {
        field->enterPressed().connect(this, &MirlApplication::loginButtonClickedHandler);
        field->keyWentUp().connect(this, &MirlApplication::loginKeyWentUp);
        field->clicked().connect(this, &MirlApplication::startInactivityTimer);
    }
    mLoginDialog->forgotPasswordAnchor->clicked().connect(this,
                                                          &MirlApplication::forgotPasswordClickedHandler);
}

void MirlApplication::loginButtonClickedHandler() {
    // Enter on the button is an Enter and a click: the second one finds the dialog gone or covered.
    if (!mLoginDialog || mAuthFailureBox || mLockoutBox || mForgotPasswordBox) return;
    startInactivityTimer();
    const std::string username = mLoginDialog->usernameGet();
    const std::string password = mLoginDialog->passwordField->text().toUTF8();
    if (mEnterHeld && username.empty() && password.empty()) return;
    LoginGate::Attempt attempt(LoginGate::instance());
    if (attempt.answer() == LoginGate::Answer::Locked) return showLoginLockout();
    if (attempt.answer() == LoginGate::Answer::Busy) return loginFailed();
    bool passwordIsInitialized = false;
    if (Security_loginMirlUser(username.c_str(), password.c_str(), mLoggedInUsrIndex, passwordIsInitialized,
                               mMirlSession) != 0) {
        loginFailed();
        return;
    }
    changeSessionId(); // what was known of this session before the login is worth nothing now
    attempt.succeeded();
    mLoginDialog->clearFields();
    deleteOwned(mLoginDialog);
    deleteOwned(mInactivityTimer);
    if (passwordIsInitialized) {
        createUi();
    } else {
        showSetPassword(username);
    }
}

void MirlApplication::loginFailed() {
    deleteOwned(mAuthFailureBox);
    mAuthFailureBox = new WMsgBoxSimple(WMsgBoxSimple::Error, tr("[RSnnn]Authentication failure"),
                                        tr("[RSnnn]Incorrect username, password, or privileges. "
                                           "Username and password are case sensitive."),
                                        tr("[RSnnn]Ok"));
    showOverLogin(*mAuthFailureBox);
}

void MirlApplication::showLoginLockout() {
    deleteOwned(mLockoutBox);
    mLockoutBox = new WMsgBoxSimple(
        WMsgBoxSimple::Warning, tr("[RSnnn]Authentication lockout"),
        tr("[RSnnn]There have been 5 successive login failures. You are locked out for 5 minutes."),
        tr("[RSnnn]Ok"));
    LoginGate::instance().forgetCount();
    showOverLogin(*mLockoutBox);
}

void MirlApplication::forgotPasswordClickedHandler() {
    startInactivityTimer();
    deleteOwned(mForgotPasswordBox);
    mForgotPasswordBox = new WMsgBoxSimple(
        WMsgBoxSimple::Info, tr("[RSnnn]Forgot Password"),
        tr("[RSnnn]Contact Technical Support for help resetting the administrator password. "
           "To perform the reset, you will need physical access to the serial port on this Switch."),
        tr("[RSnnn]Ok"));
    showOverLogin(*mForgotPasswordBox);
}

/// A key that is held down repeats itself: the Enter that dismissed the box goes on in the empty fields behind it,
/// and would be the next failure.
void MirlApplication::boxEnterPressed() {
    mEnterHeld = true;
    showLogin();
}

void MirlApplication::loginKeyWentUp() {
    mEnterHeld = false;
    startInactivityTimer();
}

void MirlApplication::showOverLogin(WMsgBoxSimple& box) {
    box.button1->clicked().connect(this, &MirlApplication::showLogin);
    box.button1->enterPressed().connect(this, &MirlApplication::boxEnterPressed);
    box.finished().connect(this, &MirlApplication::showLogin);
    box.button1->setFocus();
    box.show();
}

void MirlApplication::showSetPassword(const std::string& username) {
    deleteOwned(mInitPasswordDialog);
    mInitPasswordDialog = new WInitAdminPasswordDialog(username);
    mInitPasswordDialog->setPasswordButton->clicked().connect(
        this, &MirlApplication::initPasswordDialogButtonClickedHandler);
    mInitPasswordDialog->passwordField->enterPressed().connect(
        this, &MirlApplication::initPasswordDialogButtonClickedHandler);
    mInitPasswordDialog->confirmField->enterPressed().connect(
        this, &MirlApplication::initPasswordDialogButtonClickedHandler);
    mInitPasswordDialog->show();
}

void MirlApplication::initPasswordDialogButtonClickedHandler() {
    if (!mInitPasswordDialog || !mInitPasswordDialog->passwordIsGood()) return;
    Security_setPassword(mInitPasswordDialog->username.c_str(),
                         mInitPasswordDialog->passwordField->text().toUTF8().c_str());
    deleteOwned(mInitPasswordDialog);
    createUi(); // whatever became of the write: the log has it
}

void MirlApplication::deleteDialogs() {
    deleteOwned(mBannerDialog);
    deleteOwned(mLoginDialog);
    deleteOwned(mInitPasswordDialog);
    deleteOwned(mAuthFailureBox);
    deleteOwned(mLockoutBox);
    deleteOwned(mForgotPasswordBox);
    deleteOwned(mDbErrorBox);
    deleteOwned(mEndingNotice);
}
