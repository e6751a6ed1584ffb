// The Users page: the list, accounts from their making to their deletion, rights and favourites of several users.

#include "tests/views/users/UsersPage.h"

namespace {

TEST_F(UsersPage, ListAndActionsFollowWhoIsLoggedIn) {
    EXPECT_EQ(row("admin").substr(0, 34), "admin|System Administrator|Admin|L");
    EXPECT_NE(row("admin").find("Logged in to console"), std::string::npos);
    EXPECT_EQ(row("trainee"), "trainee|Training Account|User|Not logged in|");
    const std::vector<std::string> all = names();
    EXPECT_TRUE(std::ranges::is_sorted(all));
    EXPECT_EQ(actions(), "X...");
    EXPECT_TRUE(view->details()->isHidden());

    std::vector<std::string> at;
    std::vector<std::string> away;
    for (const std::string& name : all)
        (row(name).find("receiver") != std::string::npos ? at : away).push_back(name);
    ASSERT_GE(at.size(), 2u);
    ASSERT_GE(away.size(), 1u);
    const struct {
        std::vector<std::string> names;
        const char* actions;
    } rows[] = {{{at[0]}, "XXXX"},
                {{at[0], at[1]}, "X.XX"},
                {{at[0], away[0]}, "X..X"},
                {{away[0]}, "XX.X"},
                {{}, "X..."}};
    for (const auto& each : rows) {
        select(each.names);
        EXPECT_EQ(actions(), each.actions) << testing::PrintToString(each.names);
        EXPECT_EQ(view->details()->isHidden(), each.names.empty());
        tick();
        EXPECT_EQ(actions(), each.actions) << "behind a refresh";
    }

    select({at[0]});
    showTab("Status");
    auto* status = widgetsIn<WUsrViewStatus>(view->details()).front()->table()->table();
    ASSERT_EQ(status->rowCount(), 1);
    EXPECT_EQ(status->textAt(status->proxy()->index(0, 0), 1), at[0]);

    answerWith("Logout user");
    clickAction(UserAction::Logout);
    EXPECT_NE(shown.back().find(at[0]), std::string::npos) << "the question names whom it hits";
    EXPECT_EQ(row(at[0]).find("receiver"), std::string::npos);
    EXPECT_EQ(actions(), "XX.X");
}

TEST_F(UsersPage, ANewUserFromNothingToTheFirstPassword) {
    const auto before = names().size();
    clickAction(UserAction::New);
    ASSERT_TRUE(view->newUserPending());
    EXPECT_EQ(names().size(), before + 1);
    EXPECT_EQ(actions(), "....");
    EXPECT_EQ(buttons(), ".C");
    EXPECT_EQ(text("name"), "");
    EXPECT_TRUE(table().isDisabled());
    tick();
    EXPECT_EQ(text("name"), "");

    type("name", "nightdesk");
    EXPECT_EQ(buttons(), ".C") << "no password yet";
    typeInto(password(0), "Blue7hills");
    EXPECT_EQ(buttons(), ".C") << "not repeated yet";
    typeInto(password(1), "Blue7hill");
    EXPECT_EQ(buttons(), ".C");
    typeInto(password(1), "Blue7hills");
    EXPECT_EQ(buttons(), "SC");

    // A name that is taken: the edits stay, the account stays provisional.
    type("name", "admin");
    answerWith("Close");
    save();
    EXPECT_TRUE(view->newUserPending());
    EXPECT_EQ(text("name"), "admin");
    EXPECT_EQ(password(0)->text().toUTF8(), "Blue7hills");
    EXPECT_EQ(buttons(), "SC");

    type("name", "nightdesk");
    save();
    EXPECT_FALSE(view->newUserPending());
    EXPECT_EQ(row("nightdesk"), "nightdesk||User|Not logged in|");
    EXPECT_EQ(buttons(), "..");
    EXPECT_EQ(password(0)->text().toUTF8(), "");
    const unsigned index = table().selectedZeqIndex();
    ASSERT_NE(index, 0u);
    EXPECT_EQ(stored("user", index, "allowBlankPassword"), "disabled");

    showTab("Permissions");
    choose("role", 1);
    EXPECT_EQ(buttons(), "SC");
    save();
    EXPECT_EQ(stored("user", index, "role"), "admin");
    EXPECT_EQ(stored("user", index, "modeAllowed"), "share_or_private_mode");
    EXPECT_TRUE(canLogIn("nightdesk", "Blue7hills"));
    EXPECT_FALSE(canLogIn("nightdesk", "Blue7hill"));
}

TEST_F(UsersPage, AProvisionalAccountGoesWithItsAdministrator) {
    const std::vector<std::string> before = names();
    clickAction(UserAction::New);
    cancel();
    EXPECT_FALSE(view->newUserPending());
    EXPECT_EQ(names(), before);
    EXPECT_EQ(actions(), "X...");

    clickAction(UserAction::New);
    view->discardChanges();
    EXPECT_EQ(names(), before);
    EXPECT_FALSE(table().isDisabled());

    // A session that is over, however it ended.
    newUserInAnotherSession([&](WUsrView& page) {
        EXPECT_TRUE(page.newUserPending());
        EXPECT_EQ(page.list()->rowCount(), static_cast<int>(before.size()) + 1);
    });
    view->readFromDatabase(true, true);
    EXPECT_EQ(names(), before);
}

TEST_F(UsersPage, ABlankPasswordIsAPassword) {
    select({"supervisor"});
    const unsigned index = table().selectedZeqIndex();
    change().setCurrentIndex(1);
    change().changed().emit();
    EXPECT_EQ(buttons(), ".C") << "blank is not allowed";
    choose("allowBlankPassword", 0);
    EXPECT_EQ(buttons(), "SC");
    save();
    EXPECT_EQ(stored("user", index, "allowBlankPassword"), "enabled");
    EXPECT_TRUE(canLogIn("supervisor", ""));
    EXPECT_EQ(change().currentIndex(), 0);
}

TEST_F(UsersPage, ACancelledPasswordStaysInNoField) {
    select({"mhansen"});
    change().setCurrentIndex(1);
    change().changed().emit();
    for (const std::size_t which : {0U, 1U}) typeInto(password(which), "Not-kept-1");
    EXPECT_EQ(buttons(), "SC");
    click(tab().cancelButton());
    for (const std::size_t which : {0U, 1U}) EXPECT_EQ(password(which)->text(), "");
    EXPECT_EQ(change().currentIndex(), 0);
}

TEST_F(UsersPage, SeveralUsersKeepTheirNamesAndPasswords) {
    select({"mhansen", "jokoro"});
    EXPECT_TRUE(field<WLineEditZeq>("name")->isDisabled());
    EXPECT_EQ(text("fullName"), "");
    choose("accountEnable", 1);
    EXPECT_EQ(buttons(), "SC");
    save();
    for (const unsigned user : {3u, 4u}) EXPECT_EQ(stored("user", user, "accountEnable"), "disabled");
    EXPECT_EQ(stored("user", 3, "name") + stored("user", 4, "name"), "mhansenjokoro");
    EXPECT_EQ(stored("user", 3, "fullName"), "Marit Hansen");
}

TEST_F(UsersPage, TargetsOfTwoUsers) {
    select({"mhansen", "jokoro"});
    showTab("Targets");
    const std::vector<unsigned> conflict = {3, 6, 8, 9, 10, 11, 12};
    const std::vector<unsigned> both = shownIn(*mover().right());
    EXPECT_EQ(both, (std::vector<unsigned>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    const auto textOf = [&](unsigned tx) { return mover().left()->textAt(mover().left()->rowOf(tx), 1); };
    for (const unsigned tx : conflict) EXPECT_NE(textOf(tx).find("  [conflict]"), std::string::npos) << tx;
    EXPECT_EQ(textOf(20).find("[conflict]"), std::string::npos);

    // A selected row keeps the lists; other users are shown all the same.
    selectTargets(*mover().left(), {3, 20});
    Db::Errors errors;
    Db::db.writeString("user", 3, "fullName", "Marit H", errors);
    tick();
    EXPECT_TRUE(mover().hasSelection());
    mover().apply(Move::Add);
    EXPECT_EQ(buttons(), "SC");
    selectTargets(*mover().right(), {6});
    mover().apply(Move::Remove);
    EXPECT_EQ(storedTargets(4), (std::vector<unsigned>{1, 2, 4, 5, 7, 11, 12})) << "nothing before Save";
    save();
    EXPECT_EQ(storedTargets(3), (std::vector<unsigned>{1, 2, 3, 4, 5, 7, 8, 9, 10, 20}));
    EXPECT_EQ(storedTargets(4), (std::vector<unsigned>{1, 2, 3, 4, 5, 7, 11, 12, 20}));

    selectTargets(*mover().left(), {21});
    select({"lfischer"});
    EXPECT_EQ(shownIn(*mover().right()), (std::vector<unsigned>{1, 7, 8, 9, 21, 22, 23}));
}

TEST_F(UsersPage, AccessToAllIsOneBoxForSeveralUsers) {
    auto* box = widgetsIn<WUsrViewTargets>(view->details()).front()->enableAllCheckBox();
    const auto tick_ = [&](bool on) {
        box->setChecked(on);
        box->changed().emit();
    };
    select({"supervisor", "mhansen"});
    showTab("Targets");
    EXPECT_EQ(box->checkState(), Wt::PartiallyChecked);
    EXPECT_TRUE(mover().left()->isDisabled());
    EXPECT_TRUE(mover().button(Move::RemoveAll)->isDisabled());
    tick_(true);
    EXPECT_TRUE(shownIn(*mover().right()).empty());
    EXPECT_EQ(buttons(), "SC");
    save();
    EXPECT_EQ(stored("user", 3, "allTargetAccess"), "enabled");
    EXPECT_EQ(storedTargets(3).size(), 10u) << "the stored list stays";
    EXPECT_TRUE(box->isChecked());

    tick_(false);
    EXPECT_TRUE(shownIn(*mover().right()).empty());
    EXPECT_FALSE(mover().left()->isDisabled());
    cancel();
    EXPECT_TRUE(box->isChecked());
    tick_(false);
    save();
    EXPECT_EQ(stored("user", 3, "allTargetAccess"), "disabled");
    EXPECT_TRUE(storedTargets(3).empty());
    EXPECT_EQ(box->checkState(), Wt::Unchecked);
}

TEST_F(UsersPage, FavoritesOfUsersThatDifferAndAgree) {
    auto* favorites = widgetsIn<WUsrViewFavTargets>(view->details()).front();
    select({"mhansen", "jokoro"});
    showTab("Favorites");
    EXPECT_TRUE(shownIn(*mover().right()).empty());
    EXPECT_FALSE(favorites->differHint()->isHidden());
    EXPECT_EQ(shownIn(*mover().left()), (std::vector<unsigned>{1, 2, 4, 5, 7})) << "what both may reach";
    selectTargets(*mover().left(), {5});
    mover().apply(Move::Add);
    selectTargets(*mover().left(), {2});
    mover().apply(Move::Add);
    selectTargets(*mover().left(), {7});
    mover().apply(Move::Add);
    EXPECT_TRUE(favorites->differHint()->isHidden());
    selectTargets(*mover().right(), {7});
    mover().apply(Move::Up);
    EXPECT_EQ(mover().right()->selectedZeqIndex(), 7u);
    mover().apply(Move::Up);
    save();
    for (const unsigned user : {3u, 4u}) EXPECT_EQ(storedFavorites(user), (std::vector<unsigned>{7, 5, 2}));
}

TEST_F(UsersPage, WarningsAndRefusals) {
    // The box ticked, then Cancel: nothing is deleted, and the question is never asked again.
    select({"wall"});
    answer([](Wt::WDialog& dialog) {
        auto* box = widgetsIn<Wt::WCheckBox>(&dialog).front();
        box->setChecked(true);
        click(buttonIn(&dialog, "Cancel"));
    });
    clickAction(UserAction::Delete);
    EXPECT_EQ(stored("user", 8, "name"), "wall");
    EXPECT_EQ(stored("user", 1, "enableDeleteUserWarning"), "disabled");
    clickAction(UserAction::Delete);
    EXPECT_EQ(row("wall"), "");
    EXPECT_EQ(actions(), "X...");
}

TEST_F(UsersPage, TwoAdministratorsPressNewInOneSecond) {
    WallClock_setSource([] { return std::time_t{1'800'000'000}; });
    const auto before = names().size();
    clickAction(UserAction::New);
    ASSERT_TRUE(view->newUserPending());
    const std::string first = stored("user", table().selectedZeqIndex(), "name");
    newUserInAnotherSession([&](WUsrView& page) {
        ASSERT_TRUE(page.newUserPending());
        const unsigned own = page.list()->table()->selectedZeqIndex();
        EXPECT_NE(stored("user", own, "name"), first);
        EXPECT_EQ(stored("user", own, "provisional"), "enabled");
        EXPECT_EQ(page.list()->rowCount(), static_cast<int>(before) + 2);
    });
    WallClock_setSource(nullptr);
    cancel();
    EXPECT_EQ(names().size(), before);
}

TEST_F(UsersPage, OsdTimeoutAndCustomKeys) {
    select({"mhansen"});
    showTab("OSD");
    const struct {
        const char* text;
        const char* buttons;
    } rows[] = {{"1441", ".C"}, {"", ".C"}, {"0", "SC"}, {"1440", "SC"}};
    for (const auto& each : rows) {
        type("osdInactivityTimeout", each.text);
        EXPECT_EQ(buttons(), each.buttons) << each.text;
    }
    save();
    unsigned minutes = 0;
    Db::Errors errors;
    EXPECT_EQ(Db::db.readUInt32("user", 3, "osdInactivityTimeout", minutes, errors), 0u);
    EXPECT_EQ(minutes, 1440u);
}

TEST_F(UsersPage, AnIdleRefreshAndAMoveCostLittle) {
    select({"mhansen", "jokoro", "lfischer", "engineer"});
    unsigned long before = zeqExchangeCount();
    showTab("Targets"); // tells the page twice
    EXPECT_LE(zeqExchangeCount() - before, 4u);
    before = zeqExchangeCount();
    selectTargets(*mover().left(), {20});
    mover().apply(Move::Add);
    tick();
    EXPECT_EQ(zeqExchangeCount(), before);
    cancel();
    tick();
    before = zeqExchangeCount();
    tick();
    EXPECT_LE(zeqExchangeCount() - before, 2u);
    before = zeqExchangeCount();
    view->readFromDatabase(true, true);
    EXPECT_LE(zeqExchangeCount() - before, 6u);
}

} // namespace
