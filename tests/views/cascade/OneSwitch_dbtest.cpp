// The pages of a managed and of a slave Switch: what they show, judge, save and ask, and that each has a way out.

#include "db/Db.h"
#include "db/ThisSwx.h"
#include "db/ZeqExchange.h"
#include "frame/ActionColumn.h"
#include "frame/WNavAccordionStdCell.h"
#include "platform/client/ZeqReq.h"
#include "tests/views/PageTest.h"
#include "views/cascade/ManagedRows.h"
#include "views/cascade/OneSwitchActions.h"
#include "views/cascade/WManagedView.h"
#include "views/cascade/WManagedViewSwxModeTable.h"
#include "views/cascade/WSlaveSettingsView.h"
#include "views/cascade/WSlaveSettingsViewSwxModeTable.h"
#include "widgets/WChangePassword.h"
#include "widgets/WManagementMode.h"
#include "widgets/WSwxCombinedMode.h"

#include <Wt/WAnchor>
#include <Wt/WComboBox>
#include <Wt/WLineEdit>

#include <gmock/gmock.h>
#include <thread>

namespace {

using testing::HasSubstr;
using testing::Not;

class OneSwitch : public PageTest {
protected:
    static void global(const char* key, const char* value) { poke("systemGlobals", 0, key, value); }
    static void place(const char* mode, const char* role) {
        poke("swx", kThisSwxIndex, "mode", mode);
        poke("swx", kThisSwxIndex, "cascadeRole", role);
    }
    template <class View>
    View* open() {
        auto* view = new View(session.app().root());
        view->readFromDatabase(true);
        mPage = view;
        return view;
    }

    template <class Widget>
    Widget* fieldOf(const char* resource, const std::string& key) const {
        for (Widget* widget : widgetsIn<Widget>(mPage)) {
            const auto* bound = dynamic_cast<WWidgetZeq*>(widget);
            if (bound && bound->resource() == std::string(resource) && bound->key() == key) return widget;
        }
        return nullptr;
    }
    void typeIn(const char* resource, const char* key, const std::string& text) {
        auto* line = fieldOf<Wt::WLineEdit>(resource, key);
        ASSERT_NE(line, nullptr) << key;
        line->Wt::WLineEdit::setText(text);
        line->blurred().emit();
    }
    void chooseIn(Wt::WComboBox* box, int item) {
        ASSERT_NE(box, nullptr);
        box->setCurrentIndex(item);
        box->changed().emit();
    }
    std::string lineText(const char* resource, const char* key) const {
        return fieldOf<Wt::WLineEdit>(resource, key)->text().toUTF8();
    }
    /// "S" and "C" for what is enabled of Save and Cancel.
    std::string buttons() const {
        return std::string(mPage->saveButton()->isDisabled() ? "." : "S") +
               (mPage->cancelButton()->isDisabled() ? "." : "C");
    }
    void savePage() { click(mPage->saveButton()); }
    void action(OneSwitchAction which) {
        click(mPage->actions()->cell(static_cast<std::size_t>(which))->actionButton());
    }
    void closes() {
        answer([](Wt::WDialog& dialog) { dialog.reject(); });
    }

