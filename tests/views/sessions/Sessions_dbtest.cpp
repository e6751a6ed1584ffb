// The Sessions page: the list, the details, Disconnect, and what a refresh costs.

#include "tests/views/sessions/SessionsPage.h"

#include <gmock/gmock.h>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr unsigned kMhansen = 3; // at two desks

TEST_F(SessionsPage, ListsWhoIsConnectedToWhat) {
    ASSERT_EQ(lines().size(), 8u) << "a login without a session is none";
    EXPECT_THAT(line("Engineering"), StartsWith("engineer|Engineering|Relay Engineering|Private|"));
    EXPECT_THAT(line("Desk 2 Left"), StartsWith("jokoro|Desk 2 Left|SCADA B|Shared|"));
    EXPECT_EQ(table().textAt(table().proxy()->index(0, 0), WSesViewList::Username), "engineer");

    remove("userSession", 8);
    tick();
    EXPECT_EQ(line("Relay Engineering"), "") << "the session ended with the login";
    store("rx", 1, "name", "");
    store("tx", 1, "name", "");
    tick();
    poke("user", kMhansen, "name", "");
    poke("user", kMhansen, "mgrName", "MANAGED");
    tick();
    EXPECT_THAT(lines(), Contains(StartsWith("MANAGED|Desk 1 Right|Alarm Server|Shared|")));
    EXPECT_THAT(lines(), Contains(StartsWith("MANAGED|EID - 00A702-020011|EID - 00A703-03000D|Shared|")));
}

