// What a session shows and watches after the login, against Switches of every kind.

#include "tests/frame/WidgetSearch.h"
#include "tests/shell/AppSession.h"
#include "tests/shell/FakeSwitch.h"

#include <Wt/WAnchor>
#include <Wt/WCheckBox>

#include <algorithm>
#include <gtest/gtest.h>

namespace {

class Session : public testing::Test {
protected:
    /// Tab labels of the session, each followed by a blank.
    static std::string labels(AppSession& session) {
        std::string all;
        for (int i = 0; i < session.probe().tabs()->count(); ++i)
            all += session.probe().tabs()->tabText(i).toUTF8() + " ";
        return all;
    }

    FakeSwitch device;
    TestClock clock;
    CleanLogins clean;
};

constexpr char kMasterTabs[] = "Dashboard Sessions Users Devices Cascade Peripherals System Settings Events ";

TEST_F(Session, PagesByRoleOfTheSwitch) {
    struct {
        const char* role;
        const char* managed;
        const char* full;
        std::string tabs;
        bool watchesMode;
    } rows[] = {
        {"controller", "non_managed", "disabled", kMasterTabs, true},
        {"controller", "non_managed", "enabled", kMasterTabs, false},
        {"controller", "verified", "enabled", kMasterTabs, false},
        {"controller", "verified", "disabled", "Managed Master Settings ", true},
        {"controller", "verified", "", "Managed Master Settings ", true},
        {"backup", "verified", "enabled", "Managed Slave Settings ", false},
        {"slave", "non_managed", "enabled", "Slave Switch Settings ", false},
        {"not_present", "non_managed", "disabled", "Slave Switch Settings ", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.role) + " " + row.managed + " " + row.full);
        device.set("swx", "cascadeRole", '"' + std::string(row.role) + '"');
        device.set("systemGlobals", "managedSetting", '"' + std::string(row.managed) + '"');
        device.set("systemGlobals", "fullMirlWhenManaged",
                   *row.full ? '"' + std::string(row.full) + '"' : "");
        AppSession session;
        session.logIn("admin", "x");
        EXPECT_EQ(labels(session), row.tabs);
        EXPECT_EQ(session.probe().modeTimer() != nullptr, row.watchesMode);
        EXPECT_EQ(session.probe().redirectTimer()->interval(), 5000);
    }
}

TEST_F(Session, OnlyTurningManagedOrUnmanagedEndsIt) {
    struct {
        const char* before;
        const char* after;
        bool ends;
    } rows[] = {
        {"verified", "non_managed", true}, {"non_managed", "verified", true}, {"verified", "verified", false},
        {"non_managed", "pending", false}, {"pending", "verified", false},    {"verified", "pending", false},
        {"pending", "non_managed", true},  {"non_managed", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.before) + " to " + row.after);
        device.set("systemGlobals", "managedSetting", '"' + std::string(row.before) + '"');
        AppSession session;
        session.logIn("admin", "x");
        device.set("systemGlobals", "managedSetting", *row.after ? '"' + std::string(row.after) + '"' : "");
        session.probe().modeCheck();
        EXPECT_EQ(session.app().isQuited(), row.ends);
        EXPECT_EQ(session.app().userIsLoggedIn(), !row.ends);
    }
}

TEST_F(Session, AnotherPlaceInTheCascadeEndsIt) {
    const struct {
        const char* before;
        const char* after;
        bool ends;
    } rows[] = {{"controller", "slave", true}, {"controller", "backup", true},
                {"slave", "controller", true}, {"slave", "backup", false},
                {"backup", "slave", false},    {"controller", "controller", false}};
    for (const char* managed : {"non_managed", "verified"}) {
        for (const auto& row : rows) {
            SCOPED_TRACE(std::string(row.before) + " to " + row.after + ", " + managed);
            device.set("systemGlobals", "managedSetting", '"' + std::string(managed) + '"');
            device.set("swx", "cascadeRole", '"' + std::string(row.before) + '"');
            AppSession session;
            session.logIn("admin", "x");
            device.set("swx", "cascadeRole", '"' + std::string(row.after) + '"');
            session.probe().modeCheck();
            EXPECT_EQ(session.app().isQuited(), row.ends);
        }
    }
}

