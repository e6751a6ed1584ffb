// Actions on the selected devices.

#include "db/Db.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "tests/views/devices/DevicesPage.h"
#include "views/devices/list/WDevViewList.h"

#include <Wt/WCheckBox>

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(DevicesPage, RestoreSkipsThisSwitchWhenToldAndCountsIt) {
    select({"Main Hall Switch", "Annex Switch", "Desk 4"});
    store("rx", 7, "lcdBacklightControl", "disabled");
    answerWith("Restore settings");
    answerWith("Skip device");
    answerWith("Ok");
    clickAction(DeviceAction::RestoreFull);
    ASSERT_EQ(shown.size(), 3u);
    EXPECT_TRUE(contains(shown[2], "Factory default settings restore has been initiated on 2 of 3 devices."))
        << shown[2];
}

TEST_F(DevicesPage, RestoreOfNothingSelectedAsksAndReportsNoneOfNone) {
    answerWith("Restore settings");
    answerWith("Ok");
    view->restoreSettingsActionButtonClicked();
    EXPECT_TRUE(contains(shown[1], "initiated on 0 of 0 devices.")) << shown[1];
}

TEST_F(DevicesPage, PartialRestoreStopsAtADeviceThatIsNoSwitch) {
    select({"Annex Switch", "Desk 4"});
    answerWith("Restore settings");
    view->partialRestoreSettingsActionButtonClicked();
    EXPECT_EQ(shown.size(), 1u) << "no result";
}

TEST_F(DevicesPage, AFailedRestoreIsCountedAndTold) {
    select({"Training", "Desk 4"});
    remove("rx", 19);
    answerWith("Restore settings");
    answerWith("Ok");
    clickAction(DeviceAction::RestoreFull);
    EXPECT_TRUE(contains(shown[1], "Failed to restore 1 of 2 to factory default settings.")) << shown[1];
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
    select({"Training", "Planning 1"});
    remove("rx", 17);
    remove("rx", 19);
    answerWith("Remove");
    answerWith("Close");
    clickAction(DeviceAction::Remove);
    EXPECT_TRUE(contains(shown[1], "Errors")) << shown[1];
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
}

TEST_F(DevicesPage, RebootWithThisSwitchAsksTwiceAndMayBeGivenUp) {
    select({"Desk 4", "Main Hall Switch"});
    answerWith("Reboot");
    answerWith("Cancel");
    clickAction(DeviceAction::Reboot);
    EXPECT_EQ(shown.size(), 2u);
    EXPECT_EQ(stored("rx", 7, "status"), "ready") << "nothing is rebooted then";
}

TEST_F(DevicesPage, RebootOfThisSwitchLeavesABoxWithoutButtons) {
    select({"Main Hall Switch"});
    answerWith("Reboot");
    answerWith("Reboot");
    answer([](Wt::WDialog& dialog) {
        EXPECT_EQ(widgetsIn<Wt::WPushButton>(&dialog).size(), 0u);
        dialog.reject(); // what the end of the connection does
    });
    clickAction(DeviceAction::Reboot);
    EXPECT_TRUE(contains(shown[2], "1 device has been commanded to reboot.")) << shown[2];
}

TEST_F(DevicesPage, FlashStartsAndStops) {
    select({"Desk 4", "Weather", "Annex Switch"});
    answerWith("Flash");
    answerWith("Close");
    clickAction(DeviceAction::Flash);
    EXPECT_TRUE(contains(shown[1], "3 devices were commanded to start flashing their displays.")) << shown[1];
    answer([](Wt::WDialog& dialog) { dialog.reject(); }); // Escape
    clickAction(DeviceAction::Flash);
    EXPECT_EQ(shown.size(), 3u);
}

} // namespace
