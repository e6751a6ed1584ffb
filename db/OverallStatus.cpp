#include "db/OverallStatus.h"

#include "db/Info.h"

#include <Wt/WString>

#include <cstddef>

namespace {

// A set of numbers of one enumeration. Numbers outside every enumeration share the top bit,
// which only kAny holds.
using Set = unsigned;

constexpr unsigned kHighest = 31;
constexpr Set kAny = ~0U;

constexpr Set bit(unsigned number) {
    return 1U << (number < kHighest ? number : kHighest);
}

template <class... E>
constexpr Set anyOf(E... values) {
    return (bit(static_cast<unsigned>(values)) | ...);
}

using Facts = OverallStatusFacts;
using Device = Info_DeviceStatus;
using Swx = Info_SwxStatus;
using Upgrade = Info_DeviceUpgradeStatus;

// The first row whose sets hold the facts decides.
struct Row {
    Set status;
    Set upgrade;
    Set busy;
    Set usage;
    const char* key; // 0 = as kUpgradeRows say
};

constexpr Set kIdle = anyOf(Upgrade::Idle);
constexpr Set kUp = anyOf(Device::Ready, Device::ResetPending);
constexpr Set kOverCapacity = anyOf(Info_DeviceUsage::NotUsableSwxCapacity);
constexpr Set kSwxOverCapacity = anyOf(Info_SwxUsage::ExceedsUnmanagedCapacity);

constexpr Row kDeviceRows[] = {
    // status                   upgrade busy                    usage          text
    {anyOf(Device::Offline), kAny, kAny, kAny, "[RSnnn]Offline"},
    {anyOf(Device::Configuring), kAny, kAny, kAny, "[RSnnn]Configuring"},
    {anyOf(Device::InRecovery), kAny, kAny, kAny, "[RSnnn]In recovery"},
    {anyOf(Device::ResetPending), kIdle, kAny, kAny, "[RSnnn]Reboot pending"},
    {anyOf(Device::Ready), kIdle, anyOf(Facts::Shared), kAny, "[RSnnn]In use (shared)"},
    {anyOf(Device::Ready), kIdle, anyOf(Facts::Private), kAny, "[RSnnn]In use (private)"},
    {anyOf(Device::Ready), kIdle, anyOf(Facts::InUse), kAny, "[RSnnn]In use"},
    {anyOf(Device::Ready), kIdle, kAny, kOverCapacity, "[RSnnn]ReadyInSwitchExceedingCapacity"},
    {anyOf(Device::Ready), kIdle, kAny, kAny, "[RSnnn]Ready"},
    {kUp, kAny, kAny, kAny, nullptr},
};

constexpr Row kSwxRows[] = {
    {anyOf(Swx::Offline), kAny, kAny, kSwxOverCapacity, "[RSnnn]OfflineExceedsUnmanagedCapacity"},
    {anyOf(Swx::Offline), kAny, kAny, kAny, "[RSnnn]Offline"},
    {anyOf(Swx::DcConnected), kAny, kAny, kAny, "[RSnnn]Connected"},
    {anyOf(Swx::ConflictIsMaster), kAny, kAny, kAny, "[RSnnn]Conflict (Mode is Master)"},
    {anyOf(Swx::ConflictOtherMaster), kAny, kAny, kAny, "[RSnnn]Conflict (another Switch is Master)"},
    {anyOf(Swx::IscFailure), kAny, kAny, kAny, "[RSnnn]Network communication error"},
    {anyOf(Swx::Resetting), kAny, kAny, kAny, "[RSnnn]Resetting"},
    {anyOf(Swx::Ready), kIdle, kAny, kSwxOverCapacity, "[RSnnn]ReadyExceedsUnmanagedCapacity"},
    {anyOf(Swx::Ready), kIdle, kAny, kAny, "[RSnnn]Ready"},
    {anyOf(Swx::Ready), kAny, kAny, kAny, nullptr},
};

struct UpgradeRow {
    Upgrade upgrade;
    const char* key;
};

constexpr UpgradeRow kUpgradeRows[] = {
    {Upgrade::Upgrading, "[RSnnn]Updating firmware"},
    {Upgrade::Failed, "[RSnnn]Firmware update failed"},
    {Upgrade::FailedFileGet, "[RSnnn]Firmware update failed - file transfer"},
    {Upgrade::FailedFileContent, "[RSnnn]Firmware update failed - bad file"},
    {Upgrade::FailedDevType, "[RSnnn]Firmware update failed - incorrect file"},
    {Upgrade::FailedFilePush, "[RSnnn]Firmware update failed - target communication"},
    {Upgrade::FailedFlash, "[RSnnn]Firmware update failed - reflash"},
    {Upgrade::Complete, "[RSnnn]Firmware updated, needs reboot"},
};

const char* upgradeKey(unsigned upgrade) {
    for (const UpgradeRow& row : kUpgradeRows)
        if (static_cast<unsigned>(row.upgrade) == upgrade) return row.key;
    return nullptr;
}

template <std::size_t N>
const char* keyOf(const Row (&rows)[N], const Facts& facts) {
    for (const Row& row : rows)
        if ((row.status & bit(facts.status)) && (row.upgrade & bit(facts.upgrade)) &&
            (row.busy & bit(facts.busy)) && (row.usage & bit(facts.usage)))
            return row.key ? row.key : upgradeKey(facts.upgrade);
    return nullptr;
}

unsigned show(const char* key, std::string& text) {
    text = Wt::WString::tr(key ? key : "[RSnnn]Unknown").toUTF8();
    return key ? 0 : 1;
}

} // namespace

unsigned OverallStatus_ofRxOrTx(const OverallStatusFacts& facts, std::string& text) {
    const unsigned result = show(keyOf(kDeviceRows, facts), text);
    const bool up = (kUp & bit(facts.status)) != 0;
    if (up && facts.upgrade == static_cast<unsigned>(Upgrade::Upgrading))
        text += " (" + std::to_string(facts.percent) + "%)";
    return result;
}

unsigned OverallStatus_ofSwx(const OverallStatusFacts& facts, std::string& text) {
    return show(keyOf(kSwxRows, facts), text);
}
