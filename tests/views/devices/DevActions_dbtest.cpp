// Actions on the selected devices.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "db/ZeqRows.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqReq.h"
#include "tests/views/devices/DevicesPage.h"
#include "views/devices/list/WDevViewList.h"
#include "widgets/WLineEditPlus.h"

#include <Wt/WCheckBox>

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(DevicesPage, RestoreSkipsThisSwitchWhenToldAndCountsIt) {
    select({"Main Hall Switch", "Annex Switch", "Desk 4"});
    answerWith("Restore settings");
    answerWith("Skip device");
    answerWith("Ok");
    clickAction(DeviceAction::RestoreFull);
    ASSERT_EQ(shown.size(), 3u);
    EXPECT_TRUE(contains(shown[2], "Factory default settings restore has been initiated on 2 of 3 devices."))
        << shown[2];
    EXPECT_EQ(stored("rx", 7, "name"), "") << "as it left the factory";
    EXPECT_EQ(stored("swx", 2, "name"), "");
    EXPECT_EQ(stored("swx", 1, "name"), "Main Hall Switch");
}

TEST_F(DevicesPage, RestoreOfNothingSelectedAsksAndReportsNoneOfNone) {
    answerWith("Restore settings");
    answerWith("Ok");
    view->restoreSettingsActionButtonClicked();
    EXPECT_TRUE(contains(shown[1], "initiated on 0 of 0 devices.")) << shown[1];
}

class OwnRestore : public DevicesPage {
protected:
    /// Address of this Switch after its restore, which restarts it.
    std::string addressAfter(DeviceAction action, const std::string& button) {
        select({"Main Hall Switch"});
        answerWith("Restore settings");
        answerWith(button);
        answerWith("Ok");
        clickAction(action);
        EXPECT_TRUE(contains(shown.at(2), "initiated on 1 of 1 devices.")) << shown[2];
        zeqd.waitForEnd();
        zeqd.start();
        return addressOf(1);
    }
    static std::string addressOf(unsigned swx) {
        Db::Errors errors;
        ZeqExchange exchange(ZeqReqUtil_newGetResource, "swx", __func__);
        ZeqReqUtil_setIntegerQuery(exchange.request(), "index", swx);
        EXPECT_EQ(exchange.send(errors), 0u);
        const json_t* network = ZeqRspUtil_getObjectParam(ZeqObj_getRow(exchange.response(), 0), "network");
        return ZeqRow(ZeqRspUtil_getObjectParam(network, "ipv4")).text("ipAddress");
    }
};

TEST_F(OwnRestore, FullDefaultsTakeTheNetworkSettingsToo) {
    EXPECT_EQ(addressOf(1), "10.20.1.10");
    EXPECT_EQ(addressAfter(DeviceAction::RestoreFull, "Full defaults"), "");
}

TEST_F(OwnRestore, PartialDefaultsLeaveThem) {
    EXPECT_EQ(addressAfter(DeviceAction::RestoreFull, "Partial defaults"), "10.20.1.10");
}

TEST_F(OwnRestore, ThePartialActionLeavesThemTooOrSkipsTheSwitch) {
    select({"Main Hall Switch", "Annex Switch"});
    const std::string annex = addressOf(2);
    ASSERT_NE(annex, "");
    answerWith("Restore settings");
    answer([](Wt::WDialog& dialog) {
        EXPECT_EQ(buttonIn(&dialog, "Full defaults"), nullptr);
        dialog.reject(); // closed: as skipped
    });
    answerWith("Ok");
    clickAction(DeviceAction::RestorePartial);
    EXPECT_TRUE(contains(shown.at(2), "initiated on 1 of 2 devices.")) << shown[2];
    EXPECT_EQ(stored("swx", 2, "name"), "");
    EXPECT_EQ(addressOf(2), annex);
    EXPECT_EQ(stored("swx", 1, "name"), "Main Hall Switch");
    shown.clear();
    EXPECT_EQ(addressAfter(DeviceAction::RestorePartial, "Partial defaults"), "10.20.1.10");
}