TEST_F(Session, UnreadableModeChangesNothing) {
    AppSession session;
    session.logIn("admin", "x");
    device.set("systemGlobals", "managedSetting", "\"verified\"");
    device.refuse("systemGlobals", true);
    session.probe().modeCheck();
    EXPECT_TRUE(session.app().userIsLoggedIn());
}

TEST_F(Session, InactivityByLimit) {
    struct {
        const char* what;
        const char* minutes; // stored
        long idleSec;
        bool ends;
    } rows[] = {
        {"just inside", "10", 600, false},
        {"just outside", "10", 601, true},
        {"never", "0", 43199, false}, // short of the longest time
        {"a minute", "1", 60, false},
        {"over a minute", "1", 61, true},
        {"a product of 32 bits below a minute counts as five minutes", "71582789", 300, false}, // 44 s
        {"the same, over", "71582789", 301, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        device.set("systemGlobals", "mirlInactivityTimeout", row.minutes);
        AppSession session;
        session.logIn("admin", "x");
        clock.advance(row.idleSec);
        session.probe().timerEvent();
        EXPECT_EQ(session.app().userIsLoggedIn(), !row.ends);
        EXPECT_EQ(session.app().isQuited(), row.ends);
    }
}

TEST_F(Session, UserEventsKeepItAliveTimersDoNot) {
    AppSession session;
    session.logIn("admin", "x");
    for (int i = 0; i < 3; ++i) {
        clock.advance(599);
        session.probe().timerEvent();
        EXPECT_TRUE(session.app().userIsLoggedIn());
        session.probe().userEvent();
    }
    clock.advance(601);
    session.probe().userEvent();
    EXPECT_TRUE(session.app().userIsLoggedIn()) << "a user who comes back late is still welcome";
    session.app().updateMirlInactivityTimeout(1);
    clock.advance(61);
    session.probe().timerEvent();
    EXPECT_FALSE(session.app().userIsLoggedIn()) << "a new limit holds at once";
}

TEST_F(Session, TheLastMinuteOfAnIdleSessionIsCounted) {
    const struct {
        unsigned minutes;
        long quiet, notice; // seconds idle without a notice, and with one
        const char* left;
    } rows[] = {{10, 539, 540, "60 s"}, {10, 539, 595, "5 s"}, {1, 29, 45, "15 s"}, {0, 1000, 2000, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.notice);
        AppSession session;
        session.logIn("admin", "x");
        session.app().updateMirlInactivityTimeout(row.minutes);
        clock.advance(row.quiet);
        session.probe().timerEvent();
        EXPECT_EQ(session.probe().endingNotice(), nullptr);
        clock.advance(row.notice - row.quiet);
        session.probe().timerEvent();
        if (row.minutes == 0) {
            EXPECT_EQ(session.probe().endingNotice(), nullptr);
            continue;
        }
        ASSERT_NE(session.probe().endingNotice(), nullptr);
        EXPECT_FALSE(session.probe().endingNotice()->isModal());
        EXPECT_NE(textIn(session.probe().endingNotice()).find(row.left), std::string::npos);
        session.probe().userEvent();
        EXPECT_EQ(session.probe().endingNotice(), nullptr);
        session.probe().timerEvent();
        EXPECT_EQ(session.probe().endingNotice(), nullptr) << "and the time runs anew";
    }
}

TEST_F(Session, TheLongestTimeEndsABusyOneWhateverTheTimeOfDay) {
    device.set("systemGlobals", "mirlInactivityTimeout", "0");
    AppSession session;
    session.logIn("admin", "x");
    clock.set(-86400);
    clock.set(2 * 86400);
    session.probe().timerEvent();
    EXPECT_TRUE(session.app().userIsLoggedIn()) << "somebody set the clock";
    clock.advance(12 * 3600 - 1);
    session.probe().userEvent();
    EXPECT_TRUE(session.app().userIsLoggedIn());
    clock.advance(1);
    session.probe().userEvent();
    EXPECT_FALSE(session.app().userIsLoggedIn());
    EXPECT_TRUE(session.app().isQuited());
}

TEST_F(Session, SettingTheTimeOfDayNeitherLengthensNorEndsIdleness) {
    AppSession session;
    session.logIn("admin", "x");
    clock.set(86400);
    session.probe().timerEvent();
    EXPECT_TRUE(session.app().userIsLoggedIn());
    clock.set(-2 * 86400);
    clock.advance(601);
    session.probe().timerEvent();
    EXPECT_FALSE(session.app().userIsLoggedIn());
}

TEST_F(Session, TheLoginPageSaysWhyOneIsThere) {
    struct {
        const char* word;
        const char* text;
    } rows[] = {
        {"inactivity", "nothing was done"}, {"account", "your account was disabled"}, {"", ""}, {"<b>x", ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.word);
        AppSession session("https", row.word);
        const std::string all = textIn(session.probe().login());
        EXPECT_EQ(all.find("You were logged out") != std::string::npos, *row.text != 0);
        EXPECT_NE(all.find(row.text), std::string::npos);
        EXPECT_EQ(all.find("<b>"), std::string::npos);
    }
}

TEST_F(Session, LogoutDeletesTheAdminSession) {
    AppSession session;
    session.logIn("admin", "x");
    EXPECT_EQ(session.app().getIndexOfCurrentlyLoggedInUsr(), 1u);
    const auto links = widgetsIn<Wt::WAnchor>(session.app().root());
    const auto logout = std::find_if(links.begin(), links.end(),
                                     [](const Wt::WAnchor* link) { return link->text() == "Log out"; });
    ASSERT_NE(logout, links.end());
    click(*logout);
    EXPECT_EQ(device.requestsWith(R"("method":"DELETE","params":{"index":1},"resource":"adminSession")") +
                  device.requestsWith(R"("method":"delete","params":{"index":1},"resource":"adminSession")"),
              1);
    EXPECT_EQ(session.app().getIndexOfCurrentlyLoggedInUsr(), 0u);
    EXPECT_TRUE(session.app().isQuited());
}

TEST_F(Session, HeaderSaysWhoAndWhereAndLinksHelp) {
    struct {
        const char* switchName;
        const char* helpLink;
        const char* mode;
        const char* managed;
        const char* text;
        const char* links;
        std::string helpEnd;
    } rows[] = {
        {"\"Main <room>\"", "", "master", "non_managed", "Orvane, user:  admin, logged in to Main <room>",
         "Help Preferences Log out ", "/us/olh/orvane/v_1.0.0/en/index.html"},
        {"", "\"\"", "slave", "non_managed", "Orvane, user:  admin", "Help Log out ",
         "/us/olh/orvane/v_1.0.0/en/index.html"},
        {"\"\"", "\"ftp://own/help?x\"", "master", "verified", "Orvane, user:  admin", "Help Log out ",
         "ftp://own/help?x"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        device.set("swx", "name", row.switchName);
        device.set("swx", "mode", '"' + std::string(row.mode) + '"');
        device.set("systemGlobals", "managedSetting", '"' + std::string(row.managed) + '"');
        device.set("systemGlobals", "mirlCustomHelpLink", row.helpLink);
        AppSession session;
        session.logIn("admin", "x");
        EXPECT_EQ(widgetsIn<Wt::WText>(session.app().root()).at(0)->text().toUTF8(), row.text);
        std::string links;
        for (auto* anchor : widgetsIn<Wt::WAnchor>(session.app().root())) {
            links += anchor->text().toUTF8() + " ";
            if (anchor->text() == "Help") {
                EXPECT_TRUE(anchor->link().url().ends_with(row.helpEnd)) << anchor->link().url();
                EXPECT_EQ(anchor->target(), Wt::TargetNewWindow);
            }
        }
        EXPECT_EQ(links.substr(0, std::string(row.links).size()), row.links);
    }
}

class UnsavedChanges : public Session {
protected:
    void SetUp() override {
        device.set("user", "enableLogoutUnsavedChangesWarning", "\"enabled\"");
        session.logIn("admin", "x");
        session.app().subsectionChanged(ChangeTracker::SUBSECTION_RX_ATTRIBS, true);
        boxes = 0;
        session.environment().dialogExecuted().connect(
            boost::function<void(Wt::WDialog*)>([this](Wt::WDialog* dialog) {
                ++boxes;
                answer(*dialog);
            }));
    }

    void logOut() {
        for (auto* anchor : widgetsIn<Wt::WAnchor>(session.app().root()))
            if (anchor->text() == "Log out") return click(anchor);
    }

    AppSession session;
    int boxes = 0;
    std::function<void(Wt::WDialog&)> answer;
};

TEST_F(UnsavedChanges, LogoutAsksAndRemembersWhateverTheAnswer) {
    enum Answer { kDiscard, kCancel, kEscape };
    struct {
        Answer answer;
        bool ticked;
    } rows[] = {{kCancel, false}, {kEscape, false}, {kCancel, true}, {kEscape, true}, {kDiscard, false}};
    int written = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.answer);
        answer = [&](Wt::WDialog& dialog) {
            widgetsIn<Wt::WCheckBox>(&dialog).at(0)->setChecked(row.ticked);
            if (row.answer == kEscape) return dialog.reject();
            click(buttonIn(&dialog, row.answer == kDiscard ? "Discard changes" : "Cancel"));
        };
        logOut();
        EXPECT_EQ(session.app().userIsLoggedIn(), row.answer != kDiscard);
        written += row.ticked;
        EXPECT_EQ(device.requestsWith(R"("enableLogoutUnsavedChangesWarning":"disabled")"), written);
    }
    EXPECT_EQ(boxes, 5);
}

