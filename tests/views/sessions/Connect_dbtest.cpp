// The Connect dialog: what it offers, in which order, and what becomes of it.

#include "tests/views/sessions/SessionsPage.h"
#include "views/sessions/AccessModes.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

constexpr auto kShare = Info_ConnectionMode::Share;
constexpr auto kPrivate = Info_ConnectionMode::Private;

// The demo's: users 3 mhansen, 5 lfischer (shared only), 6 engineer (private only); Receivers 7 Desk 4, 16 Rack Drawer
// (private only), 19 Training (offline), 20 Lobby Display (shared only); Transmitters 1 SCADA A (two sharers), 4 Historian,
// 12 Telephone Recorder (private only), 20 Relay Engineering (in private use), 30 (over capacity).

TEST_F(SessionsPage, TheChainOffersWhatEachPickAllows) {
    for (const unsigned user : {3U, 5U, 6U}) store("user", user, "allTargetAccess", "enabled");
    poke("user", 8, "name", "");
    poke("user", 8, "mgrName", "WALL");
    WEstabSesDialog dialog;
    Wt::WPushButton* connect = buttonIn(&dialog, "Connect");
    EXPECT_TRUE(connect->isDisabled());
    EXPECT_TRUE(offers(*dialog.users(), 3));
    EXPECT_TRUE(offers(*dialog.users(), 5));
    EXPECT_FALSE(offers(*dialog.users(), 6)) << "private only";
    EXPECT_EQ(dialog.users()->textAt(dialog.users()->rowOf(8), 1), "WALL") << "named by a manager";
    EXPECT_EQ(dialog.receivers()->rowCount(), 0);
    pick(*dialog.users(), 3);
    EXPECT_TRUE(offers(*dialog.receivers(), 7));
    EXPECT_TRUE(offers(*dialog.receivers(), 20));
    for (const unsigned rx : {1U, 5U, 16U, 19U}) // in a session, with a login only, private only, offline
        EXPECT_FALSE(offers(*dialog.receivers(), rx)) << rx;
    EXPECT_EQ(dialog.transmitters()->rowCount(), 0);
    pick(*dialog.receivers(), 7);
    EXPECT_TRUE(connect->isDisabled());
    for (const unsigned tx : {1U, 4U}) EXPECT_TRUE(offers(*dialog.transmitters(), tx)) << tx;
    for (const unsigned tx : {3U, 12U, 20U, 30U}) EXPECT_FALSE(offers(*dialog.transmitters(), tx)) << tx;
    pick(*dialog.transmitters(), 1);
    EXPECT_FALSE(connect->isDisabled());

    pick(*dialog.receivers(), 20);
    EXPECT_TRUE(connect->isDisabled()) << "another Receiver, another list";
    pick(*dialog.transmitters(), 1);
    pick(*dialog.users(), 5);
    EXPECT_TRUE(connect->isDisabled());
    EXPECT_EQ(dialog.transmitters()->rowCount(), 0);

    chooseMode(dialog, kPrivate);
    EXPECT_FALSE(offers(*dialog.users(), 5));
    EXPECT_TRUE(offers(*dialog.users(), 6));
    EXPECT_EQ(dialog.receivers()->rowCount(), 0);
    pick(*dialog.users(), 6);
    EXPECT_TRUE(offers(*dialog.receivers(), 16));
    EXPECT_FALSE(offers(*dialog.receivers(), 20));
    pick(*dialog.receivers(), 16);
    EXPECT_TRUE(offers(*dialog.transmitters(), 12));
    EXPECT_FALSE(offers(*dialog.transmitters(), 1)) << "shared by others";
}

TEST_F(SessionsPage, OnlyReadyIdleAndUsableDevicesAndTargetsOfTheUser) {
    store("user", 3, "allTargetAccess", "disabled");
    WEstabSesUsrTable users;
    WEstabSesRxTable receivers;
    WEstabSesTxTable transmitters;
    const auto rxOffered = [&] {
        receivers.readFromDatabase(Info_AccessMode::Share, 3);
        return offers(receivers, 7);
    };
    const auto txOffered = [&](unsigned tx) {
        transmitters.readFromDatabase(kShare, 3, 7);
        return offers(transmitters, tx);
    };
    const struct {
        const char* key;
        const char* wrong;
        const char* right;
    } kStates[] = {{"status", "configuring", "ready"},
                   {"upgradeStatus", "complete", "idle"},
                   {"usage", "not_usable_swx_capacity", "usable"}};
    ASSERT_TRUE(rxOffered());
    ASSERT_FALSE(txOffered(30));
    ASSERT_TRUE(txOffered(1)) << "SCADA A is a target of the demo's user";
    EXPECT_FALSE(txOffered(28)) << "no target";
    store("user", 3, "allTargetAccess", "enabled");
    EXPECT_TRUE(txOffered(28));
    for (const auto& state : kStates) {
        poke("rx", 7, state.key, state.wrong);
        poke("tx", 1, state.key, state.wrong);
        EXPECT_FALSE(rxOffered()) << state.key;
        EXPECT_FALSE(txOffered(1)) << state.key;
        poke("rx", 7, state.key, state.right);
        poke("tx", 1, state.key, state.right);
    }
    poke("tx", 1, "usage", "not_usable_swx_maintenance");
    EXPECT_TRUE(txOffered(1)) << "only capacity keeps it out";
    EXPECT_TRUE(rxOffered());
    transmitters.readFromDatabase(kShare, 4711, 7);
    EXPECT_EQ(transmitters.rowCount(), 0) << "no such user";
    receivers.readFromDatabase(Info_AccessMode{}, 3);
    EXPECT_EQ(receivers.rowCount(), 0) << "no mode";
}

