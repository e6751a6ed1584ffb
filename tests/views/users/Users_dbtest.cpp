// The Users page: the list, accounts from their making to their deletion, rights and favourites of several users.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "db/ZeqRows.h"
#include "frame/ActionColumn.h"
#include "frame/WNavAccordionStdCell.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqReq.h"
#include "shell/Security.h"
#include "tests/views/PageTest.h"
#include "views/users/WUsrView.h"
#include "views/users/list/WUsrViewList.h"
#include "views/users/tabs/WUsrViewFavTargets.h"
#include "views/users/tabs/WUsrViewOsdFx.h"
#include "views/users/tabs/WUsrViewStatus.h"
#include "views/users/tabs/WUsrViewTargets.h"
#include "widgets/WChangePassword.h"
#include "widgets/WLineEditZeq.h"

#include <Wt/WCheckBox>

#include <algorithm>
#include <thread>

namespace {

class UsersPage : public PageTest {
protected:
    UsersPage() : view(mainTab<WUsrView>()) {
        setDetails(view->details());
        view->readFromDatabase(true, true);
    }

    RecordTable& table() const { return *view->list()->table(); }
    void select(const std::vector<std::string>& names) {
        Wt::WModelIndexSet rows;
        for (int row = 0; row < table().proxy()->rowCount(); ++row) {
            const Wt::WModelIndex index = table().proxy()->index(row, 0);
            if (std::ranges::count(names, table().textAt(index, WUsrViewList::Name)) > 0) rows.insert(index);
        }
        EXPECT_EQ(rows.size(), names.size());
        table().setSelectedIndexes(rows);
        table().selectionChanged().emit();
    }
    std::string row(const std::string& name) const {
        for (int i = 0; i < table().proxy()->rowCount(); ++i) {
            const Wt::WModelIndex index = table().proxy()->index(i, 0);
            if (table().textAt(index, WUsrViewList::Name) != name) continue;
            std::string cells;
            for (int column = 1; column < WUsrViewList::kColumnCount; ++column)
                cells += table().textAt(index, column) + "|";
            return cells;
        }
        return "";
    }
    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (int i = 0; i < table().proxy()->rowCount(); ++i)
            all.push_back(table().textAt(table().proxy()->index(i, 0), WUsrViewList::Name));
        return all;
    }
    void clickAction(UserAction action) { click(view->actionCell(action)->actionButton()); }
    /// X for each enabled action (new, login, logout, delete), . for the others.
    std::string actions() const {
        std::string enabled;
        for (const UserAction action :
             {UserAction::New, UserAction::Login, UserAction::Logout, UserAction::Delete})
            enabled += view->actionCell(action)->actionButton()->isDisabled() ? '.' : 'X';
        return enabled;
    }
    std::string buttons() const {
        return std::string(tab().saveButton()->isDisabled() ? "." : "S") +
               (tab().cancelButton()->isDisabled() ? "." : "C");
    }
    void tick() { view->refreshTimerTimeout(); }
    void typeInto(WLineEditZeq* field, const std::string& text) {
        field->Wt::WLineEdit::setText(text);
        field->blurred().emit();
    }
    WLineEditZeq* password(std::size_t which) const {
        std::size_t seen = 0;
        for (auto* edit : widgetsIn<WLineEditZeq>(&tab()))
            if (edit->key() == std::string("password") && seen++ == which) return edit;
        return nullptr;
    }
    WChangePassword& change() const { return *widgetsIn<WChangePassword>(&tab()).front(); }
    TwoListMover& mover() const { return *dynamic_cast<UsrMoverTab&>(tab()).mover(); }
    static std::vector<unsigned> shownIn(const MoverList& list) {
        std::vector<unsigned> all;
        for (int i = 0; i < list.proxy()->rowCount(); ++i)
            all.push_back(list.zeqIndexAt(list.proxy()->index(i, 0)));
        std::ranges::sort(all);
        return all;
    }
    void selectTargets(MoverList& list, const std::vector<unsigned>& indexes) {
        Wt::WModelIndexSet rows;
        for (const unsigned index : indexes) rows.insert(list.rowOf(index));
        list.setSelectedIndexes(rows);
        list.selectionChanged().emit();
    }
    static std::vector<unsigned> storedTargets(unsigned user) {
        TxPermissions model;
        model.populate({user});
        return model.getTargetsForUser(user)->targets;
    }
    static std::vector<unsigned> storedFavorites(unsigned user) {
        TxFavorites model;
        model.populate({user});
        return model.getTargetsForUser(user)->favorites;
    }
    static bool canLogIn(const char* name, const char* word) {
        unsigned index = 0;
        bool initialized = false;
        MirlSession made;
        std::vector<std::string> errors;
        const bool can = Security_loginMirlUser(name, word, index, initialized, made) == 0;
        if (can) Security_logoutMirlUser(index, made, errors);
        return can;
    }

