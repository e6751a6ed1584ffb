#include "db/Db.h"

#include <Wt/WString>

#include <gtest/gtest.h>

namespace {

std::string tr(const char* key) {
    return Wt::WString::tr(key).toUTF8();
}

// The rules once more, told from the upgrade state.
const char* upgradeKey(unsigned upgrade) {
    switch (upgrade) {
    case 2:
        return "[RSnnn]Updating firmware";
    case 3:
        return "[RSnnn]Firmware update failed";
    case 4:
        return "[RSnnn]Firmware update failed - file transfer";
    case 5:
        return "[RSnnn]Firmware update failed - bad file";
    case 6:
        return "[RSnnn]Firmware update failed - incorrect file";
    case 7:
        return "[RSnnn]Firmware update failed - target communication";
    case 8:
        return "[RSnnn]Firmware update failed - reflash";
    case 9:
        return "[RSnnn]Firmware updated, needs reboot";
    default:
        return nullptr;
    }
}

const char* deviceKey(unsigned status, unsigned upgrade, unsigned usage, const char* inUse) {
    if (status == 1) return "[RSnnn]Offline";
    if (status == 2) return "[RSnnn]Configuring";
    if (status == 5) return "[RSnnn]In recovery";
    if (status != 3 && status != 4) return nullptr;
    if (upgrade != 1) return upgradeKey(upgrade);
    if (status == 4) return "[RSnnn]Reboot pending";
    if (inUse) return inUse;
    return usage == 2 ? "[RSnnn]ReadyInSwitchExceedingCapacity" : "[RSnnn]Ready";
}

const char* switchKey(unsigned status, unsigned upgrade, unsigned usage) {
    const char* const fixed[] = {nullptr,
                                 nullptr,
                                 "[RSnnn]Connected",
                                 "[RSnnn]Conflict (Mode is Master)",
                                 "[RSnnn]Conflict (another Switch is Master)",
                                 "[RSnnn]Network communication error",
                                 nullptr,
                                 "[RSnnn]Resetting"};
    if (status == 1) return usage == 2 ? "[RSnnn]OfflineExceedsUnmanagedCapacity" : "[RSnnn]Offline";
    if (status != 6) return status < 8 ? fixed[status] : nullptr;
    if (upgrade != 1) return upgradeKey(upgrade);
    return usage == 2 ? "[RSnnn]ReadyExceedsUnmanagedCapacity" : "[RSnnn]Ready";
}

std::string expected(const char* key, bool updating, unsigned percent) {
    const std::string text = tr(key ? key : "[RSnnn]Unknown");
    return updating ? text + " (" + std::to_string(percent) + "%)" : text;
}

// Every number of every field, some outside the enumerations, the last one far outside.
constexpr unsigned kNumbers[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 30, 31, 32, 4294967295U};

TEST(OverallStatus, AllDevicesInAllStates) {
    for (unsigned status : kNumbers)
        for (unsigned upgrade : kNumbers)
            for (unsigned usage : kNumbers)
                for (unsigned busy = 0; busy < 8; ++busy) {
                    SCOPED_TRACE(testing::Message() << "status " << status << " upgrade " << upgrade
                                                    << " usage " << usage << " busy " << busy);
                    const bool updating = (status == 3 || status == 4) && upgrade == 2;
                    std::string text = "old";
                    const char* key = deviceKey(status, upgrade, usage, busy & 1 ? "[RSnnn]In use" : nullptr);
                    const unsigned result =
                        Db::db.getFastRxOverallStatus(Info_DeviceStatus{status}, Info_DeviceUsage{usage},
                                                      Info_DeviceUpgradeStatus{upgrade}, 55, busy & 1, text);
                    ASSERT_EQ(text, expected(key, updating, 55));
                    ASSERT_EQ(result, key ? 0U : 1U);

                    const bool connected = busy & 1;
                    const unsigned mode = busy >> 1; // 3 is no mode
                    const char* inUse = mode == 1   ? "[RSnnn]In use (shared)"
                                        : mode == 2 ? "[RSnnn]In use (private)"
                                                    : "[RSnnn]In use";
                    key = deviceKey(status, upgrade, usage, connected ? inUse : nullptr);
                    Db::db.getFastTxOverallStatus(Info_DeviceStatus{status}, Info_DeviceUsage{usage},
                                                  Info_DeviceUpgradeStatus{upgrade}, 100, connected,
                                                  Info_ConnectionMode{mode}, text);
                    ASSERT_EQ(text, expected(key, updating, 100));

                    key = switchKey(status, upgrade, usage);
                    ASSERT_EQ(Db::db.getFastSwxOverallStatus(Info_SwxStatus{status},
                                                             Info_DeviceUpgradeStatus{upgrade},
                                                             Info_SwxUsage{usage}, text),
                              key ? 0U : 1U);
                    ASSERT_EQ(text, expected(key, false, 0));
                }
}

} // namespace
