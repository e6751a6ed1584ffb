// Status of a device, in numbers and in one word.

#include "db/Convert.h"
#include "db/Db.h"
#include "db/DeviceState.h"
#include "db/OfRecord.h"
#include "db/OverallStatus.h"

#include <Wt/WString>

namespace {

// The three status fields of a device, as they stand in its record.
struct StatusFields {
    std::string status;
    std::string upgrade;
    std::string usage;
};

unsigned readFields(const char* resource, unsigned index, StatusFields& fields, Db::Errors& errors) {
    if (readTextOf(resource, index, "status", fields.status, errors) != 0) return 1;
    if (readTextOf(resource, index, "upgradeStatus", fields.upgrade, errors) != 0) return 1;
    return readTextOf(resource, index, "usage", fields.usage, errors);
}

unsigned readDevice(const char* resource, unsigned index, Info_DeviceStatus& status,
                    Info_DeviceUpgradeStatus& upgrade, Info_DeviceUsage& usage, Db::Errors& errors) {
    StatusFields fields;
    if (readFields(resource, index, fields, errors) != 0) return 1;
    status = Convert_deviceStatusStringToEnum(fields.status.c_str());
    upgrade = Convert_deviceUpgradeStatusStringToEnum(fields.upgrade.c_str());
    usage = Convert_deviceUsageStringToEnum(fields.usage.c_str());
    return 0;
}

unsigned unknownStatus(std::string& text) {
    text = Wt::WString::tr("[RSnnn]Unknown").toUTF8();
    return 1;
}

OverallStatusFacts::Busy busyOf(bool connected, Info_ConnectionMode mode) {
    if (!connected) return OverallStatusFacts::Free;
    if (mode == Info_ConnectionMode::Share) return OverallStatusFacts::Shared;
    return mode == Info_ConnectionMode::Private ? OverallStatusFacts::Private : OverallStatusFacts::InUse;
}

template <class E>
constexpr unsigned number(E value) {
    return static_cast<unsigned>(value);
}

} // namespace

unsigned Db::getSwxStatus(unsigned index, Info_SwxStatus& status, Info_DeviceUpgradeStatus& upgrade,
                          Info_SwxUsage& usage, Errors& errors) {
    StatusFields fields;
    if (readFields("swx", index, fields, errors) != 0) return 1;
    status = Convert_swxStatusStringToEnum(fields.status.c_str());
    upgrade = Convert_deviceUpgradeStatusStringToEnum(fields.upgrade.c_str());
    usage = Convert_swxUsageStringToEnum(fields.usage.c_str());
    return 0;
}

unsigned Db::getRxStatus(unsigned index, Info_DeviceStatus& status, Info_DeviceUpgradeStatus& upgrade,
                         Info_DeviceUsage& usage, bool& loggedIn, Errors& errors) {
    if (readDevice("rx", index, status, upgrade, usage, errors) != 0) return 1;
    unsigned userIndex = 0;
    getLoggedInUserIndexFromRxIndex(index, userIndex, errors);
    loggedIn = userIndex != 0;
    return 0;
}

unsigned Db::getTxStatus(unsigned index, Info_DeviceStatus& status, Info_DeviceUpgradeStatus& upgrade,
                         Info_DeviceUsage& usage, bool& connected, Info_ConnectionMode& mode,
                         Errors& errors) {
    if (readDevice("tx", index, status, upgrade, usage, errors) != 0) return 1;
    unsigned connection = 0;
    findIndexOfUInt32Key("connection", "txIndex", index, connection, errors);
    connected = connection != 0;
    mode = Info_ConnectionMode::None;
    if (!connected) return 0;
    std::string text;
    if (readString("connection", connection, "mode", text, errors) != 0) return 1;
    mode = Convert_connectionModeDbStringToEnum(text);
    return 0;
}

unsigned Db::getRxOverallStatus(unsigned index, std::string& text, Errors& errors) {
    const auto rx = readRxState(index, errors);
    if (!rx) return unknownStatus(text);
    return getFastRxOverallStatus(rx->status, rx->usage, rx->upgrade, 0, rx->loggedIn, text);
}

unsigned Db::getTxOverallStatus(unsigned index, std::string& text, Errors& errors) {
    const auto tx = readTxState(index, errors);
    if (!tx) return unknownStatus(text);
    return getFastTxOverallStatus(tx->status, tx->usage, tx->upgrade, 0, tx->connected, tx->mode, text);
}

unsigned Db::getSwxOverallStatus(unsigned index, std::string& text, Errors& errors) {
    const auto swx = readSwxState(index, errors);
    if (!swx) return unknownStatus(text);
    return getFastSwxOverallStatus(swx->status, swx->upgrade, swx->usage, text);
}

unsigned Db::getFastRxOverallStatus(Info_DeviceStatus status, Info_DeviceUsage usage,
                                    Info_DeviceUpgradeStatus upgrade, unsigned percent, bool loggedIn,
                                    std::string& text) {
    const auto busy = loggedIn ? OverallStatusFacts::InUse : OverallStatusFacts::Free;
    return OverallStatus_ofRxOrTx({number(status), number(upgrade), number(usage), busy, percent}, text);
}

unsigned Db::getFastTxOverallStatus(Info_DeviceStatus status, Info_DeviceUsage usage,
                                    Info_DeviceUpgradeStatus upgrade, unsigned percent, bool connected,
                                    Info_ConnectionMode mode, std::string& text) {
    return OverallStatus_ofRxOrTx(
        {number(status), number(upgrade), number(usage), busyOf(connected, mode), percent}, text);
}

unsigned Db::getFastSwxOverallStatus(Info_SwxStatus status, Info_DeviceUpgradeStatus upgrade,
                                     Info_SwxUsage usage, std::string& text) {
    return OverallStatus_ofSwx({number(status), number(upgrade), number(usage)}, text);
}