TEST_F(DevicesPage, PartialRestoreStopsAtADeviceThatIsNoSwitch) {
    select({"Annex Switch", "Desk 4"});
    answerWith("Restore settings");
    view->partialRestoreSettingsActionButtonClicked();
    EXPECT_EQ(shown.size(), 1u) << "no result";
    EXPECT_EQ(stored("rx", 7, "name"), "Desk 4");
}

TEST_F(DevicesPage, AFailedRestoreIsCountedAndTold) {
    select({"Training", "Desk 4"});
    remove("rx", 19);
    answerWith("Restore settings");
    answerWith("Ok");
    clickAction(DeviceAction::RestoreFull);
    EXPECT_TRUE(contains(shown[1], "Failed to restore 1 of 2 to factory default settings.\nNot found"))
        << shown[1];
    EXPECT_EQ(stored("rx", 7, "name"), "") << "the others are restored all the same";
}

TEST_F(DevicesPage, TickingDoNotShowThenCancelNeverAsksAgain) {
    select({"Weather"});
    answer([](Wt::WDialog& dialog) {
        widgetsIn<Wt::WCheckBox>(&dialog).at(0)->setChecked(true);
        click(buttonIn(&dialog, "Cancel"));
    });
    clickAction(DeviceAction::Remove);
    EXPECT_EQ(stored("user", 1, "enableRemoveDevicesWarning"), "disabled");
    EXPECT_EQ(stored("tx", 7, "name"), "Weather");
    answerWith("Close"); // the result
    clickAction(DeviceAction::Remove);
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_TRUE(contains(shown[1], "1 device was removed.")) << shown[1];
    EXPECT_EQ(cell("Weather", WDevViewList::Eid), "no row Weather");
    EXPECT_EQ(selected().size(), 0u);
}

TEST_F(DevicesPage, RemovingThisSwitchRemovesNothingAndAsksNothing) {
    select({"Main Hall Switch", "Desk 4"});
    answerWith("Close");
    clickAction(DeviceAction::Remove);
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_TRUE(contains(shown[0], "This operation is not allowed.")) << shown[0];
    EXPECT_EQ(stored("rx", 7, "name"), "Desk 4");
}

TEST_F(DevicesPage, RefusedRemovalsAreListed) {
    const int before = count("tx");
    for (const bool several : {false, true}) {
        select(several ? std::vector<std::string>{"Historian", "Desk 4", "Desk 5"}
                       : std::vector<std::string>{"Training", "Weather"});
        if (several)
            for (const unsigned gone : {7u, 8u}) remove("rx", gone);
        else
            remove("rx", 19);
        answerWith("Remove");
        answerWith("Close");
        clickAction(DeviceAction::Remove);
        EXPECT_EQ(shown.back(), several ? "Errors\nNot found.\nNot found.\n" : "Error\nNot found.\n");
    }
    EXPECT_EQ(count("tx"), before - 2) << "what can be removed is";
}

TEST_F(DevicesPage, RemoveOfflineReachesOnlyWhatTheFilterShows) {
    // Offline in the demo: Receiver "Training" and Transmitter "SCADA Test".
    view->list()->filterRegExTextChangedHandler("scada");
    answerWith("Remove");
    answerWith("Close");
    clickAction(DeviceAction::RemoveOffline);
    EXPECT_TRUE(contains(shown[1], "1 device was removed.")) << shown[1];
    EXPECT_EQ(stored("rx", 19, "name"), "Training");
    EXPECT_EQ(view->list()->rowCount(), 51);
    view->list()->filterRegExTextChangedHandler("desk");
    answerWith("Remove");
    answerWith("Close");
    clickAction(DeviceAction::RemoveOffline);
    EXPECT_TRUE(contains(shown[3], "0 devices were removed.")) << shown[3];
}

