// The road from banner and login to the pages, and the lockout, as a user meets them.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/WMsgBox.h"
#include "tests/frame/WidgetSearch.h"
#include "tests/shell/ShellTest.h"
#include "widgets/WLineEditPlus.h"

#include <Wt/WAnchor>

#include <thread>

namespace {

constexpr char kGood[] = "test-Admin-1";
static_assert(std::string_view(kGood) == ZeqdProcess::kAdminPassword);

class Login : public ShellTest {
protected:
    static void failTimes(AppSession& session, int times) {
        for (int i = 0; i < times; ++i) {
            session.logIn("admin", "wrong");
            ASSERT_NE(session.probe().authFailure(), nullptr) << "attempt " << i;
            session.dismissBox();
        }
    }
};

TEST_F(Login, GoodPasswordLeadsToThePages) {
    AppSession session;
    EXPECT_FALSE(session.probe().holdsClient()) << "who waits on the login holds no client";
    session.logIn("admin", kGood);
    EXPECT_TRUE(session.app().userIsLoggedIn());
    EXPECT_NE(session.app().getIndexOfCurrentlyLoggedInUsr(), 0u);
    EXPECT_EQ(session.probe().login(), nullptr);
    EXPECT_EQ(session.probe().inactivityTimer(), nullptr);
    EXPECT_EQ(count("adminSession"), 1);
}

TEST_F(Login, EveryWrongAttemptGetsTheSameWordsAndAnEmptyDialog) {
    AppSession session;
    struct {
        const char* name;
        const char* password;
    } rows[] = {{"admin", "wrong"}, {"nobody", kGood}, {"", ""}, {"ADMIN", kGood}};
    for (const auto& row : rows) {
        session.logIn(row.name, row.password);
        ASSERT_NE(session.probe().authFailure(), nullptr) << row.name;
        EXPECT_NE(textIn(session.probe().authFailure()).find("Incorrect username, password, or privileges."),
                  std::string::npos);
        EXPECT_FALSE(session.app().userIsLoggedIn());
        session.dismissBox();
        EXPECT_EQ(session.probe().authFailure(), nullptr);
        EXPECT_EQ(session.probe().login()->usernameGet(), "");
        EXPECT_TRUE(session.probe().login()->passwordField->text().empty());
    }
    EXPECT_EQ(SessionProbe::failureCount(), 4u);
}

TEST_F(Login, OneKeyPressThatArrivesTwiceCountsOnce) {
    AppSession session;
    session.logIn("admin", "wrong");
    click(session.probe().login()->loginButton); // the click that follows Enter on the button
    EXPECT_EQ(SessionProbe::failureCount(), 1u);
}

TEST_F(Login, SixthAttemptMeetsTheLockoutWithoutAskingTheService) {
    AppSession session;
    failTimes(session, 5); // the fifth shows the failure box like the others
    EXPECT_EQ(SessionProbe::failureCount(), 5u);
    for (int attempt = 6; attempt <= 8; ++attempt) {
        const unsigned long exchanges = zeqExchangeCount();
        session.logIn("admin", kGood);
        EXPECT_EQ(zeqExchangeCount(), exchanges) << attempt;
        ASSERT_NE(session.probe().lockout(), nullptr) << "the good password too: attempt " << attempt;
        EXPECT_NE(textIn(session.probe().lockout()).find("You are locked out for 5 minutes."),
                  std::string::npos);
        EXPECT_EQ(SessionProbe::failureCount(), 0u);
        EXPECT_FALSE(session.app().userIsLoggedIn());
        clock.advance(99); // attempts do not lengthen it
        session.dismissBox();
    }
    clock.advance(2); // 299 s
    session.logIn("admin", kGood);
    ASSERT_NE(session.probe().lockout(), nullptr);
    session.dismissBox();
    clock.advance(1); // 300 s
    session.logIn("admin", kGood);
    EXPECT_TRUE(session.app().userIsLoggedIn());
}

TEST_F(Login, WaitingOutTheLockoutKeepsTheCount) {
    AppSession session;
    failTimes(session, 5);
    clock.advance(301);
    session.logIn("admin", "wrong");
    ASSERT_NE(session.probe().authFailure(), nullptr);
    session.dismissBox();
    session.logIn("admin", kGood);
    EXPECT_NE(session.probe().lockout(), nullptr) << "one more failure arms a new lockout at once";
}

TEST_F(Login, GoodLoginForgetsFailuresAndLockout) {
    {
        AppSession session;
        failTimes(session, 5);
        clock.advance(300);
        session.logIn("admin", kGood);
        EXPECT_TRUE(session.app().userIsLoggedIn());
        EXPECT_EQ(SessionProbe::failureCount(), 0u);
    }
    AppSession session;
    failTimes(session, 4);
    session.logIn("admin", kGood);
    EXPECT_TRUE(session.app().userIsLoggedIn());
}

TEST_F(Login, SettingTheTimeOfDayDoesNotEndTheLockout) {
    AppSession session;
    failTimes(session, 5);
    for (const long seconds : {-3600L, 7200L}) {
        clock.set(seconds);
        session.logIn("admin", kGood);
        ASSERT_NE(session.probe().lockout(), nullptr);
        session.dismissBox();
    }
}

TEST_F(Login, EnterHeldDownIsOneFailure) {
    AppSession session;
    session.logIn("admin", "wrong");
    for (int i = 0; i < 5; ++i) { // the key repeats itself, in the box and behind it
        if (auto* box = session.probe().authFailure()) box->button1->enterPressed().emit();
        session.probe().login()->usernameField->enterPressed().emit();
    }
    EXPECT_EQ(SessionProbe::failureCount(), 1u);
    EXPECT_EQ(session.probe().authFailure(), nullptr);
    session.probe().login()->usernameField->keyWentUp().emit(Wt::WKeyEvent());
    session.probe().login()->usernameField->enterPressed().emit();
    EXPECT_EQ(SessionProbe::failureCount(), 2u)
        << "pressed again, empty fields are an attempt like any other";
}

TEST_F(Login, TwoBrowsersShareCountAndLockout) {
    std::thread([&] {
        AppSession other;
        failTimes(other, 3);
    }).join();
    AppSession session;
    failTimes(session, 2);
    std::thread([&] {
        AppSession other;
        other.logIn("admin", kGood);
        EXPECT_NE(other.probe().lockout(), nullptr);
    }).join();
}

TEST_F(Login, LostServiceReadsAsAWrongPasswordAndRecovers) {
    AppSession session;
    zeqd.kill();
    session.logIn("admin", kGood);
    ASSERT_NE(session.probe().authFailure(), nullptr);
    EXPECT_EQ(SessionProbe::failureCount(), 1u);
    session.dismissBox();
    zeqd.start();
    session.logIn("admin", kGood);
    EXPECT_TRUE(session.app().userIsLoggedIn());
}

TEST_F(Login, PageOpenWhileTheServiceDiesRecoversOnTheNextRead) {
    AppSession session;
    session.logIn("admin", kGood);
    std::string name;
    std::vector<std::string> errors;
    zeqd.kill();
    EXPECT_NE(Db::db.readString("swx", 1, "name", name, errors), 0u);
    EXPECT_TRUE(session.app().userIsLoggedIn()) << "what is on the page stays there";
    zeqd.start();
    EXPECT_EQ(Db::db.readString("swx", 1, "name", name, errors), 0u);
    EXPECT_FALSE(name.empty());
    EXPECT_TRUE(errors.empty());
}

TEST_F(Login, WhoLosesHisRightsIsSentToTheLoginPage) {
    store("user", 2, "password", "other-1");
    AppSession session;
    session.logIn("supervisor", "other-1");
    ASSERT_NE(session.probe().sessionTimer(), nullptr);
    EXPECT_LT(session.probe().sessionTimer()->interval(), 2000);
    session.probe().sessionCheck();
    EXPECT_TRUE(session.app().userIsLoggedIn());
    store("user", 2, "accountEnable", "disabled");
    std::string name;
    std::vector<std::string> errors;
    EXPECT_NE(Db::db.readString("swx", 1, "name", name, errors), 0u) << "at once, before the page knows";
    session.probe().sessionCheck();
    EXPECT_FALSE(session.app().userIsLoggedIn());
    EXPECT_TRUE(session.app().isQuited());
}

TEST_F(Login, LoggingOutOneOfTwoSessionsLeavesTheOther) {
    AppSession session;
    session.logIn("admin", kGood);
    std::thread([] {
        AppSession other;
        other.logIn("admin", kGood);
        other.app().logOutUser();
    }).join();
    EXPECT_EQ(count("adminSession"), 1);
    session.probe().sessionCheck();
    EXPECT_TRUE(session.app().userIsLoggedIn());
}

TEST_F(Login, ASessionOutlivesTheService) {
    AppSession session;
    session.logIn("admin", kGood);
    zeqd.kill();
    session.probe().sessionCheck();
    EXPECT_TRUE(session.app().userIsLoggedIn()) << "no answer is no end";
    zeqd.start();
    EXPECT_EQ(count("adminSession"), 0);
    session.probe().sessionCheck();
    EXPECT_EQ(count("adminSession"), 1);
    EXPECT_TRUE(session.app().userIsLoggedIn());
    store("user", 1, "password", "other-1"); // ends what was made again, too
    session.probe().sessionCheck();
    EXPECT_FALSE(session.app().userIsLoggedIn());
}

TEST_F(Login, NoServiceMeansFiveNoticesThenResetOrRetry) {
    zeqd.kill();
    int notices = 0;
    AppSession session(std::function<void(Wt::WDialog*)>([&](Wt::WDialog* dialog) {
        ++notices;
        EXPECT_EQ(textIn(dialog),
                  "Retrying\nAttempting to establish a connection with the internal database server. "
                  "Please wait.\n");
        dynamic_cast<WMsgBox*>(dialog)->timeoutHandler();
    }));
    EXPECT_EQ(notices, 5);
    ASSERT_NE(session.probe().connectionError(), nullptr);
    EXPECT_EQ(session.probe().login(), nullptr);

    click(session.probe().connectionError()->button2); // still none
    EXPECT_EQ(notices, 10);
    ASSERT_NE(session.probe().connectionError(), nullptr);

    zeqd.start();
    click(session.probe().connectionError()->button2);
    EXPECT_EQ(notices, 10) << "no waiting when the service is there";
    EXPECT_EQ(session.probe().connectionError(), nullptr);
    EXPECT_NE(session.probe().login(), nullptr);
}

TEST_F(Login, ServiceThatComesBackDuringTheWaitIsUsed) {
    zeqd.kill();
    int notices = 0;
    AppSession session(std::function<void(Wt::WDialog*)>([&](Wt::WDialog* dialog) {
        if (++notices == 2) zeqd.start();
        dynamic_cast<WMsgBox*>(dialog)->timeoutHandler();
    }));
    EXPECT_EQ(notices, 2);
    EXPECT_NE(session.probe().login(), nullptr);
}

TEST_F(Login, ForgottenPasswordShowsWhomToAskAndReturns) {
    AppSession session;
    click(session.probe().login()->forgotPasswordAnchor);
    ASSERT_NE(session.probe().forgotPassword(), nullptr);
    session.probe().forgotPassword()->reject(); // Escape
    EXPECT_EQ(session.probe().forgotPassword(), nullptr);
    EXPECT_NE(session.probe().login(), nullptr);
}

TEST_F(Login, EveryKeyInTheFieldsRestartsTheIdleTimer) {
    AppSession session;
    for (Wt::WLineEdit* field :
         {session.probe().login()->usernameField, session.probe().login()->passwordField}) {
        Wt::WTimer* before = session.probe().inactivityTimer();
        ASSERT_NE(before, nullptr);
        EXPECT_EQ(before->interval(), 180000);
        before->stop();
        field->keyWentUp().emit(Wt::WKeyEvent());
        EXPECT_TRUE(session.probe().inactivityTimer()->isActive());
    }
    session.probe().inactivityTimer()->timeout().emit(Wt::WMouseEvent());
    EXPECT_TRUE(session.app().isQuited()) << "nobody logs in for three minutes: the session starts over";
}

class FirstPassword : public Login {
protected:
    void SetUp() override {
        session.logIn("supervisor", "");
        ASSERT_NE(session.probe().firstPassword(), nullptr);
        EXPECT_FALSE(session.app().userIsLoggedIn());
    }

