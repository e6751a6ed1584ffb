// What was promised is done, also when the service dies before it: factory restores and reboots after an update.
#include "platform/service/archive/SettingsArchive.h"
#include "platform/service/sim/Firmware.h"
#include "tests/platform/service/support/Harness.h"
#include "tests/platform/support/TempFolder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace zeqd::testing {
namespace {

/// Nothing of the demo's people is to be found.
void expectFactoryNew(Harness& service) {
    EXPECT_EQ(service.get("user").rowCount(), 1U);
    EXPECT_EQ(service.value("user", 1, "name"), "admin");
    EXPECT_EQ(service.value("rx", 1, "name"), "");
    EXPECT_EQ(service.value("swx", 2, "name"), "");
    EXPECT_EQ(service.value("swx", 2, "location"), "");
    EXPECT_EQ(service.value("swx", 1, "status"), "ready");
    for (const auto& [key, body] : service.disk.records) {
        EXPECT_EQ(body.find("mhansen"), std::string::npos) << body;
        EXPECT_EQ(body.find("argon2id"), std::string::npos) << body;
    }
}

/// A demo with settings archives, a database that was set aside, and files that are nobody's business here.
struct Loaded {
    Loaded() {
        service.settingsDir = folder.path() / "settings";
        service.database = folder.path() / "zeq.db";
        service.restart();
        EXPECT_EQ(service.set("swxControl", R"({"settingsAction":"zip","settingsPassword":""})").error(), 0);
        for (const char* name : {"zeq.db.damaged-17", "zeq.db.damaged-17-wal", "zeq.db", "zeq.db.mine"})
            std::ofstream(folder.path() / name) << "mhansen";
        for (const char* name : {"settings/settings.cze", "settings/settings.cze.new"})
            std::ofstream(folder.path() / name) << "mhansen";
    }
    Answer unzip() {
        return service.set("swxControl", R"({"settingsAction":"unzip","settingsFilename":")" +
                                             (folder.path() / "settings" / "settings.tar.gz").string() +
                                             R"("})");
    }
    std::set<std::string> files() const {
        std::set<std::string> found;
        for (const auto& file : std::filesystem::recursive_directory_iterator(folder.path()))
            if (file.is_regular_file()) found.insert(file.path().filename());
        return found;
    }
    TempFolder folder;
    Harness service;
};
const std::set<std::string> kLeft{"zeq.db", "zeq.db.mine"}; ///< files that stay
constexpr const char* kRestore[] = {R"({"index":1,"reset":"factory_default"})",
                                    R"({"index":1,"reset":"factory_default_partial"})"};

TEST(Restore, ForgetsSettingsThatWaitAndFilesThatHoldAccounts) {
    Loaded installed;
    Harness& service = installed.service;
    ASSERT_EQ(installed.unzip().error(), 0);
    ASSERT_EQ(service.set("swx", kRestore[0]).error(), 0);
    EXPECT_EQ(installed.unzip().error(), 1110) << "a Switch that goes down takes no settings any more";
    service.pass(10000);
    EXPECT_TRUE(service.engine->restartWanted());
    service.restart();
    expectFactoryNew(service);
    EXPECT_EQ(installed.files(), kLeft);
}

TEST(Restore, IsDoneWhenTheServiceDiesBetweenItsSteps) {
    for (const bool partial : {false, true}) {
        SCOPED_TRACE(partial);
        Loaded installed;
        Harness& service = installed.service;
        std::string answer;
        service.engine->request(
            1, std::string(R"({"id":1,"method":"set","resource":"swx","params":)") + kRestore[partial] + "}",
            [&](std::string text) { answer = std::move(text); });
        service.engine->flush();
        ASSERT_TRUE(service.executor.step(Lane::Disk));
        ASSERT_EQ(answer, R"({"id":1,"rows":[]})");
        ASSERT_NE(service.engine->store().find(Res::User, 3), nullptr) << "the second step has not come";
        service.restart();
        expectFactoryNew(service);
        EXPECT_EQ(installed.files(), kLeft);
        EXPECT_EQ(service.value("swx", 1, "network/ipv4/ipAddress"), partial ? "10.20.1.10" : "");
        EXPECT_EQ(service.value("swx", 2, "network/ipv4/ipAddress"), partial ? "10.20.1.11" : "");
        ASSERT_EQ(service.set("rx", R"({"index":1,"name":"Mine"})").error(), 0);
        service.restart();
        EXPECT_EQ(service.value("rx", 1, "name"), "Mine") << "done once";
    }
}

TEST(Restore, OnAFullDiskIsDoneWhenThereIsRoom) {
    Loaded installed;
    Harness& service = installed.service;
    std::string answer;
    service.engine->request(
        1, std::string(R"({"id":1,"method":"set","resource":"swx","params":)") + kRestore[0] + "}",
        [&](std::string text) { answer = std::move(text); });
    service.engine->flush();
    ASSERT_TRUE(service.executor.step(Lane::Disk));
    service.disk.failures = 2;
    service.pass(30000);
    EXPECT_TRUE(service.engine->restartWanted());
    service.restart();
    expectFactoryNew(service);
}

TEST(AfterAnUpdate, ThePromisedRebootSurvivesADeath) {
    TempFolder folder;
    const std::string path = folder.path() / "fw";
    std::ofstream(path, std::ios::binary) << makeFirmware("rx", "9.9.9", 100);
    for (const bool promised : {true, false}) {
        Harness service;
        service.set("systemGlobals",
                    promised ? R"({"resetAfterUpgrade":"enabled"})" : R"({"resetAfterUpgrade":"disabled"})");
        const std::string upgrade =
            service.create("upgrade", R"({"protocol":"file","filename":")" + path + R"("})").at("index");
        ASSERT_EQ(service.set("rx", R"({"index":1,"upgradeIndex":)" + upgrade + "}").error(), 0);
        service.pass(22000);
        ASSERT_EQ(service.value("rx", 1, "upgradeStatus"), "complete");
        service.set("systemGlobals",
                    promised ? R"({"resetAfterUpgrade":"disabled"})" : R"({"resetAfterUpgrade":"enabled"})");
        service.restart();
        service.pass(60000);
        EXPECT_EQ(service.value("rx", 1, "firmwareVersion"), promised ? "9.9.9" : "3.1.4");
        EXPECT_EQ(service.value("rx", 1, "upgradeStatus"), promised ? "idle" : "complete");
        service.restart();
        service.pass(60000);
        EXPECT_EQ(service.value("rx", 1, "status"), "ready");
    }
}

} // namespace
} // namespace zeqd::testing
