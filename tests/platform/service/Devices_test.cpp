// The devices' life, in simulated time.
#include "platform/service/sim/Firmware.h"
#include "platform/service/sim/Steps.h"
#include "tests/platform/service/support/Harness.h"
#include "tests/platform/support/TempFolder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace zeqd::testing {
namespace {

TEST(Reboot, GoesThroughItsStatesAndDropsTheSessions) {
    Harness service;
    ASSERT_EQ(service.set("rx", R"({"index":1,"reset":"cold_reboot"})").error(), 0);
    EXPECT_EQ(service.value("rx", 1, "status"), "reset_pending");
    EXPECT_EQ(service.set("rx", R"({"index":1,"reset":"cold_reboot"})").error(), 1111);
    EXPECT_NE(service.engine->store().findNumber(Res::Connection, "rxIndex", 1), nullptr);
    service.pass(span::kBeforeReset);
    EXPECT_EQ(service.value("rx", 1, "status"), "offline");
    EXPECT_EQ(service.engine->store().findNumber(Res::Connection, "rxIndex", 1), nullptr);
    EXPECT_EQ(service.engine->store().findNumber(Res::UserSession, "rxIndex", 1), nullptr);
    EXPECT_EQ(service.set("rx", R"({"index":1,"reset":"cold_reboot"})").error(), 1108);
    service.pass(span::kDeviceBoot);
    EXPECT_EQ(service.value("rx", 1, "status"), "configuring");
    service.pass(span::kDeviceConfigure);
    EXPECT_EQ(service.value("rx", 1, "status"), "ready");
    service.pass(3600 * 1000);
    EXPECT_FALSE(service.engine->nextDue()) << "nothing more happens by itself";
}

TEST(Reboot, GoesOnAfterAPowerCutInAnyState) {
    for (int ms = 0; ms <= 18000; ms += 1500) {
        Harness service;
        ASSERT_EQ(service.set("rx", R"({"index":1,"reset":"cold_reboot"})").error(), 0);
        service.pass(ms);
        service.restart();
        service.pass(60000);
        EXPECT_EQ(service.value("rx", 1, "status"), "ready") << "cut after " << ms;
        EXPECT_EQ(service.value("rx", 19, "status"), "offline") << "switched off, not rebooting";
    }
}

TEST(Reboot, TheVideoWallComesBackByItself) {
    Harness service;
    ASSERT_EQ(service.set("rx", R"({"index":12,"reset":"cold_reboot"})").error(), 0);
    service.pass(60000);
    const RecordPtr connection = service.engine->store().findNumber(Res::Connection, "rxIndex", 12);
    ASSERT_NE(connection, nullptr);
    EXPECT_EQ(connection->text("txEid"), "00A703-030111");
    EXPECT_EQ(service.engine->store().findNumber(Res::UserSession, "rxIndex", 12)->number("userIndex"), 8U);
}

TEST(Reboot, OfASwitchTakesItsDevicesAlong) {
    Harness service;
    ASSERT_EQ(service.set("swx", R"({"index":2,"reset":"cold_reboot"})").error(), 0);
    EXPECT_EQ(service.value("swx", 2, "status"), "resetting");
    EXPECT_EQ(service.set("swx", R"({"index":2,"reset":"cold_reboot"})").error(), 1110);
    service.pass(span::kBeforeReset);
    EXPECT_EQ(service.value("swx", 2, "status"), "offline");
    EXPECT_EQ(service.value("rx", 17, "status"), "offline");
    EXPECT_EQ(service.value("rx", 1, "status"), "ready") << "on the other Switch";
    service.pass(60000);
    EXPECT_EQ(service.value("swx", 2, "status"), "ready");
    EXPECT_EQ(service.value("rx", 17, "status"), "ready");
    EXPECT_FALSE(service.engine->restartWanted());
}

TEST(Reboot, OfThisSwitchEndsTheService) {
    Harness service;
    ASSERT_EQ(service.set("swx", R"({"index":1,"reset":"cold_reboot"})").error(), 0);
    EXPECT_FALSE(service.engine->restartWanted()) << "the answer goes out first";
    service.pass(span::kRestart);
    EXPECT_TRUE(service.engine->restartWanted());
    service.restart();
    EXPECT_EQ(service.value("swx", 1, "status"), "ready");
}

TEST(Factory, DefaultsOfADevice) {
    Harness service;
    ASSERT_EQ(service.set("cfgDefaults", R"({"txDefaultUsbMode":"keyboard_mouse_only"})").error(), 0);
    EXPECT_EQ(service.set("tx", R"({"index":16,"reset":"factory_default_partial"})").error(), 1115);
    ASSERT_EQ(service.set("tx", R"({"index":16,"reset":"factory_default"})").error(), 0);
    service.pass(60000);
    EXPECT_EQ(service.value("tx", 16, "status"), "ready");
    EXPECT_EQ(service.value("tx", 16, "name"), "");
    EXPECT_EQ(service.value("tx", 16, "wakeOnLan"), "disabled");
    EXPECT_EQ(service.value("tx", 16, "usbMode"), "keyboard_mouse_only");
    EXPECT_EQ(service.value("tx", 16, "eid"), "00A703-0300D0");
}

TEST(Factory, DefaultsOfThisSwitchEmptyTheSystem) {
    for (const bool partial : {false, true}) {
        SCOPED_TRACE(partial);
        Harness service;
        ASSERT_EQ(service
                      .set("swx", partial ? R"({"index":1,"reset":"factory_default_partial"})"
                                          : R"({"index":1,"reset":"factory_default"})")
                      .error(),
                  0);
        service.pass(10000);
        EXPECT_TRUE(service.engine->restartWanted());
        service.restart();
        EXPECT_EQ(service.get("user").rowCount(), 1U);
        EXPECT_EQ(service.create("adminSession", R"({"username":"admin","password":""})").error(), 0);
        EXPECT_EQ(service.value("swx", 1, "network/ipv4/ipAddress"), partial ? "10.20.1.10" : "");
        EXPECT_EQ(service.value("swx", 1, "mode"), "master");
        EXPECT_EQ(service.value("systemGlobals", 0, "syslogDest"), "");
        EXPECT_EQ(service.value("systemGlobals", 0, "masterSwitchEid"), "00A701-010001");
        EXPECT_EQ(service.get("connection").error(), 1009);
        EXPECT_EQ(service.get("edid").rowCount(), 2U) << "the protected ones stay";
        EXPECT_EQ(service.value("rx", 1, "name"), "");
    }
}

class Update : public ::testing::Test {
protected:
    /// Writes the file, makes its record and answers the record's index.
    int source(const std::string& bytes, const std::string& name = "fw") {
        const std::string path = folder.path() / name;
        std::ofstream(path, std::ios::binary) << bytes;
        return service.create("upgrade", R"({"protocol":"file","location":"","filename":")" + path + R"("})")
            .number("index");
    }
    void begin(const std::string& resource, int index, int upgrade) {
        const Answer answer =
            service.set(resource, R"({"index":)" + std::to_string(index) + R"(,"upgradeIndex":)" +
                                      std::to_string(upgrade) + "}");
        ASSERT_EQ(answer.error(), 0) << answer.text();
    }
    std::string state(int rx) { return service.value("rx", rx, "upgradeStatus"); }

