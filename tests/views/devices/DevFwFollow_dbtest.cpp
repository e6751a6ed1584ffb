// Following the firmware update of the Switch that one is logged in to.

#include "tests/platform/support/LogCapture.h"
#include "tests/views/devices/DevicesPage.h"

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class DevFwFollow : public DevicesPage {
protected:
    /// Sets what only the Switch itself writes.
    static void poke(const char* key, const char* value) { ShellTest::poke("swx", 1, key, value); }
};

TEST_F(DevFwFollow, EachFailureIsToldAndLoggedOnceAndEndsTheFollowing) {
    const struct {
        const char *status, *words;
    } rows[] = {
        {"failed", "Firmware update of the Master Switch failed."},
        {"failed_file_get", "-- unable to retrieve file."},
        {"failed_file_content", "-- file corrupted or incorrect type."},
        {"failed_dev_type", "-- file is incorrect type for device."},
        {"failed_file_push", "-- unable to push file to target device."},
        {"failed_flash", "-- unable to reflash device."},
    };
    for (const auto& row : rows) {
        LogCapture log;
        view->followThisSwx();
        poke("upgradeStatus", row.status);
        answerWith("Okay");
        view->fwUpdateTimerTimeout();
        EXPECT_TRUE(contains(shown.back(), row.words)) << shown.back();
        EXPECT_FALSE(view->followsThisSwx()) << row.status;
        ASSERT_FALSE(log.messages(1).empty());
        EXPECT_TRUE(contains(log.messages(1).back(), row.words)) << log.messages(1).back();
    }
}

TEST_F(DevFwFollow, TenMinutesOfUpgradingAreTooLong) {
    view->followThisSwx();
    poke("upgradeStatus", "upgrading");
    clock.advance(600);
    view->fwUpdateTimerTimeout();
    EXPECT_TRUE(view->followsThisSwx()) << "not yet";
    clock.advance(1);
    answerWith("Okay");
    view->fwUpdateTimerTimeout();
    EXPECT_TRUE(contains(shown.back(), "timed out.")) << shown.back();
    EXPECT_FALSE(view->followsThisSwx());
}

TEST_F(DevFwFollow, ASecondUpdateHasTenMinutesOfItsOwn) {
    view->followThisSwx();
    poke("upgradeStatus", "upgrading");
    clock.advance(500);
    view->followThisSwx();
    clock.advance(500);
    view->fwUpdateTimerTimeout();
    EXPECT_TRUE(view->followsThisSwx());
    clock.advance(101);
    answerWith("Okay");
    view->fwUpdateTimerTimeout();
    EXPECT_TRUE(contains(shown.back(), "timed out.")) << shown.back();
}

TEST_F(DevFwFollow, AfterSuccessTheSwitchRebootsByItselfOrLater) {
    for (const bool automatic : {true, false}) {
        store("systemGlobals", 0, "resetAfterUpgrade", automatic ? "enabled" : "disabled");
        view->followThisSwx();
        poke("upgradeStatus", "complete");
        if (automatic)
            answer([](Wt::WDialog& dialog) {
                EXPECT_TRUE(widgetsIn<Wt::WPushButton>(&dialog).empty());
                dialog.reject(); // stands until the Switch reboots
            });
        else
            answerWith("Reboot later");
        view->fwUpdateTimerTimeout();
        EXPECT_TRUE(contains(shown.back(), "has succeeded."));
        EXPECT_EQ(contains(shown.back(), "Rebooting now."), automatic);
        EXPECT_FALSE(view->followsThisSwx());
        EXPECT_EQ(stored("swx", 1, "status"), "ready") << "nobody asked for a reboot";
    }
}

TEST_F(DevFwFollow, AfterSuccessTheUserMayRebootNow) {
    store("systemGlobals", 0, "resetAfterUpgrade", "disabled");
    view->followThisSwx();
    poke("upgradeStatus", "complete");
    answerWith("Reboot now");
    answer([](Wt::WDialog& dialog) {
        EXPECT_TRUE(widgetsIn<Wt::WPushButton>(&dialog).empty());
        EXPECT_EQ(stored("swx", 1, "status"), "resetting");
        dialog.reject(); // what the end of the connection does
    });
    view->fwUpdateTimerTimeout();
    EXPECT_EQ(shown.back(), "Rebooting\nRebooting unit. Please wait.\n");
    zeqd.waitForEnd();
    EXPECT_FALSE(zeqd.running());
}

TEST_F(DevFwFollow, AStatusThatCannotBeReadEndsTheFollowingWithoutAWord) {
    view->followThisSwx();
    zeqd.stop();
    view->fwUpdateTimerTimeout();
    EXPECT_FALSE(view->followsThisSwx());
    EXPECT_TRUE(shown.empty());
}

} // namespace