    WUsrView* view;
};

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
    std::thread([&] {
        AppSession other;
        other.logIn("admin", ZeqdProcess::kAdminPassword);
        Wt::WTabWidget* tabs = other.probe().tabs();
        for (int i = 0; i < tabs->count(); ++i)
            if (auto* page = dynamic_cast<WUsrView*>(tabs->widget(i))) {
                page->readFromDatabase(true, true);
                page->newUsrActionButtonClicked();
                EXPECT_TRUE(page->newUserPending());
                EXPECT_EQ(page->list()->rowCount(), static_cast<int>(before.size()) + 1);
            }
    }).join();
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
    const auto before = names().size();
    clickAction(UserAction::New);
    ASSERT_TRUE(view->newUserPending());
    const std::string first = stored("user", table().selectedZeqIndex(), "name");
    std::thread([&] {
        AppSession other;
        other.logIn("admin", ZeqdProcess::kAdminPassword);
        Wt::WTabWidget* tabs = other.probe().tabs();
        for (int i = 0; i < tabs->count(); ++i)
            if (auto* page = dynamic_cast<WUsrView*>(tabs->widget(i))) {
                page->readFromDatabase(true, true);
                page->newUsrActionButtonClicked();
                ASSERT_TRUE(page->newUserPending());
                const unsigned own = page->list()->table()->selectedZeqIndex();
                EXPECT_NE(stored("user", own, "name"), first);
                EXPECT_EQ(stored("user", own, "provisional"), "enabled");
                EXPECT_EQ(page->list()->rowCount(), static_cast<int>(before) + 2);
            }
    }).join();
    cancel();
    EXPECT_EQ(names().size(), before);
}

/// What "admin" does to himself and to "wall" at once.
class UsersPageOwn : public UsersPage {
protected:
    UsersPageOwn() { select({"admin", "wall"}); }
    bool isOut() { return session.app().isQuited(); }
};

TEST_F(UsersPageOwn, DeletedIsOutAtOnce) {
    answerWith("Delete");
    clickAction(UserAction::Delete);
    EXPECT_TRUE(isOut());
    EXPECT_EQ(shown.size(), 1u) << "the others came first, so nothing was refused";
}

TEST_F(UsersPageOwn, DisabledIsOutAtOnce) {
    choose("accountEnable", 1);
    save();
    EXPECT_TRUE(isOut());
    EXPECT_TRUE(shown.empty());
}

TEST_F(UsersPageOwn, DemotedIsOutAtOnce) {
    showTab("Permissions");
    choose("role", 0);
    save();
    EXPECT_TRUE(isOut());
    EXPECT_TRUE(shown.empty());
}

