// The Cascade page: what it shows of the two Switches, and which actions it allows in every state.

#include "db/ZeqExchange.h"
#include "frame/WNavAccordionStdCell.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "tests/views/PageTest.h"
#include "views/cascade/WCascadeView.h"
#include "views/cascade/WCascadeViewDetails.h"
#include "views/cascade/WCascadeViewInfo.h"
#include "views/cascade/WCascadeViewInfoTable.h"
#include "views/cascade/WLinkPeerDialog.h"
#include "views/cascade/WLinkPeerDialogSwxList.h"

#include <Wt/WAnchor>
#include <Wt/WText>

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

constexpr const char* kMain = "00A701-010001";
constexpr const char* kAnnex = "00A701-010002";

class CascadePage : public PageTest {
protected:
    CascadePage() : view(mainTab<WCascadeView>()) { view->readFromDatabase(); }

    void clickAction(CascadeAction action) { click(view->actionCell(action)->actionButton()); }
    void tick() { view->refreshTimerTimeout(); }
    /// L, U, R, P for each enabled action, . for the others.
    std::string actions() const {
        std::string enabled;
        for (int i = 0; i < 4; ++i)
            enabled += view->actionCell(static_cast<CascadeAction>(i))->actionButton()->isDisabled()
                           ? '.'
                           : "LURP"[i];
        return enabled;
    }
    /// Values of the master's rows (0) or the peer's (1), from the name to the role.
    std::string values(int group) const {
        std::string all;
        WCascadeViewInfoTable* table = view->details()->info()->table();
        for (int row = 0; row < 7; ++row) {
            Wt::WWidget* value = table->elementAt(2 + group * 9 + row, 1)->children().front();
            const auto* anchor = dynamic_cast<Wt::WAnchor*>(value);
            all += (anchor ? anchor->text() : dynamic_cast<Wt::WText&>(*value).text()).toUTF8() + "|";
        }
        return all;
    }
    bool notice() const { return !view->details()->info()->notice()->isHidden(); }
    static void global(const char* key, const std::string& value) {
        poke("systemGlobals", 0, key, value.c_str());
    }
    void link() {
        answer([](Wt::WDialog& dialog) {
            auto* list = dynamic_cast<WLinkPeerDialog&>(dialog).list();
            list->setSelectedIndexes(Wt::WModelIndexSet{list->proxy()->index(0, 0)});
            list->selectionChanged().emit();
            click(buttonIn(&dialog, "Select"));
        });
        clickAction(CascadeAction::Link);
    }
    /// The peer has copied the settings.
    static void standBy() { poke("swx", 2, "cascadeRole", "backup"); }

    WCascadeView* view;
};

TEST_F(CascadePage, NothingIsAllowedBeforeTheFirstReadAndLinkingAfterIt) {
    auto* fresh = new WCascadeView(session.app().root());
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(fresh->actionCell(static_cast<CascadeAction>(i))->actionButton()->isDisabled()) << i;
    EXPECT_EQ(actions(), "L...");
    EXPECT_EQ(values(0), std::string("Main Hall Switch|") + kMain +
                             "|Ready|10.20.1.10|fd20:1::10|Switch is a cascade master|Controller|");
    EXPECT_EQ(values(1), "|||||||");
    EXPECT_FALSE(notice());
    view->contentChangedHandler();
    EXPECT_EQ(actions(), "....");
    tick();
    EXPECT_EQ(actions(), "L...");
}

/// Every combination of peer, who controls, and status and role of the Switch that would take over, against the steps
/// by which an engineer would decide.
TEST_F(CascadePage, ActionsFollowTheState) {
    const char* statuses[] = {"offline", "ready", "resetting", "dc_connected", "conflict_is_master"};
    const char* roles[] = {"not_present", "controller", "slave", "backup"};
    int switches = 0;
    for (const std::string& peer : {std::string(), std::string(kAnnex), std::string("00A701-999999")}) {
        for (const bool peerControls : {false, true}) {
            for (const char* master : {kMain, kAnnex, "00A701-999999"}) {
                global("peerControllerSwitchEid", peer);
                global("cascadeController", peerControls ? "peer" : "master");
                global("masterSwitchEid", master);
                for (const std::string status : statuses) {
                    for (const std::string role : roles) {
                        // The one that is not asked never fits.
                        unsigned standby = peer == kAnnex ? 2 : 0;
                        if (peerControls && master == std::string(kMain)) standby = 1;
                        if (peerControls && master == std::string(kAnnex)) standby = 2;
                        for (const unsigned swx : {1u, 2u}) {
                            poke("swx", swx, "status", (swx == standby ? status : "offline").c_str());
                            poke("swx", swx, "cascadeRole", (swx == standby ? role : "slave").c_str());
                        }
                        std::string expected = "....";
                        if (peer == kAnnex)
                            expected[1] = 'U';
                        else
                            expected[0] = 'L';
                        if (peerControls) {
                            expected[3] = 'P';
                            expected[1] = '.';
                        }
                        if (standby != 0 && status == "ready" && role == "backup") expected[2] = 'R';
                        tick();
                        EXPECT_EQ(actions(), expected)
                            << "peer '" << peer << "', controls " << peerControls << ", master " << master
                            << ", " << status << " " << role;
                        switches += expected[2] == 'R';
                    }
                }
            }
        }
    }
    EXPECT_EQ(switches, 10);
}

