// Which events raise an alert: two lists, and what is stored of them.

#include "frame/WNumericSortFilterProxyModel.h"
#include "tests/views/settings/SettingsPage.h"

#include <boost/any.hpp>

#include <algorithm>

namespace {

constexpr const char* kLogin = "enableAlertUserLogin";
constexpr const char* kLogout = "enableAlertUserLogout";
constexpr const char* kRap = "enableAlertRapAdminLogin";

class SysEvents : public SettingsPage {
protected:
    SysEvents() {
        for (const char* key : {kLogin, kRap}) store("alertLogControl", 0, key, "disabled");
        showTab("Events");
    }

    static std::string stateOf(const char* key) { return stored("alertLogControl", 0, key); }
    static std::vector<std::string> rows(const MoverList* list) {
        std::vector<std::string> texts;
        for (int row = 0; row < list->rowCount(); ++row)
            texts.push_back(boost::any_cast<std::string>(list->proxy()->data(row, 1, Wt::EditRole)));
        return texts;
    }
    std::vector<std::string> disabled() const { return rows(events().left()); }
    std::size_t enabledCount() const { return rows(events().right()).size(); }
    void choose(MoverList* list, const std::string& text) {
        const auto all = rows(list);
        const auto at = std::find(all.begin(), all.end(), text);
        ASSERT_NE(at, all.end()) << text;
        list->setSelectedIndexes({list->proxy()->index(static_cast<int>(at - all.begin()), 0)});
        list->selectionChanged().emit();
    }
    std::string moves() const { // enabled buttons, from the top
        std::string enabled;
        for (const Move move : {Move::AddAll, Move::Add, Move::Remove, Move::RemoveAll})
            enabled += events().button(move)->isDisabled() ? '.' : 'X';
        return enabled;
    }
};

TEST_F(SysEvents, ListsAllButTheHiddenOnesBySwitch) {
    EXPECT_EQ(disabled(), std::vector<std::string>{"User login"});
    EXPECT_EQ(enabledCount(), 38U);
    EXPECT_EQ(moves(), "X..X");
    const auto all = rows(events().right());
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
}

TEST_F(SysEvents, AMoveWaitsForSaveAndCancelTakesItBack) {
    choose(events().right(), "User logout");
    EXPECT_EQ(moves(), "X.XX");
    events().apply(Move::Remove);
    EXPECT_EQ(disabled(), (std::vector<std::string>{"User login", "User logout"}));
    EXPECT_EQ(buttons() + actions(), "SC....");
    tick();
    EXPECT_EQ(disabled().size(), 2U) << "a refresh leaves what was moved";
    EXPECT_EQ(stateOf(kLogout), "enabled");
    cancel();
    EXPECT_EQ(disabled(), std::vector<std::string>{"User login"});
    EXPECT_EQ(buttons() + actions(), "..XXXX");
    choose(events().right(), "User logout");
    events().apply(Move::Remove);
    choose(events().left(), "User login");
    events().apply(Move::Add);
    save();
    EXPECT_EQ(stateOf(kLogout), "disabled");
    EXPECT_EQ(stateOf(kLogin), "enabled");
    EXPECT_EQ(stateOf(kRap), "disabled") << "what is not listed is left alone";
    EXPECT_EQ(buttons() + actions(), "..XXXX");
    EXPECT_EQ(disabled(), std::vector<std::string>{"User logout"});
}

TEST_F(SysEvents, AllGoOneWayAndTheOther) {
    events().apply(Move::AddAll);
    EXPECT_EQ(disabled().size(), 0U);
    EXPECT_EQ(moves(), "...X");
    events().apply(Move::AddAll);
    EXPECT_EQ(enabledCount(), 39U);
    events().apply(Move::RemoveAll);
    EXPECT_EQ(enabledCount(), 0U);
    EXPECT_EQ(moves(), "X...");
    save();
    EXPECT_EQ(stateOf(kLogin), "disabled");
    EXPECT_EQ(stateOf("enableAlertDeviceReportedInfo"), "disabled");
    EXPECT_EQ(stateOf("enableAlertRapAdminLogout"), "enabled");
}

TEST_F(SysEvents, ASelectedRowKeepsTheListsAsTheyAre) {
    choose(events().left(), "User login");
    store("alertLogControl", 0, kLogout, "disabled");
    tick();
    EXPECT_EQ(disabled().size(), 1U);
    choose(events().right(), "User logout");
    EXPECT_EQ(events().left()->numSelected(), 0) << "one list has the selection";
    events().clearSelection();
    tick();
    EXPECT_EQ(disabled().size(), 2U);
}

TEST_F(SysEvents, TheSelectionGoesWhenTheTabIsEnteredAndNotWhenTheNextOneIs) {
    choose(events().left(), "User login");
    showTab("Defaults");
    EXPECT_EQ(events().left()->numSelected(), 1);
    showTab("Events");
    EXPECT_EQ(events().left()->numSelected(), 0);
    choose(events().left(), "User login");
    showTab("Other");
    EXPECT_EQ(events().left()->numSelected(), 0);
}

TEST_F(SysEvents, WithoutAnAnswerTheSaveIsToldAsFailed) {
    events().apply(Move::AddAll);
    zeqd.kill();
    answerWith("Close");
    save();
    zeqd.start();
    EXPECT_EQ(stateOf(kLogin), "disabled");
}

TEST_F(SysEvents, CancelShowsWhatIsStoredOverASelection) {
    events().apply(Move::AddAll);
    choose(events().right(), "User logout");
    click(tab().cancelButton());
    EXPECT_EQ(disabled(), std::vector<std::string>{"User login"});
}

TEST_F(SysEvents, WhatCouldNotBeReadIsNotSavedAsSwitchedOff) {
    zeqd.kill();
    view->readFromDatabase(true);
    EXPECT_EQ(disabled(), std::vector<std::string>{"User login"});
    zeqd.start();
    choose(events().right(), "User logout");
    events().apply(Move::Remove);
    save();
    EXPECT_EQ(stateOf("enableAlertFanFault"), "enabled");
    EXPECT_EQ(stateOf(kLogout), "disabled");
}

TEST_F(SysEvents, AddressAndSeveritiesGoToTheirOwnResources) {
    type("syslogDest", "10.9.8.7");
    PageTest::choose("warning", 0);
    const std::string word = text("warning");
    store("alertLogControl", 0, kLogout, "disabled"); // by another administrator
    save();
    EXPECT_EQ(stateOf(kLogout), "disabled") << "what was not moved is not written";
    EXPECT_EQ(stored("systemGlobals", 0, "syslogDest"), "10.9.8.7");
    EXPECT_EQ(stored("eventLogControl", 0, "warning"), word == "Disabled" ? "disabled" : "enabled");
}

} // namespace