TEST_F(UsersPageOwn, WhoKeepsHisRightsWorksOn) {
    choose("allowBlankPassword", 1);
    save();
    EXPECT_FALSE(isOut());
    select({"trainee"});
    answerWith("Delete");
    clickAction(UserAction::Delete);
    EXPECT_FALSE(isOut());
    EXPECT_EQ(row("trainee"), "");
    // The last administrator stays, and stays in.
    select({"supervisor"});
    answerWith("Delete");
    clickAction(UserAction::Delete);
    select({"admin"});
    answerWith("Delete");
    answerWith("Close");
    clickAction(UserAction::Delete);
    EXPECT_FALSE(isOut());
    EXPECT_NE(row("admin"), "");
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

/// The page's keys as "ACTION TARGET"; "?" is the blank item, "-" a target that cannot be chosen.
class UsersPageFx : public UsersPage {
protected:
    WUsrViewOsdFxTable& fx() const { return *widgetsIn<WUsrViewOsdFxTable>(&tab()).front(); }
    std::string shownOf(std::size_t key) const {
        const WOsdHotkeyFunc* action = fx().action(key - 1);
        const WTarget* target = fx().target(key - 1);
        return (action->isShowingConflict() ? "?" : action->selection()) + " " +
               (target->isDisabled() && target->count() == 0 ? "-" : target->currentText().toUTF8());
    }
    void chooseAction(std::size_t key, int number) {
        fx().action(key - 1)->setCurrentIndex(number - 1); // items stand by their numbers, from 1
        fx().action(key - 1)->changed().emit();
    }
    void chooseTarget(std::size_t key, const std::string& eid) {
        WTarget* target = fx().target(key - 1);
        for (int i = 0; i < target->count(); ++i)
            if (target->itemText(i).toUTF8().starts_with(eid)) target->setCurrentIndex(i);
        target->changed().emit();
    }
    /// "ACTION EID" as stored; "" without an entry.
    static std::string storedKey(unsigned user, const std::string& key) {
        std::vector<std::string> errors;
        ZeqExchange exchange(ZeqReqUtil_newGetResource, "user", "test");
        ZeqReqUtil_setSelect(exchange.request(), "keySettings");
        ZeqReqUtil_setIntegerQuery(exchange.request(), "index", user);
        EXPECT_EQ(exchange.send(errors), 0u);
        for (const ZeqRow row : ZeqRows(exchange.response()))
            for (const ZeqRow entry :
                 ZeqRows(json_object_get(json_object_get(row.json(), "keySettings"), "osdShortCuts")))
                if (entry.text("functionKey") == key) return entry.text("action") + " " + entry.text("txEID");
        return "";
    }
};

TEST_F(UsersPageFx, FunctionKeysOfOneUser) {
    select({"mhansen"});
    showTab("OSD F1-F12");
    EXPECT_EQ(shownOf(1).substr(0, 35), "connect_to_target_x 00A703-03000D (");
    EXPECT_EQ(shownOf(12), "logout_and_disconnect -");
    EXPECT_EQ(fx().target(0)->count(), 10) << "his targets, no others";
    chooseAction(12, 5);
    EXPECT_EQ(buttons(), "SC");
    EXPECT_FALSE(fx().target(11)->isDisabled());
    EXPECT_EQ(shownOf(12), "connect_to_target_x ") << "none is chosen for him";
    chooseTarget(12, "00A703-03000D");
    chooseAction(2, 7);
    EXPECT_EQ(shownOf(2), "enumerate_keyboard -");
    chooseAction(2, 5);
    EXPECT_EQ(shownOf(2).substr(0, 34), "connect_to_target_x 00A703-030041 ") << "what is stored comes back";
    EXPECT_EQ(shownOf(12).substr(0, 34), "connect_to_target_x 00A703-03000D ") << "an edit stays";
    chooseAction(2, 7);
    EXPECT_EQ(storedKey(3, "f12"), "logout_and_disconnect ") << "nothing before Save";
    tick();
    EXPECT_EQ(shownOf(2), "enumerate_keyboard -");
    save();
    EXPECT_EQ(storedKey(3, "f1"), "connect_to_target_x 00A703-03000D");
    EXPECT_EQ(storedKey(3, "f2").substr(0, 19), "enumerate_keyboard ");
    EXPECT_EQ(storedKey(3, "f12"), "connect_to_target_x 00A703-03000D");
    EXPECT_EQ(buttons(), "..");
    EXPECT_EQ(shownOf(12).substr(0, 34), "connect_to_target_x 00A703-03000D ");

    chooseAction(12, 1);
    cancel();
    EXPECT_EQ(shownOf(12).substr(0, 34), "connect_to_target_x 00A703-03000D ");
    // A target that he may no longer reach stays his, shown blank, until another one is chosen.
    Db::Errors errors;
    TxPermissions access;
    access.populate({3});
    access.disallowAll();
    ASSERT_EQ(access.writeToDatabase(errors), 0u);
    select({"mhansen"});
    EXPECT_EQ(shownOf(1), "connect_to_target_x ");
    chooseAction(4, 8);
    save();
    EXPECT_EQ(storedKey(3, "f1"), "connect_to_target_x 00A703-03000D");
    EXPECT_EQ(storedKey(3, "f4").substr(0, 16), "enumerate_mouse ");
}

TEST_F(UsersPageFx, FunctionKeysOfUsersThatDiffer) {
    select({"mhansen", "jokoro"});
    showTab("OSD F1-F12");
    for (const std::size_t key : {1u, 3u, 12u}) EXPECT_EQ(shownOf(key), "? -") << key;
    const std::string f1[] = {storedKey(3, "f1"), storedKey(4, "f1")};
    chooseAction(3, 5);
    EXPECT_EQ(fx().target(2)->count(), 5 + 1) << "what both may reach, and the blank item";
    chooseTarget(3, "00A703-03000D");
    EXPECT_EQ(buttons(), "SC");
    save();
    for (const unsigned user : {3u, 4u})
        EXPECT_EQ(storedKey(user, "f3"), "connect_to_target_x 00A703-03000D") << user;
    EXPECT_EQ(storedKey(3, "f1"), f1[0]);
    EXPECT_EQ(storedKey(4, "f1"), f1[1]);
    EXPECT_EQ(storedKey(3, "f12"), "logout_and_disconnect ");
    EXPECT_EQ(shownOf(1), "? -");
    EXPECT_EQ(shownOf(3).substr(0, 34), "connect_to_target_x 00A703-03000D ");

    // One action, two targets: the target alone is blank, and stays with each of them.
    select({"jokoro"});
    chooseAction(1, 5);
    chooseTarget(1, "00A703-030041");
    save();
    const std::string own = storedKey(4, "f1");
    select({"mhansen", "jokoro"});
    EXPECT_EQ(shownOf(1), "connect_to_target_x ");
    chooseAction(9, 10);
    save();
    EXPECT_EQ(storedKey(3, "f1"), f1[0]);
    EXPECT_EQ(storedKey(4, "f1"), own);

    // Three users, of whom the first and the last agree.
    select({"mhansen", "jokoro", "lfischer"});
    chooseAction(5, 3);
    save();
    select({"jokoro"});
    chooseAction(5, 4);
    save();
    select({"mhansen", "jokoro", "lfischer"});
    EXPECT_EQ(shownOf(5), "? -");

    // Administrators with access to all choose among all Transmitters.
    select({"admin", "supervisor"});
    chooseAction(5, 5);
    EXPECT_GT(fx().target(4)->count(), 25);
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
