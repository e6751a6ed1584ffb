#include "tests/shell/AppSession.h"

#include "shell/DocRoot.h"
#include "shell/SteadyClock.h"
#include "shell/WallClock.h"
#include "tests/frame/WidgetSearch.h"

#include <Wt/WLineEdit>

#include <gtest/gtest.h>

#include <cstdio>

std::atomic<std::time_t> TestClock::sNow;
std::atomic<std::int64_t> TestClock::sSteadyMs;

TestClock::TestClock() {
    sNow = std::time(nullptr);
    WallClock_setSource([] { return sNow.load(); });
    sSteadyMs = SteadyClock_nowMs();
    SteadyClock_setSource([] { return sSteadyMs.load(); });
}

TestClock::~TestClock() {
    WallClock_setSource(nullptr);
    SteadyClock_setSource(nullptr);
}

AppSession::AppSession(const std::string& urlScheme, const std::string& ended)
    : mEnvironment(new Wt::Test::WTestEnvironment) {
    if (!ended.empty()) mEnvironment->setParameterMap({{kEndParameter, {ended}}});
    start(urlScheme);
}

AppSession::AppSession(const std::function<void(Wt::WDialog*)>& answer)
    : mEnvironment(new Wt::Test::WTestEnvironment) {
    mEnvironment->dialogExecuted().connect(boost::function<void(Wt::WDialog*)>(answer));
    start("https");
}

void AppSession::start(const std::string& urlScheme) {
    mEnvironment->setUrlScheme(urlScheme);
    mEnvironment->setHostName("switch.example:8443");
    mApp = std::make_unique<MirlApplication>(*mEnvironment);
}

AppSession::~AppSession() {
    mApp.reset();
}

void AppSession::logIn(const std::string& username, const std::string& password) {
    WLoginDialog* dialog = probe().login();
    ASSERT_NE(dialog, nullptr);
    dialog->usernameField->setText(Wt::WString::fromUTF8(username));
    dialog->passwordField->setText(Wt::WString::fromUTF8(password));
    click(dialog->loginButton);
}

void AppSession::dismissBox() {
    for (WMsgBoxSimple* box : {probe().authFailure(), probe().lockout(), probe().forgotPassword()}) {
        if (!box) continue;
        click(box->button1);
        return;
    }
}

CleanLogins::CleanLogins() {
    std::snprintf(Main_docRoot, kDocRootSize, "%s", MIRL_SOURCE_DIR);
    SessionProbe::forgetFailures();
}

CleanLogins::~CleanLogins() {
    SessionProbe::forgetFailures();
}