    void type(const char* password, const char* again) {
        auto* dialog = session.probe().firstPassword();
        dialog->passwordField->Wt::WLineEdit::setText(Wt::WString::fromUTF8(password));
        dialog->confirmField->Wt::WLineEdit::setText(Wt::WString::fromUTF8(again));
        dialog->passwordChangedHandler();
    }

    AppSession session;
};

TEST_F(FirstPassword, ButtonNeedsTwoEqualPrintablePasswords) {
    struct {
        const char* password;
        const char* again;
        bool good;
    } rows[] = {
        {"", "", false},
        {"Secret-1", "", false},
        {"Secret-1", "secret-1", false},
        {"a b", "a b", false},
        {"a\tb", "a\tb", false},
        {"passwört", "passwört", false},
        {"a\n", "a\n", false},
        {"!~", "!~", true},
        {"Secret-1", "Secret-1", true},
        {"01234567890123456789", "01234567890123456789", true},
    };
    for (const auto& row : rows) {
        type(row.password, row.again);
        EXPECT_EQ(session.probe().firstPassword()->setPasswordButton->isEnabled(), row.good) << row.password;
        if (row.good) continue;
        session.app().initPasswordDialogButtonClickedHandler();
        ASSERT_NE(session.probe().firstPassword(), nullptr) << "Enter with bad fields does nothing";
    }
}

TEST_F(FirstPassword, IsStoredAndWorksFromThenOn) {
    type("Secret-1", "Secret-1");
    click(session.probe().firstPassword()->setPasswordButton);
    EXPECT_EQ(session.probe().firstPassword(), nullptr);
    EXPECT_TRUE(session.app().userIsLoggedIn());
    std::thread([] {
        AppSession again;
        again.logIn("supervisor", "Secret-1");
        EXPECT_TRUE(again.app().userIsLoggedIn());
    }).join();
}

class Banner : public Login {};

TEST_F(Banner, ShownOnlyWhenEnabledWithText) {
    struct {
        const char* enabled;
        const char* text;
        bool shown;
    } rows[] = {
        {"enabled", "Authorised <b>staff</b> & friends only", true},
        {"enabled", "", false},
        {"disabled", "Authorised staff only", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.enabled) + " '" + row.text + "'");
        store("systemGlobals", 0, "mirlBannerText", row.text);
        store("systemGlobals", 0, "mirlBannerEnable", row.enabled);
        AppSession session;
        EXPECT_EQ(session.probe().banner() != nullptr, row.shown);
        EXPECT_EQ(session.probe().login() != nullptr, !row.shown);
        EXPECT_FALSE(session.probe().holdsClient());
        if (!row.shown) continue;
        auto* words = widgetsIn<Wt::WText>(session.probe().banner()).at(0);
        EXPECT_EQ(words->text().toUTF8(), row.text);
        EXPECT_EQ(words->textFormat(), Wt::PlainText);
        click(session.probe().banner()->proceedButton);
        EXPECT_EQ(session.probe().banner(), nullptr);
        EXPECT_NE(session.probe().login(), nullptr);
    }
}

} // namespace