TEST_F(SessionsPage, SixExchangesWhateverTheNumberOfTransmitters) {
    store("user", 3, "allTargetAccess", "disabled");
    WEstabSesTxTable transmitters;
    unsigned long before = zeqExchangeCount();
    transmitters.readFromDatabase(kShare, 3, 7);
    EXPECT_GT(transmitters.rowCount(), 3);
    EXPECT_EQ(zeqExchangeCount() - before, 6u);
    WEstabSesRxTable receivers;
    before = zeqExchangeCount();
    receivers.readFromDatabase(Info_AccessMode::Share, 3);
    EXPECT_EQ(zeqExchangeCount() - before, 3u);
    for (unsigned login = 1; login <= 9; ++login) remove("userSession", login);
    before = zeqExchangeCount();
    receivers.readFromDatabase(Info_AccessMode::Share, 3);
    EXPECT_GT(receivers.rowCount(), 12);
    EXPECT_EQ(zeqExchangeCount() - before, 3u) << "nobody is logged in anywhere";
}

// Written out anew: which sides of a session bear each other.
TEST(AccessModes, EveryCombination) {
    using M = Info_AccessMode;
    constexpr M kAll[] = {M::Share, M::Private, M::ShareOrPrivate};
    const auto shared = [](M m) { return m != M::Private; };
    const auto priv = [](M m) { return m != M::Share; };
    for (const M wanted : kAll)
        for (const M user : kAll)
            for (const M rx : kAll)
                for (const M tx : kAll) {
                    const bool asShared = shared(wanted) && shared(user) && shared(rx) && shared(tx);
                    const bool asPrivate = priv(wanted) && priv(user) && priv(rx) && priv(tx);
                    EXPECT_EQ(accessModesFit({wanted, user, rx, tx}), asShared || asPrivate)
                        << unsigned(wanted) << unsigned(user) << unsigned(rx) << unsigned(tx);
                }
    for (const M wanted : kAll) {
        EXPECT_TRUE(joinsSession(wanted, Info_ConnectionMode::None));
        EXPECT_EQ(joinsSession(wanted, kShare), wanted != M::Private);
        EXPECT_FALSE(joinsSession(wanted, kPrivate));
    }
    EXPECT_EQ(accessModeNamed("private_mode"), M::Private);
    EXPECT_EQ(accessModeNamed("none"), std::nullopt);
}

TEST_F(SessionsPage, ConnectsAndListsIt) {
    store("user", 3, "allTargetAccess", "enabled");
    connectWith(3, 7, 4, kPrivate);
    answerWith("Close");
    click(button(SesAction::Connect));
    EXPECT_THAT(shown.back(), HasSubstr("Session has been successfully connected."));
    EXPECT_EQ(count("connection"), 9);
    EXPECT_THAT(line("Desk 4"), testing::StartsWith("mhansen|Desk 4|Historian|Private|"));

    answer([](Wt::WDialog& dialog) { click(buttonIn(&dialog, "Cancel")); });
    click(button(SesAction::Connect));
    EXPECT_EQ(count("connection"), 9);
}

TEST_F(SessionsPage, AnotherModeBehindThePicksIsRefusedInWords) {
    store("user", 3, "allTargetAccess", "enabled");
    connectWith(3, 7, 4, kShare, [](WEstabSesDialog& dialog) {
        chooseMode(dialog, kPrivate);
        EXPECT_FALSE(buttonIn(&dialog, "Connect")->isDisabled()) << "left as it was";
    });
    answerWith("Close");
    const int logins = count("userSession");
    click(button(SesAction::Connect));
    EXPECT_THAT(shown.back(), HasSubstr("Unable to create session. Select a user"));
    EXPECT_EQ(count("userSession"), logins) << "nobody was logged in anywhere";
}

TEST_F(SessionsPage, ARefusalIsToldAndLeavesTheLogin) {
    store("user", 3, "allTargetAccess", "enabled");
    connectWith(3, 7, 4, kShare, [](WEstabSesDialog&) {
        store("tx", 4, "modeAllowed", "private_mode"); // by somebody else
    });
    answerWith("Close");
    const int logins = count("userSession");
    click(button(SesAction::Connect));
    EXPECT_THAT(shown.back(), HasSubstr("Unable to create session. "));
    EXPECT_EQ(count("connection"), 8);
    EXPECT_EQ(count("userSession"), logins + 1);
}

} // namespace