TEST_F(DevicesPage, RebootTellsOthersAndLetsTheBoxBeClosed) {
    select({"Desk 4", "Weather"});
    answerWith("Reboot");
    answerWith("Close");
    clickAction(DeviceAction::Reboot);
    EXPECT_TRUE(contains(shown[1], "2 devices have been commanded to reboot.")) << shown[1];
    EXPECT_NE(stored("rx", 7, "status"), "ready");
    EXPECT_NE(stored("tx", 7, "status"), "ready");
    EXPECT_EQ(stored("swx", 1, "status"), "ready");
}

TEST_F(DevicesPage, ARefusedRebootIsNotCounted) {
    select({"Training", "Weather"}); // the first one is offline
    answerWith("Reboot");
    answerWith("Close");
    clickAction(DeviceAction::Reboot);
    EXPECT_EQ(shown[1], "Reboot\n1 device has been commanded to reboot.\nRx not online.\n");
}

TEST_F(DevicesPage, RebootWithThisSwitchAsksTwiceAndMayBeGivenUp) {
    select({"Desk 4", "Main Hall Switch"});
    answerWith("Reboot");
    answerWith("Cancel");
    clickAction(DeviceAction::Reboot);
    EXPECT_EQ(shown.size(), 2u);
    EXPECT_EQ(stored("rx", 7, "status"), "ready") << "nothing is rebooted then";
    EXPECT_EQ(stored("swx", 1, "status"), "ready");
}

TEST_F(DevicesPage, ThisSwitchRebootsLastAndLeavesABoxWithoutButtons) {
    select({"Main Hall Switch", "Desk 4", "Weather"});
    answerWith("Reboot");
    answerWith("Reboot");
    answer([](Wt::WDialog& dialog) {
        EXPECT_EQ(widgetsIn<Wt::WPushButton>(&dialog).size(), 0u);
        EXPECT_NE(stored("rx", 7, "status"), "ready");
        EXPECT_NE(stored("tx", 7, "status"), "ready");
        EXPECT_EQ(stored("swx", 1, "status"), "resetting");
        dialog.reject(); // what the end of the connection does
    });
    clickAction(DeviceAction::Reboot);
    EXPECT_EQ(shown[2], "Reboot\n3 devices have been commanded to reboot, including this Switch\n");
    zeqd.waitForEnd();
    EXPECT_FALSE(zeqd.running());
}

TEST_F(DevicesPage, RebootOfThisSwitchAloneSpeaksOfOneDevice) {
    select({"Main Hall Switch"});
    answerWith("Reboot");
    answerWith("Reboot");
    answer([](Wt::WDialog& dialog) { dialog.reject(); });
    clickAction(DeviceAction::Reboot);
    EXPECT_EQ(shown[2], "Reboot\n1 device has been commanded to reboot.\n");
}

TEST_F(DevicesPage, AThisSwitchThatRefusesToRebootLeavesABoxThatCanBeClosed) {
    select({"Main Hall Switch", "Desk 4"});
    answerWith("Reboot");
    answer([this](Wt::WDialog& dialog) {
        store("swx", 1, "reset", "cold_reboot"); // somebody else was faster
        click(buttonIn(&dialog, "Reboot"));
    });
    answerWith("Close");
    clickAction(DeviceAction::Reboot);
    EXPECT_EQ(shown[2], "Reboot\n1 device has been commanded to reboot.\nSwx already resetting.\n");
}

TEST_F(DevicesPage, ASwitchInConflictCanOnlyBeRemovedOrFound) {
    store("swx", 2, "mode", "master"); // a second one
    view->readFromDatabase(true, true);
    select({"Annex Switch"});
    EXPECT_EQ(actions(), "....XXX");
    EXPECT_EQ(view->details()->currentTab(), WDevViewDetails::TabSelect::Switch) << "its mode can be mended";
    select({"Annex Switch", "Desk 4"});
    EXPECT_EQ(actions(), "....XXX");
    store("swx", 2, "mode", "slave");
    view->readFromDatabase(true, true);
    EXPECT_EQ(actions(), "X..XXXX");
}