TEST_F(CascadePage, LinksAPeerAndUnlinksIt) {
    answer([](Wt::WDialog& dialog) {
        EXPECT_TRUE(buttonIn(&dialog, "Select")->isDisabled());
        EXPECT_EQ(dynamic_cast<WLinkPeerDialog&>(dialog).list()->rowCount(), 1);
        click(buttonIn(&dialog, "Cancel"));
    });
    clickAction(CascadeAction::Link);
    EXPECT_EQ(stored("systemGlobals", 0, "peerControllerSwitchEid"), "");
    EXPECT_EQ(actions(), "L...");
    link();
    EXPECT_EQ(stored("systemGlobals", 0, "peerControllerSwitchEid"), kAnnex);
    EXPECT_EQ(actions(), ".U..");
    EXPECT_THAT(values(1), HasSubstr("10.20.1.11"));
    standBy();
    tick();
    EXPECT_EQ(actions(), ".UR.");
    EXPECT_THAT(values(1), HasSubstr("Backup controller"));
    clickAction(CascadeAction::Unlink);
    EXPECT_EQ(actions(), "....") << "until the next refresh";
    tick();
    EXPECT_EQ(actions(), "L...");
    EXPECT_EQ(values(1), "|||||||") << "nothing of the former peer stays";
}

TEST_F(CascadePage, APeerThatWentAwayMeanwhileIsTold) {
    answer([](Wt::WDialog& dialog) {
        auto* list = dynamic_cast<WLinkPeerDialog&>(dialog).list();
        list->setSelectedIndexes(Wt::WModelIndexSet{list->proxy()->index(0, 0)});
        list->selectionChanged().emit();
        poke("swx", 2, "status", "offline");
        click(buttonIn(&dialog, "Select"));
    });
    answerWith("Close");
    clickAction(CascadeAction::Link);
    EXPECT_EQ(stored("systemGlobals", 0, "peerControllerSwitchEid"), "");
}

TEST_F(CascadePage, OffersOnlySwitchesThatCanStandBy) {
    const struct {
        const char* key;
        const char* value;
        const char* good;
    } rows[] = {{"status", "offline", "ready"},
                {"mode", "master", "slave"},
                {"usage", "exceeds_unmanaged_capacity", "usable"}};
    for (const auto& row : rows) {
        poke("swx", 2, row.key, row.value);
        WLinkPeerDialog dialog;
        EXPECT_EQ(dialog.list()->rowCount(), 0) << row.key;
        poke("swx", 2, row.key, row.good);
        dialog.list()->readFromDatabase();
        EXPECT_EQ(dialog.list()->rowCount(), 1) << row.key;
    }
}

TEST_F(CascadePage, TheSwitchOfRolesIsAsked) {
    link();
    standBy();
    tick();
    answerWith("Cancel");
    clickAction(CascadeAction::RoleSwitch);
    EXPECT_EQ(actions(), ".UR.") << "Cancel puts it back";
    EXPECT_EQ(stored("systemGlobals", 0, "cascadeController"), "master");
    answer([](Wt::WDialog& dialog) { dialog.reject(); });
    clickAction(CascadeAction::RoleSwitch);
    EXPECT_EQ(stored("systemGlobals", 0, "cascadeController"), "master");
    answerWith("Proceed");
    clickAction(CascadeAction::RoleSwitch);
    EXPECT_EQ(stored("systemGlobals", 0, "cascadeController"), "peer");
    EXPECT_EQ(actions(), ".U..") << "until the next refresh";
}

TEST_F(CascadePage, WhatIsRefusedIsSaid) {
    link();
    standBy();
    tick();
    poke("swx", 2, "status", "offline");
    answerWith("Proceed");
    answer([](Wt::WDialog& dialog) {
        EXPECT_THAT(textIn(&dialog), HasSubstr("backup"));
        dialog.reject();
    });
    clickAction(CascadeAction::RoleSwitch);
    global("cascadeController", "peer");
    tick();
    EXPECT_EQ(actions(), "...P");
    global("peerControllerSwitchEid", "");
    answer([](Wt::WDialog& dialog) { dialog.reject(); });
    clickAction(CascadeAction::Promote);
    EXPECT_EQ(shown.size(), 4U);
}

TEST_F(CascadePage, ShowsThatTheRolesAreSwitched) {
    global("masterSwitchEid", kAnnex);
    tick();
    EXPECT_TRUE(notice());
    EXPECT_THAT(values(0), HasSubstr("Annex Switch"));
    global("masterSwitchEid", "00A701-999999");
    tick();
    EXPECT_TRUE(notice()) << "a master that is not there changes nothing";
    EXPECT_THAT(values(0), HasSubstr("Annex Switch"));
    global("masterSwitchEid", kMain);
    tick();
    EXPECT_FALSE(notice());
}

TEST_F(CascadePage, ARefreshCostsSixRequestsAndWithoutAServiceChangesNothing) {
    link();
    standBy();
    tick();
    const unsigned long before = zeqExchangeCount();
    tick();
    EXPECT_EQ(zeqExchangeCount() - before, 6U);
    zeqd.stop();
    tick();
    EXPECT_EQ(actions(), ".UR.");
}

} // namespace