TEST_F(UnsavedChanges, NoQuestionWhenTurnedOffOrNothingChanged) {
    device.set("user", "enableLogoutUnsavedChangesWarning", "\"disabled\"");
    logOut();
    EXPECT_FALSE(session.app().userIsLoggedIn());
    EXPECT_EQ(boxes, 0);
}

TEST_F(UnsavedChanges, UnreadableSwitchMeansAsk) {
    answer = [](Wt::WDialog& dialog) { dialog.reject(); };
    device.set("user", "enableLogoutUnsavedChangesWarning", "\"disabled\"");
    device.refuse("user", true);
    logOut();
    EXPECT_EQ(boxes, 1);
    EXPECT_TRUE(session.app().userIsLoggedIn());
}

TEST_F(UnsavedChanges, SignOnTheMainTabFollowsTheLastPageOfTheSection) {
    MirlApplication& app = session.app();
    const std::string marked =
        "Dashboard Sessions Users Devices* Cascade Peripherals System Settings Events ";
    app.subsectionChanged(ChangeTracker::SUBSECTION_TX_SETTINGS, true);
    EXPECT_EQ(labels(session), marked) << "one sign, however many pages";
    app.subsectionChanged(ChangeTracker::SUBSECTION_RX_ATTRIBS, false);
    EXPECT_EQ(labels(session), marked);
    EXPECT_TRUE(app.parentSectionChanged(ChangeTracker::SUBSECTION_SWX_MODE));
    app.subsectionChanged(ChangeTracker::SUBSECTION_TX_SETTINGS, false);
    EXPECT_EQ(labels(session), kMasterTabs);
    EXPECT_FALSE(app.anythingChanged());

    app.sectionChanged(ChangeTracker::SECTION_SYSTEM_SETTINGS, true);
    EXPECT_EQ(labels(session), kMasterTabs) << "the settings get no sign as a whole section";
    app.subsectionChanged(ChangeTracker::SUBSECTION_SYS_SETTINGS, true);
    EXPECT_EQ(labels(session),
              "Dashboard Sessions Users Devices Cascade Peripherals System Settings* Events ");
}

TEST_F(Session, PlainHttpIsSentToHttpsAtOnceAndByTimer) {
    AppSession session("http");
    ASSERT_NE(session.probe().redirectTimer(), nullptr);
    EXPECT_EQ(session.probe().redirectTimer()->interval(), 2000);
    EXPECT_TRUE(session.probe().redirectTimer()->isActive());
    EXPECT_FALSE(session.probe().redirectTimer()->isSingleShot());
}

} // namespace