TEST_F(DevicesPage, FlashStartsAndStops) {
    const auto flashing = [] {
        return stored("rx", 7, "lcdBacklightFlash") + stored("tx", 7, "lcdBacklightFlash") +
               stored("swx", 2, "lcdBacklightFlash");
    };
    const auto flashFor = [](const char* seconds) {
        return [seconds](Wt::WDialog& dialog) {
            widgetsIn<WLineEditPlus>(&dialog).at(0)->Wt::WLineEdit::setText(seconds);
            click(buttonIn(&dialog, "Flash"));
        };
    };
    select({"Desk 4", "Weather", "Annex Switch"});
    answer(flashFor("86400"));
    answerWith("Close");
    clickAction(DeviceAction::Flash);
    EXPECT_EQ(shown[1], "Completed\n3 devices were commanded to start flashing their displays.\n");
    EXPECT_EQ(flashing(), "enabledenabledenabled");
    answer([](Wt::WDialog& dialog) { dialog.reject(); }); // Escape
    clickAction(DeviceAction::Flash);
    EXPECT_EQ(shown.size(), 3u);
    EXPECT_EQ(flashing(), "enabledenabledenabled");
    answer(flashFor("0"));
    answerWith("Close");
    clickAction(DeviceAction::Flash);
    EXPECT_EQ(shown[4], "Completed\n3 devices were commanded to stop flashing their displays.\n");
    EXPECT_EQ(flashing(), "disableddisableddisabled");

    select({"Weather"});
    answer(flashFor("5"));
    answerWith("Close");
    clickAction(DeviceAction::Flash);
    EXPECT_EQ(shown[6], "Completed\n1 device was commanded to start flashing its display.\n");
}

/// The service ends while the user is asked.
struct SilentRow {
    DeviceAction action;
    const char* first; // button of the question
    const char* last;  // button of the result
    const char* words; // how the result begins
    const char* names; // of what gave no answer
};

void PrintTo(const SilentRow& row, std::ostream* out) {
    *out << row.words;
}

class WithoutAnAnswer : public DevicesPage, public testing::WithParamInterface<SilentRow> {};

TEST_P(WithoutAnAnswer, NothingIsSaidToBeDone) {
    const SilentRow& row = GetParam();
    select({"Desk 4", "Weather"});
    answer([&](Wt::WDialog& dialog) {
        zeqd.stop();
        click(buttonIn(&dialog, row.first));
    });
    answerWith(row.last);
    clickAction(row.action);
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[1].find(row.words), 0u) << shown[1];
    const std::string tail = std::string(row.names) + ". What was asked may have been done all the same.\n";
    EXPECT_TRUE(contains(shown[1], tail)) << shown[1];
}

constexpr const char* kTwo = "No answer for 00A702-020077, 00A703-03005B";

INSTANTIATE_TEST_SUITE_P(
    Actions, WithoutAnAnswer,
    testing::Values(
        SilentRow{DeviceAction::RestoreFull, "Restore settings", "Ok",
                  "Restore factory default\nFailed to restore 2 of 2 to factory default settings.\n", kTwo},
        SilentRow{DeviceAction::Reboot, "Reboot", "Close",
                  "Reboot\n0 devices have been commanded to reboot.\n", kTwo},
        SilentRow{DeviceAction::Remove, "Remove", "Close", "Error\nNo answer for ", kTwo},
        SilentRow{DeviceAction::RemoveOffline, "Remove", "Close",
                  "Removed\n0 devices were removed.\nNo answer for ", " more"},
        SilentRow{DeviceAction::Flash, "Flash", "Close",
                  "Completed\n0 devices were commanded to start flashing their displays.\n", kTwo}));

} // namespace