    TempFolder folder;
    Harness service;
};

TEST_F(Update, AdvancesRebootsAndRunsTheNewFirmware) {
    const int upgrade = source(makeFirmware("rx", "3.2.0", 5000));
    EXPECT_EQ(service.value("upgrade", upgrade, "version"), "(absent)");
    begin("rx", 4, upgrade);
    EXPECT_EQ(state(4), "upgrading");
    EXPECT_EQ(service.set("rx", R"({"index":4,"reset":"cold_reboot"})").error(), 1014);
    EXPECT_EQ(service.remove("upgrade", upgrade).error(), 1014);
    service.pass(10 * span::kUpgradeTick);
    EXPECT_EQ(service.value("rx", 4, "upgradePercent"), "50");
    EXPECT_EQ(service.value("upgrade", upgrade, "version"), "3.2.0");
    EXPECT_EQ(service.value("upgrade", upgrade, "deviceType"), "rx");
    service.pass(10 * span::kUpgradeTick);
    EXPECT_EQ(state(4), "complete");
    EXPECT_EQ(service.value("rx", 4, "firmwareVersion"), "3.1.4");
    service.pass(60000);
    EXPECT_EQ(state(4), "idle");
    EXPECT_EQ(service.value("rx", 4, "firmwareVersion"), "3.2.0");
    EXPECT_EQ(service.value("rx", 4, "status"), "ready");
}

TEST_F(Update, WaitsForARebootWhenItIsNotToRebootByItself) {
    ASSERT_EQ(service.set("systemGlobals", R"({"resetAfterUpgrade":"disabled"})").error(), 0);
    begin("rx", 4, source(makeFirmware("rx", "3.2.0", 500)));
    service.pass(3600 * 1000);
    EXPECT_EQ(state(4), "complete");
    EXPECT_EQ(service.value("rx", 4, "firmwareVersion"), "3.1.4");
    ASSERT_EQ(service.set("rx", R"({"index":4,"reset":"cold_reboot"})").error(), 0);
    service.pass(60000);
    EXPECT_EQ(service.value("rx", 4, "firmwareVersion"), "3.2.0");
}

TEST_F(Update, FailsInEveryWay) {
    std::string cut = makeFirmware("rx", "3.2.0", 5000);
    cut.resize(cut.size() - 1);
    std::string flipped = makeFirmware("rx", "3.2.0", 5000);
    flipped.back() = static_cast<char>(flipped.back() ^ 1);
    const std::string good = makeFirmware("rx", "3.2.0", 5000);
    struct {
        const char* status;
        std::string file;
        const char* meanwhile;
    } rows[] = {
        {"failed_file_content", "", nullptr},
        {"failed_file_content", "no firmware at all", nullptr},
        {"failed_file_content", cut, nullptr},
        {"failed_file_content", flipped, nullptr},
        {"failed_dev_type", makeFirmware("tx", "3.2.0", 5000), nullptr},
        {"failed_file_push", good, R"({"action":"fail_push","eid":"00A702-020044"})"},
        {"failed_file_push", good, R"({"action":"offline","eid":"00A702-020044"})"},
        {"failed_flash", good, R"({"action":"fail_flash","eid":"00A702-020044"})"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.status + std::string(" ") + (row.meanwhile ? row.meanwhile : ""));
        const int upgrade = source(row.file);
        begin("rx", 4, upgrade);
        service.pass(2 * span::kUpgradeTick);
        if (row.meanwhile) {
            ASSERT_EQ(service.set("simControl", row.meanwhile).error(), 0);
        }
        service.pass(60000);
        EXPECT_EQ(state(4), row.status);
        EXPECT_EQ(service.value("rx", 4, "firmwareVersion"), "3.1.4");
        const Answer events = service.get("unacknowledgedAlerts");
        EXPECT_NE(events.text().find("Firmware update of Desk 2 Right failed"), std::string::npos);
        service.set("simControl", R"({"action":"online","eid":"00A702-020044"})");
        service.pass(60000);
        ASSERT_EQ(service.remove("upgrade", upgrade).error(), 0);
    }
    ASSERT_EQ(service.create("upgrade", R"({"protocol":"file","location":"","filename":"/nowhere/at/all"})")
                  .number("index"),
              11);
    begin("rx", 4, 11);
    service.pass(1000);
    EXPECT_EQ(state(4), "failed_file_get");
}

TEST_F(Update, AFileForSeveralDevicesIsFetchedOnce) {
    const int upgrade = source(makeFirmware("rx", "3.2.0", 500));
    const int other = source(makeFirmware("rx", "3.3.0", 500), "other");
    // All requests come before the first file is there.
    for (int rx : {1, 2, 4})
        service.engine->request(7,
                                R"({"id":1,"method":"set","resource":"rx","params":{"index":)" +
                                    std::to_string(rx) + R"(,"upgradeIndex":)" +
                                    std::to_string(rx == 4 ? other : upgrade) + "}}",
                                [](const std::string&) {});
    service.settle();
    EXPECT_EQ(service.executor.runs[static_cast<std::size_t>(Lane::Fetch)], 2);
    service.pass(60000);
    EXPECT_EQ(service.value("rx", 1, "firmwareVersion"), "3.2.0");
    EXPECT_EQ(service.value("rx", 2, "firmwareVersion"), "3.2.0");
    EXPECT_EQ(service.value("rx", 4, "firmwareVersion"), "3.3.0");
}

TEST_F(Update, LostInAPowerCutIsTold) {
    begin("rx", 4, source(makeFirmware("rx", "3.2.0", 500)));
    service.pass(5 * span::kUpgradeTick);
    service.restart();
    EXPECT_EQ(state(4), "failed");
    service.pass(60000);
    EXPECT_EQ(state(4), "failed");
}

TEST_F(Update, OfThisSwitchRebootsTheService) {
    const int upgrade = source(makeFirmware("swx", "4.3.0", 500));
    begin("swx", 1, upgrade);
    service.pass(20 * span::kUpgradeTick);
    EXPECT_EQ(service.value("swx", 1, "upgradeStatus"), "complete");
    EXPECT_FALSE(service.engine->restartWanted());
    service.pass(60000);
    EXPECT_TRUE(service.engine->restartWanted());
    service.restart();
    EXPECT_EQ(service.value("swx", 1, "firmwareVersion"), "4.3.0");
    EXPECT_EQ(service.value("swx", 1, "upgradeStatus"), "idle");
}

TEST_F(Update, EightSourcesAndNoMore) {
    EXPECT_EQ(service.create("upgrade", R"({"protocol":"file","filename":""})").error(), 13);
    EXPECT_EQ(service.create("upgrade", R"({"protocol":"ftp","filename":"x"})").error(), 1007);
    for (int i = 3; i <= 8; ++i) ASSERT_GT(source("x", "f" + std::to_string(i)), 0);
    EXPECT_EQ(service.create("upgrade", R"({"protocol":"file","location":"","filename":"x"})").error(), 8);
}

TEST(Monitors, ArePulledPushedAndProtected) {
    Harness service;
    struct {
        const char* params;
        int error;
    } rows[] = {
        {R"({"edidAction":"pull","rxIndex":1,"edidName":"M","edidDescription":"d"})", 0},
        {R"({"edidAction":"pull","rxIndex":1,"edidName":"M"})", 11},
        {R"({"edidAction":"pull","rxIndex":19,"edidName":"M2"})", 1108},
        {R"({"edidAction":"pull","txIndex":3,"edidName":"M2"})", 1109},
        {R"({"edidAction":"pull","rxIndex":1})", 1007},
        {R"({"edidAction":"pull","edidName":"M2"})", 1007},
        {R"({"edidAction":"push","txIndex":1,"edidIndex":17})", 0},
        {R"({"edidAction":"push","txIndex":3,"edidIndex":17})", 1109},
        {R"({"edidAction":"push","txIndex":1})", 1007},
        {R"({"edidAction":"push","txIndex":1,"edidIndex":99})", 7},
        {R"({"edidAction":"pull","txIndex":1,"edidName":"Back"})", 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(service.set("edidControl", row.params).error(), row.error) << row.params;
    const std::string words = "EDID pulled from transmitter " + std::string(40, 'n');
    EXPECT_EQ(
        service
            .set("edidControl", R"({"edidAction":"pull","txIndex":1,"edidName":"Long","edidDescription":")" +
                                    words + R"("})")
            .error(),
        0);
    EXPECT_EQ(service.value("edid", 19, "description"), words.substr(0, 64));
    EXPECT_EQ(service.value("edid", 18, "data"), service.value("edid", 17, "data"))
        << "what was pushed comes back";
    EXPECT_EQ(service.value("edid", 17, "description"), "d");
    EXPECT_EQ(service.set("edid", R"({"index":13,"name":"x"})").error(), 1106);
    EXPECT_EQ(service.remove("edid", 13).error(), 1106);
    EXPECT_EQ(service.set("edid", R"({"index":17,"name":""})").error(), 13);
    EXPECT_EQ(service.remove("edid", 17).error(), 0);
    const std::string zeros(172, 'A');
    EXPECT_EQ(service.create("edid", R"({"name":"z","data":{"$binary":")" + zeros.substr(0, 171) + R"(="}})")
                  .error(),
              16);
}

TEST(Flash, EndsAfterItsTimeAndByAnOrder) {
    Harness service;
    const auto flash = [&service](int seconds) {
        return service
            .set("txControl",
                 R"({"eid":"00A703-03000D","lcdBacklightFlashDuration":)" + std::to_string(seconds) + "}")
            .error();
    };
    ASSERT_EQ(flash(10), 0);
    service.pass(5000);
    ASSERT_EQ(flash(30), 0);
    service.pass(20000);
    EXPECT_EQ(service.value("tx", 1, "lcdBacklightFlash"), "enabled")
        << "the first flash's end is not the second's";
    service.pass(10000);
    EXPECT_EQ(service.value("tx", 1, "lcdBacklightFlash"), "disabled");
    ASSERT_EQ(flash(30), 0);
    ASSERT_EQ(flash(1), 0);
    EXPECT_EQ(service.value("tx", 1, "lcdBacklightFlash"), "disabled");
    EXPECT_EQ(service.set("txControl", R"({"eid":"00A703-030027","lcdBacklightFlashDuration":5})").error(),
              1109);
    EXPECT_EQ(service.set("rxControl", R"({"eid":"00A703-03000D","lcdBacklightFlashDuration":5})").error(),
              7);
}

TEST(TimeServers, TellTheirState) {
    struct {
        const char* params;
        const char* status;
    } rows[] = {
        {R"({"index":2,"ntpEnable":"disabled"})", "inactive"},
        {R"({"index":2,"ntpEnable":"enabled","primaryNtpIpAddress":"","secondaryNtpIpAddress":""})",
         "bad_configuration"},
        {R"({"index":2,"primaryNtpIpAddress":"192.0.2.7"})", "network_unreachable"},
        {R"({"index":2,"primaryNtpIpAddress":"198.51.100.7"})", "server_unresponsive"},
        {R"({"index":2,"primaryNtpIpAddress":"time.example"})", "success"},
    };
    Harness service;
    for (const auto& row : rows) {
        ASSERT_EQ(service.set("swx", row.params).error(), 0);
        service.pass(span::kNtp);
        EXPECT_EQ(service.value("swx", 2, "ntpStatus"), row.status) << row.params;
    }
}

TEST(Master, AMasterIsItsOwnMaster) {
    const std::string own = "00A701-010001";
    Harness service;
    const auto named = [&service] { return service.value("systemGlobals", 0, "masterSwitchEid"); };
    ASSERT_EQ(service.set("systemGlobals", R"({"masterSwitchEid":""})").error(), 0);
    EXPECT_EQ(named(), own);
    // As the page of a slave writes it: the mode first, then the master, which a master has not.
    ASSERT_EQ(service.set("swx", R"({"index":1,"mode":"slave"})").error(), 0);
    ASSERT_EQ(service.set("systemGlobals", R"({"masterSwitchEid":"00A701-010002"})").error(), 0);
    EXPECT_EQ(named(), "00A701-010002");
    ASSERT_EQ(service.set("systemGlobals", R"({"masterSwitchEid":""})").error(), 0);
    EXPECT_EQ(named(), "") << "a slave may not know its master yet";
    ASSERT_EQ(service.set("swx", R"({"index":1,"mode":"master"})").error(), 0);
    EXPECT_EQ(named(), own);
    // Settings of another installation name a Switch that this one does not have.
    ASSERT_EQ(service.set("systemGlobals", R"({"masterSwitchEid":"FFFFFF-FFFFFF"})").error(), 0);
    service.restart();
    EXPECT_EQ(named(), own);
}

TEST(Manager, IsNeededForAManagedState) {
    Harness service;
    for (const char* state : {"managed", "verified", "enrolling"}) {
        SCOPED_TRACE(state);
        const std::string wanted = R"("managedSetting":")" + std::string(state) + "\"";
        const Answer refused = service.set("systemGlobals", "{" + wanted + "}");
        EXPECT_EQ(refused.error(), 1007);
        EXPECT_EQ(refused.detail(), "managerIpAddress");
        ASSERT_EQ(service.set("systemGlobals", "{" + wanted + R"(,"managerIpAddress":"10.1.1.1"})").error(),
                  0);
        EXPECT_EQ(service.set("systemGlobals", R"({"managerIpAddress":""})").error(), 1007)
            << "nor does it lose its manager";
        EXPECT_EQ(service.set("systemGlobals", R"({"switchApiPort":444})").error(), 0);
        ASSERT_EQ(
            service.set("systemGlobals", R"({"managedSetting":"non_managed","managerIpAddress":""})").error(),
            0);
    }
}