    OneSwitchPage* mPage = nullptr;
};

/// A place of this Switch, as the page finds it: the rows it has, those it only shows in lower case.
TEST(ManagedRows, FollowThePlaceOfTheSwitch) {
    const auto named = [](const SettingsRow& row) {
        const std::string key = row.key[0] != '\0' ? row.key : row.label;
        const struct {
            const char* key;
            char letter;
        } letters[] = {{"managedSetting", 'G'},
                       {"mode", 'M'},
                       {"switchApiPort", 'S'},
                       {"managerApiPort", 'T'},
                       {"masterSwitchEid", 'E'},
                       {"managerIpAddress", 'P'},
                       {"auxiliaryManagerIpAddress", 'A'}};
        for (const auto& letter : letters)
            if (key == letter.key)
                return row.editable ? static_cast<char>(letter.letter + 32) : letter.letter;
        return '-';
    };
    const struct {
        bool master, controller, backup;
        const char* rows;
    } cases[] = {
        {false, false, false, "GmSTEPA----"}, {true, false, false, "GMSTEPA----"},
        {false, true, false, "GePA----"},     {true, true, false, "GePA----"},
        {false, false, true, "GmSTepa----"},  {true, false, true, "GMSTepa----"},
        {false, true, true, "Gepa----"},      {true, true, true, "Gepa----"},
    };
    for (const auto& row : cases) {
        std::string rows;
        for (const SettingsRow& shown :
             managedRows({.master = row.master, .controller = row.controller, .backup = row.backup}))
            rows += named(shown);
        EXPECT_EQ(rows, row.rows) << row.master << row.controller << row.backup;
        EXPECT_EQ(rows.front(), 'G') << "every one of them can leave management";
    }
}

TEST_F(OneSwitch, ManagedPageSavesEveryPartOfItselfAtOnce) {
    global("managedSetting", "verified");
    place("slave", "slave");
    open<WManagedView>();
    EXPECT_EQ(buttons(), "..");
    typeIn("systemGlobals", "switchApiPort", "65536");
    EXPECT_EQ(buttons(), ".C");
    typeIn("systemGlobals", "switchApiPort", "65535");
    EXPECT_EQ(buttons(), "SC");
    typeIn("swx/network/ipv4", "gatewayAddress", "10.20.1.2");
    typeIn("swx/network/ipv6", "gatewayAddress", "x");
    typeIn("user", "fullName", "Night shift");
    mPage->refreshTimerTimeout();
    EXPECT_EQ(lineText("user", "fullName"), "Night shift") << "a refresh leaves what was typed";
    savePage();
    EXPECT_EQ(stored("systemGlobals", 0, "switchApiPort"), "65535");
    EXPECT_EQ(stored("user", Db::db.getIndexOfCurrentlyLoggedInMirlUsr(), "fullName"), "Night shift");
    EXPECT_EQ(lineText("swx/network/ipv4", "gatewayAddress"), "10.20.1.2");
    EXPECT_EQ(buttons(), "..");
    EXPECT_FALSE(mPage->anythingChanged());
    EXPECT_TRUE(shown.empty());
}

/// What the box says, and the address that its link opens.
std::string linkIn(Wt::WDialog& dialog) {
    const auto links = widgetsIn<Wt::WAnchor>(&dialog);
    return links.empty() ? "no link" : links.front()->link().url();
}

TEST_F(OneSwitch, ANewAddressOfItsOwnIsTold) {
    open<WManagedView>();
    const auto told = [this](const char* expected) {
        answer([expected](Wt::WDialog& dialog) {
            EXPECT_THAT(linkIn(dialog), testing::StartsWith(expected));
            click(buttonIn(&dialog, "Close"));
        });
    };
    told("https://10.20.1.77");
    typeIn("swx/network/ipv4", "ipAddress", "10.20.1.77");
    savePage();
    typeIn("swx/network/ipv4", "gatewayAddress", "10.20.1.3");
    savePage();
    EXPECT_EQ(shown.size(), 1U) << "the gateway moves nothing";
    told("no link");
    chooseIn(fieldOf<Wt::WComboBox>("swx/network/ipv4", "ipv4ConfMethod"), 0);
    savePage();
    EXPECT_THAT(shown.back(), HasSubstr("from the network"));
    told("https://[fd20:1::77]");
    chooseIn(fieldOf<Wt::WComboBox>("swx/network/ipv6", "ipv6ConfMethod"), 3);
    typeIn("swx/network/ipv6", "ipAddress", "fd20:1::77");
    savePage();
}

TEST_F(OneSwitch, CancelShowsWhatIsStored) {
    open<WManagedView>();
    const std::string before = lineText("systemGlobals", "managerIpAddress");
    typeIn("systemGlobals", "managerIpAddress", "10.9.9.9");
    EXPECT_TRUE(mPage->anythingChanged());
    click(mPage->cancelButton());
    EXPECT_EQ(lineText("systemGlobals", "managerIpAddress"), before);
    EXPECT_EQ(buttons(), "..");
}

TEST_F(OneSwitch, AManagedMasterLeavesByRebooting) {
    global("managedSetting", "verified");
    place("master", "backup");
    auto* view = open<WManagedView>();
    closes();
    chooseIn(dynamic_cast<Wt::WComboBox*>(fieldOf<WSwxCombinedMode>("systemGlobals", "managedSetting")), 0);
    EXPECT_THAT(shown.back(), HasSubstr("this master Switch"));
    EXPECT_EQ(view->modeTable()->becomesUnmanagedMaster(), true);
    closes();
    savePage();
    EXPECT_THAT(shown.back(), HasSubstr("Managed mode change. Rebooting now."));
    EXPECT_EQ(stored("systemGlobals", 0, "managedSetting"), "non_managed");
    EXPECT_EQ(stored("swx", kThisSwxIndex, "status"), "resetting");
}

TEST_F(OneSwitch, WhatIsRefusedStandsInOneBoxAndTheRebootHappensAllTheSame) {
    global("managedSetting", "verified");
    place("master", "backup"); // whose addresses are the controller's
    open<WManagedView>();
    closes();
    chooseIn(dynamic_cast<Wt::WComboBox*>(fieldOf<WSwxCombinedMode>("systemGlobals", "managedSetting")), 0);
    typeIn("swx/network/ipv4", "gatewayAddress", "10.20.1.77");
    typeIn("swx/network/ipv6", "ipAddress", "fd20:1::77");
    typeIn("user", "name", "operator1"); // another account's
    closes();
    closes();
    savePage();
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_THAT(shown[1], HasSubstr("backup"));
    EXPECT_THAT(shown[2], HasSubstr("Rebooting now."));
    EXPECT_EQ(stored("swx", kThisSwxIndex, "status"), "resetting");
}

TEST_F(OneSwitch, AManagedSlaveOrControllerLeavesByEnrolment) {
    for (const char* role : {"slave", "controller"}) {
        global("managedSetting", "verified");
        place(role == std::string("slave") ? "slave" : "master", role);
        auto* view = open<WManagedView>();
        EXPECT_EQ(view->modeTable()->combinedMode() == nullptr, role == std::string("controller"));
        if (view->modeTable()->combinedMode()) {
            EXPECT_TRUE(view->modeTable()->combinedMode()->isDisabled());
        }
        closes();
        chooseIn(view->modeTable()->management(), 0);
        EXPECT_THAT(shown.back(), HasSubstr("out of management"));
        savePage();
        EXPECT_THAT(stored("systemGlobals", 0, "managedSetting"),
                    testing::AnyOf("unenrolling", "non_managed"))
            << role;
        EXPECT_EQ(stored("swx", kThisSwxIndex, "status"), "ready") << "without a reboot";
    }
}

TEST_F(OneSwitch, ThePasswordIsTheLoggedInAdministrators) {
    open<WManagedView>();
    auto* change = fieldOf<Wt::WComboBox>("user", "accountEnable"); // any box of that table, to find it
    ASSERT_NE(change, nullptr);
    std::vector<Wt::WLineEdit*> pair;
    for (auto* line : widgetsIn<Wt::WLineEdit>(mPage))
        if (auto* bound = dynamic_cast<WWidgetZeq*>(line); bound && bound->key() == std::string("password"))
            pair.push_back(line);
    ASSERT_EQ(pair.size(), 2U);
    auto boxes = widgetsIn<WChangePassword>(mPage);
    ASSERT_EQ(boxes.size(), 1U);
    chooseIn(boxes[0], 1);
    EXPECT_EQ(buttons(), ".C") << "mandatory";
    const auto enter = [](Wt::WLineEdit& line, const char* text) {
        line.Wt::WLineEdit::setText(text);
        line.blurred().emit();
    };
    enter(*pair[0], "new-secret-1");
    EXPECT_EQ(buttons(), ".C");
    chooseIn(boxes[0], 0);
    EXPECT_EQ(pair[0]->text(), "") << "what is not to be changed is not kept";
    chooseIn(boxes[0], 1);
    enter(*pair[0], "new-secret-1");
    enter(*pair[1], "new-secret-1");
    EXPECT_EQ(buttons(), "SC");
    const unsigned self = Db::db.getIndexOfCurrentlyLoggedInMirlUsr();
    const std::string name = stored("user", self, "name");
    savePage();
    EXPECT_EQ(name, "admin");
    EXPECT_EQ(buttons(), "..");
    for (const char* password : {"new-secret-1", ZeqdProcess::kAdminPassword}) {
        ZeqExchange login(ZeqPtr(ZeqReqUtil_newCreateResource("adminSession")), __func__);
        ZeqReqUtil_setStringParam(login.request(), "username", "admin");
        ZeqReqUtil_setStringParam(login.request(), "password", password);
        EXPECT_EQ(login.sendQuietly(), password == std::string("new-secret-1") ? 0U : 1U) << password;
    }
}

TEST_F(OneSwitch, AnotherAdministratorSeesHisOwnAccount) {
    ZeqExchange created(ZeqPtr(ZeqReqUtil_newCreateResource("user")), __func__);
    for (const auto& [key, value] :
         {std::pair("name", "second"), {"role", "admin"}, {"password", "Second-1"}})
        ZeqReqUtil_setStringParam(created.request(), key, value);
    ASSERT_EQ(created.sendQuietly(), 0U);
    std::string shownName;
    std::thread([&] {
        AppSession other;
        other.logIn("second", "Second-1");
        WManagedView page(other.app().root());
        page.readFromDatabase(true);
        for (auto* line : widgetsIn<Wt::WLineEdit>(&page))
            if (auto* bound = dynamic_cast<WWidgetZeq*>(line);
                bound && bound->resource() == std::string("user") && bound->key() == std::string("name"))
                shownName = line->text().toUTF8();
    }).join();
    EXPECT_EQ(shownName, "second");
}

TEST_F(OneSwitch, ARefreshLeavesTheTableThatIsBeingTypedIn) {
    open<WManagedView>();
    auto* name = fieldOf<Wt::WLineEdit>("user", "fullName");
    name->setFocus();
    poke("user", 1, "fullName", "Somebody");
    global("managerIpAddress", "10.8.8.8");
    mPage->refreshTimerTimeout();
    EXPECT_EQ(name->text(), "System Administrator");
    EXPECT_EQ(lineText("systemGlobals", "managerIpAddress"), "10.8.8.8");
    name->setFocus(false);
    mPage->refreshTimerTimeout();
    EXPECT_EQ(name->text(), "Somebody");
}

TEST_F(OneSwitch, RebootFlashAndPromoteAskFirst) {
    open<WManagedView>();
    answerWith("Cancel");
    action(OneSwitchAction::Reboot);
    EXPECT_EQ(stored("swx", kThisSwxIndex, "status"), "ready");
    answer([](Wt::WDialog& dialog) { click(buttonIn(&dialog, "Flash")); });
    answerWith("Close");
    action(OneSwitchAction::Flash);
    EXPECT_EQ(stored("swx", kThisSwxIndex, "lcdBacklightFlash"), "enabled");
    answerWith("Cancel");
    action(OneSwitchAction::Promote);
    answerWith("Proceed");
    closes(); // refused: there is no peer
    action(OneSwitchAction::Promote);
    answerWith("Reboot");
    closes();
    action(OneSwitchAction::Reboot);
    EXPECT_EQ(stored("swx", kThisSwxIndex, "status"), "resetting");
}

TEST_F(OneSwitch, SlavePageBecomesMasterAndReboots) {
    place("slave", "slave");
    global("masterSwitchEid", "00A701-010002");
    auto* view = open<WSlaveSettingsView>();
    EXPECT_THAT(mPage->explanation()->text().toUTF8(), HasSubstr("is a slave"));
    auto* eid = fieldOf<Wt::WLineEdit>("systemGlobals", "masterSwitchEid");
    ASSERT_NE(eid, nullptr);
    EXPECT_EQ(eid->text(), "00A701-010002");
    EXPECT_FALSE(eid->isDisabled());
    auto* mode = fieldOf<Wt::WComboBox>("swx", "mode");
    closes();
    chooseIn(mode, 0);
    EXPECT_EQ(eid->text(), "");
    EXPECT_TRUE(eid->isDisabled());
    EXPECT_THAT(mPage->explanation()->text().toUTF8(), HasSubstr("is to be a master"));
    EXPECT_TRUE(view->anythingChanged());
    chooseIn(mode, 1);
    EXPECT_FALSE(eid->isDisabled());
    EXPECT_THAT(mPage->explanation()->text().toUTF8(), HasSubstr("is a slave"));
    EXPECT_EQ(shown.size(), 1U) << "only the choice of a master warns";
    closes();
    chooseIn(mode, 0);
    closes();
    savePage();
    EXPECT_THAT(shown.back(), HasSubstr("Master/slave mode change. Rebooting now."));
    EXPECT_EQ(stored("swx", kThisSwxIndex, "mode"), "master");
    EXPECT_EQ(stored("systemGlobals", 0, "masterSwitchEid"), "00A701-010001") << "its own master now";
    EXPECT_EQ(stored("swx", kThisSwxIndex, "status"), "resetting");
}

TEST_F(OneSwitch, ANewMasterIsSavedWithoutAReboot) {
    place("slave", "slave");
    open<WSlaveSettingsView>();
    typeIn("systemGlobals", "masterSwitchEid", "no EID");
    EXPECT_EQ(buttons(), "SC") << "on purpose it is not judged";
    savePage();
    EXPECT_EQ(stored("systemGlobals", 0, "masterSwitchEid"), "00A701-010001");
    typeIn("systemGlobals", "masterSwitchEid", "00A701-010002");
    savePage();
    EXPECT_EQ(stored("systemGlobals", 0, "masterSwitchEid"), "00A701-010002");
    EXPECT_EQ(stored("swx", kThisSwxIndex, "status"), "ready");
}

TEST_F(OneSwitch, ABackupCanOnlyBePromoted) {
    place("slave", "slave");
    open<WSlaveSettingsView>();
    auto* mode = fieldOf<Wt::WComboBox>("swx", "mode");
    EXPECT_FALSE(mode->isDisabled());
    EXPECT_THAT(textIn(mPage), Not(HasSubstr("Promote")));
    place("slave", "backup");
    mPage->refreshTimerTimeout();
    EXPECT_TRUE(mode->isDisabled());
    EXPECT_THAT(textIn(mPage), HasSubstr("Promote"));
    answerWith("Proceed");
    closes();
    action(OneSwitchAction::Promote);
    place("slave", "slave");
    mPage->refreshTimerTimeout();
    EXPECT_TRUE(mPage->actions()
                    ->cell(static_cast<std::size_t>(OneSwitchAction::Promote))
                    ->actionButton()
                    ->isDisabled());
}

} // namespace
