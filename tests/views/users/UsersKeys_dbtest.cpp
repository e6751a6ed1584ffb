// The Users page: function keys of one user and of several; what one does to one's own account.

#include "tests/views/users/UsersPage.h"

namespace {

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
    type("fullName", "Works On");
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

} // namespace
