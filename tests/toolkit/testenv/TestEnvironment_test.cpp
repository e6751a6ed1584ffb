#include "test/TestSession.h"

#include <Wt/Test/WTestEnvironment.h>
#include <Wt/WApplication.h>
#include <Wt/WContainerWidget.h>
#include <Wt/WDialog.h>
#include <Wt/WLineEdit.h>
#include <Wt/WPushButton.h>
#include <Wt/WTimer.h>

#include <gtest/gtest.h>

using namespace Wt;
using namespace std::chrono_literals;

TEST(TestEnvironment, tellsTheApplicationWhatTheTestSaid) {
    Wt::Test::WTestEnvironment environment;
    environment.setHostName("switch.example:8443");
    environment.setUrlScheme("https");
    environment.setHeaderValue("X-Thing", "7");
    environment.setParameterMap({{"a", {"1", "2"}}});
    WApplication application(environment);
    EXPECT_EQ(WApplication::instance(), &application);
    EXPECT_EQ(application.environment().hostName(), "switch.example:8443");
    EXPECT_EQ(application.environment().urlScheme(), "https");
    EXPECT_EQ(application.environment().headerValue("x-thing"), "7");
    EXPECT_EQ(application.environment().getParameterValues("a").size(), 2u);
}

TEST(TestEnvironment, oneAfterTheOther) {
    for (int i = 0; i < 2; ++i) {
        Wt::Test::WTestEnvironment environment;
        WApplication application(environment);
        new WPushButton("x", application.root());
        EXPECT_THROW(Wt::Test::WTestEnvironment(), std::logic_error);
    }
    EXPECT_EQ(WApplication::instance(), nullptr);
}

TEST(TestEnvironment, playsTheUserOfNestedDialogs) {
    Wt::Test::WTestEnvironment environment;
    WApplication application(environment);
    std::vector<std::string> seen;
    environment.dialogExecuted().connect([&](WDialog* dialog) {
        seen.push_back(dialog->windowTitle().toUTF8());
        if (seen.size() == 1) {
            WDialog inner("inner");
            EXPECT_EQ(inner.exec(), WDialog::Rejected);
        }
        if (dialog->windowTitle() == WString("inner"))
            dialog->reject();
        else
            dialog->accept();
    });
    WDialog outer("outer");
    EXPECT_EQ(outer.exec(), WDialog::Accepted);
    EXPECT_EQ(seen, (std::vector<std::string>{"outer", "inner"}));
}

TEST(TestEnvironment, aDialogThatNobodyEndsIsAnError) {
    Wt::Test::WTestEnvironment environment;
    WApplication application(environment);
    WDialog dialog("forgotten");
    EXPECT_THROW(dialog.exec(), std::logic_error);
}

TEST(TestEnvironment, timePasses) {
    Wt::Test::WTestEnvironment environment;
    WApplication application(environment);
    Impl::TestSession& session = Impl::TestSession::current();
    std::string order;
    WTimer often, once, later;
    often.setInterval(1000);
    often.timeout().connect(std::bind([&] { order += "o"; }));
    once.setInterval(2500);
    once.setSingleShot(true);
    once.timeout().connect(std::bind([&] {
        order += "1";
        later.start();
    }));
    later.setInterval(100);
    later.setSingleShot(true);
    later.timeout().connect(std::bind([&] { order += "l"; }));
    often.start();
    once.start();
    session.advance(999ms);
    EXPECT_EQ(order, "");
    session.advance(2001ms);
    EXPECT_EQ(order, "oo1lo");
    often.stop();
    session.advance(1h);
    EXPECT_EQ(order, "oo1lo");
}

TEST(TestEnvironment, aTimerEndsADialog) {
    Wt::Test::WTestEnvironment environment;
    WApplication application(environment);
    WDialog dialog("notice");
    WTimer timer;
    timer.setInterval(3000);
    timer.timeout().connect(&dialog, &WDialog::accept);
    environment.dialogExecuted().connect([](WDialog*) { Impl::TestSession::current().advance(3s); });
    timer.start();
    EXPECT_EQ(dialog.exec(), WDialog::Accepted);
}

TEST(TestEnvironment, signalsAreTheUser) {
    Wt::Test::WTestEnvironment environment;
    WApplication application(environment);
    auto* edit = new WLineEdit(application.root());
    auto* button = new WPushButton("Save", application.root());
    std::string saved;
    button->clicked().connect(std::bind([&] { saved = edit->text().toUTF8(); }));
    edit->setText("typed");
    edit->changed().emit();
    button->clicked().emit(WMouseEvent());
    EXPECT_EQ(saved, "typed");
}