TEST(Manager, LiftsTheCapacityOfAnUnmanagedSystem) {
    Harness service;
    for (int i = 3; i <= 10; ++i)
        ASSERT_EQ(service
                      .set("simControl", R"({"action":"attach","resource":"swx","eid":"00A701-0F10)" +
                                             std::to_string(10 + i) + R"("})")
                      .error(),
                  0);
    service.pass(60000);
    const auto usages = [&service] {
        return service.value("swx", 8, "usage") + " " + service.value("swx", 10, "usage");
    };
    EXPECT_EQ(usages(), "usable exceeds_unmanaged_capacity");
    ASSERT_EQ(service.set("systemGlobals", R"({"managedSetting":"enrolling","managerIpAddress":"10.1.1.1"})")
                  .error(),
              0);
    EXPECT_EQ(usages(), "usable usable");
    service.pass(60000);
    ASSERT_EQ(service.set("systemGlobals", R"({"managedSetting":"unenrolling"})").error(), 0);
    service.pass(60000);
    EXPECT_EQ(usages(), "usable exceeds_unmanaged_capacity");
}

TEST(Manager, EnrolsAndUnenrolsInSteps) {
    Harness service;
    EXPECT_EQ(service.set("systemGlobals", R"({"managedSetting":"enrolling"})").error(), 1007);
    ASSERT_EQ(service.set("systemGlobals", R"({"managedSetting":"enrolling","managerIpAddress":"10.1.1.1"})")
                  .error(),
              0);
    const auto state = [&service] { return service.value("systemGlobals", 0, "managedSetting"); };
    service.pass(span::kEnrol);
    EXPECT_EQ(state(), "managed");
    service.restart();
    service.pass(span::kEnrol);
    EXPECT_EQ(state(), "verified");
    EXPECT_EQ(service.value("systemGlobals", 0, "commStatusRestServerPrimary"), "up");
    ASSERT_EQ(service.set("systemGlobals", R"({"managedSetting":"unenrolling"})").error(), 0);
    service.pass(span::kEnrol);
    EXPECT_EQ(state(), "non_managed");
    EXPECT_EQ(service.value("systemGlobals", 0, "commStatusRestServerPrimary"), "down");
}

TEST(Attaching, GivesNewDevicesTheDefaultsAndAPort) {
    Harness service;
    ASSERT_EQ(service.set("cfgDefaults", R"({"rxDefaultSessionInactivityTimeout":45})").error(), 0);
    ASSERT_EQ(
        service.set("simControl", R"({"action":"attach","eid":"00A702-0F0001","resource":"rx"})").error(), 0);
    EXPECT_EQ(
        service.set("simControl", R"({"action":"attach","eid":"00A702-0F0001","resource":"tx"})").error(),
        11);
    service.pass(60000);
    EXPECT_EQ(service.value("rx", 21, "status"), "ready");
    EXPECT_EQ(service.value("rx", 21, "sessionInactivityTimeout"), "45");
    EXPECT_NE(service.value("portStatus", 2, "ports").find("00A702-0F0001"), std::string::npos);
    for (int i = 0; i < 40; ++i)
        ASSERT_EQ(service
                      .set("simControl", R"({"action":"attach","resource":"tx","eid":"00A703-0F10)" +
                                             std::to_string(10 + i) + R"("})")
                      .error(),
                  0);
    EXPECT_EQ(service.value("tx", 70, "usage"), "not_usable_swx_capacity");
}

} // namespace
} // namespace zeqd::testing