TEST_F(SessionsPage, DurationsGoOnWithoutAQuestion) {
    poke("connection", 8, "sessionStartTime", std::to_string(WallClock_now() - 3723).c_str());
    view->readFromDatabase(true);
    EXPECT_THAT(line("Engineering"), HasSubstr("|Private|1:02:03"));
    select({8});
    EXPECT_EQ(details().back(), "1:02:03");
    tick();
    clock.advance(5);
    const unsigned long before = zeqExchangeCount();
    tick();
    EXPECT_THAT(line("Engineering"), HasSubstr("|Private|1:02:08"));
    EXPECT_EQ(details().back(), "1:02:08");
    EXPECT_EQ(zeqExchangeCount() - before, 2u) << "the counters, for the list and for the details";
    clock.set(-10'000);
    tick();
    EXPECT_THAT(line("Engineering"), HasSubstr("|Private|0:00")) << "a clock that was set back";
}

TEST_F(SessionsPage, ARebuildCostsSixExchangesWhateverTheNumber) {
    unsigned long before = zeqExchangeCount();
    tick();
    EXPECT_EQ(zeqExchangeCount() - before, 1u) << "nothing changed";
    store("rx", 1, "name", "Renamed");
    before = zeqExchangeCount();
    tick();
    EXPECT_EQ(zeqExchangeCount() - before, 6u)
        << "counters, sessions, logins, users, Receivers, Transmitters";
    EXPECT_THAT(lines(), Contains(HasSubstr("|Renamed|")));
    for (unsigned record = 1; record <= 8; ++record) remove("connection", record);
    tick();
    before = zeqExchangeCount();
    view->readFromDatabase(true);
    EXPECT_TRUE(lines().empty());
    EXPECT_LE(zeqExchangeCount() - before, 3u);
}

TEST_F(SessionsPage, DetailsOfOneAndWhatSeveralHaveInCommon) {
    EXPECT_TRUE(button(SesAction::Disconnect)->isDisabled());
    EXPECT_FALSE(button(SesAction::Connect)->isDisabled());
    EXPECT_FALSE(detailsShown());
    select({1});
    EXPECT_FALSE(button(SesAction::Disconnect)->isDisabled());
    EXPECT_TRUE(detailsShown());
    const std::vector<std::string> one = details();
    ASSERT_EQ(one.size(), 9u);
    EXPECT_EQ(one[1], "Desk 1 Left");
    EXPECT_EQ(one[3], "SCADA A");
    EXPECT_EQ(one[4], "mhansen");
    EXPECT_EQ(one[6], "User");
    EXPECT_EQ(one[7], "Shared");
    EXPECT_EQ(one[5], "Marit Hansen");
    select({5}); // across the cascade
    EXPECT_EQ(details()[0], "Main Hall Switch");
    EXPECT_EQ(details()[2], "Annex Switch");
    select({1, 2}); // one user, two desks
    const std::vector<std::string> two = details();
    EXPECT_EQ(two[0], one[0]) << "one Switch";
    EXPECT_THAT((std::vector{two[1], two[3], two[4], two[7]}),
                ElementsAre("---", "---", "mhansen", "Shared"));
    EXPECT_EQ(two[8], "---");

    remove("connection", 1);
    tick();
    EXPECT_EQ(details()[1], "Desk 1 Right") << "the other one stays selected";
    remove("connection", 2);
    tick();
    EXPECT_TRUE(button(SesAction::Disconnect)->isDisabled());
    EXPECT_FALSE(detailsShown());
}

TEST_F(SessionsPage, DisconnectEndsSessionsAndLogsTheirUsersOff) {
    select({1, 3});
    answerWith("Cancel");
    click(button(SesAction::Disconnect));
    EXPECT_THAT(shown.back(), HasSubstr("disconnect the selected session(s)?"));
    EXPECT_THAT(shown.back(), HasSubstr("2 sessions"));
    EXPECT_EQ(count("connection"), 8);

    answerWith("Disconnect");
    click(button(SesAction::Disconnect));
    EXPECT_EQ(count("connection"), 6);
    EXPECT_EQ(count("userSession"), 7) << "both users were logged off there";
    EXPECT_THAT(line("Desk 1 Left"), HasSubstr("Disconnecting")) << "said until the list is read again";
    EXPECT_EQ(view->list()->numSelected(), 0);
    EXPECT_TRUE(button(SesAction::Disconnect)->isDisabled());
    click(button(SesAction::Disconnect)); // a second click, on its way: asks nothing
    later();
    EXPECT_EQ(lines().size(), 6u);
    EXPECT_EQ(line("Desk 1 Left"), "");
}

TEST_F(SessionsPage, ATickInTheSecondBehindADisconnectLeavesTheWordStanding) {
    select({8});
    answerWith("Disconnect");
    click(button(SesAction::Disconnect));
    select({2}); // nothing new is read before
    EXPECT_EQ(lines().size(), 7u) << "there was news";
}

TEST_F(SessionsPage, ARefusedDisconnectDoesNotKeepTheOthers) {
    select({1, 3, 8});
    answer([](Wt::WDialog& box) { // while the question stands, another administrator was quicker
        remove("connection", 3);
        click(buttonIn(&box, "Disconnect"));
    });
    answerWith("Close");
    click(button(SesAction::Disconnect));
    EXPECT_THAT(shown.back(), HasSubstr("Unable to disconnect session. "));
    EXPECT_EQ(count("connection"), 5) << "the other two are gone all the same";
    later();
    EXPECT_EQ(lines().size(), 5u);
}

TEST_F(SessionsPage, TheWarningCanBeTurnedOffWithAnyAnswer) {
    select({8});
    answer([](Wt::WDialog& box) {
        widgetsIn<Wt::WCheckBox>(&box).at(0)->setChecked();
        click(buttonIn(&box, "Cancel"));
    });
    click(button(SesAction::Disconnect));
    EXPECT_EQ(count("connection"), 8);
    EXPECT_EQ(stored("user", 1, "enableDisconnectSessionWarning"), "disabled");
    click(button(SesAction::Disconnect)); // asks no more
    EXPECT_EQ(count("connection"), 7);
}

TEST_F(SessionsPage, AServiceThatIsAwayLeavesWhatWasReadAndSaysWhatItDidNotDo) {
    select({8});
    zeqd.kill();
    answerWith("Disconnect");
    answerWith("Close");
    click(button(SesAction::Disconnect));
    EXPECT_THAT(shown.back(), HasSubstr("No answer for Engineering."));
    later();
    EXPECT_EQ(lines().size(), 8u);
    EXPECT_THAT(line("Engineering"), Not(HasSubstr("Disconnecting")));
}

} // namespace
