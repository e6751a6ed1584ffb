// Filling the device list from the database.

#include "db/Convert.h"
#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "views/devices/list/DevStatusMark.h"
#include "views/devices/list/WDevViewList.h"
#include "views/devices/list/ZeqRow.h"

#include <Wt/WStandardItemModel>

#include <boost/any.hpp>

#include <unordered_map>

namespace {

/// Mode of the connection, or 1 for a login, by device index.
using BusyDevices = std::unordered_map<unsigned, Info_ConnectionMode>;

Info_DeviceUpgradeStatus upgradeOf(const json_t* row) {
    return Convert_deviceUpgradeStatusStringToEnum(zeqRowText(row, "upgradeStatus").c_str());
}

std::string txStatus(const json_t* row, const BusyDevices& connections) {
    const auto connection = connections.find(zeqRowNumber(row, "index"));
    const bool connected = connection != connections.end();
    std::string text;
    Db::db.getFastTxOverallStatus(Convert_deviceStatusStringToEnum(zeqRowText(row, "status").c_str()),
                                  Convert_deviceUsageStringToEnum(zeqRowText(row, "usage").c_str()),
                                  upgradeOf(row), zeqRowNumber(row, "upgradePercent"), connected,
                                  connected ? connection->second : Info_ConnectionMode::Share, text);
    return text;
}

std::string rxStatus(const json_t* row, const BusyDevices& logins) {
    std::string text;
    Db::db.getFastRxOverallStatus(Convert_deviceStatusStringToEnum(zeqRowText(row, "status").c_str()),
                                  Convert_deviceUsageStringToEnum(zeqRowText(row, "usage").c_str()),
                                  upgradeOf(row), zeqRowNumber(row, "upgradePercent"),
                                  logins.contains(zeqRowNumber(row, "index")), text);
    return text;
}

std::string swxStatus(const json_t* row, const BusyDevices& /*none*/) {
    std::string text;
    Db::db.getFastSwxOverallStatus(Convert_swxStatusStringToEnum(zeqRowText(row, "status").c_str()),
                                   upgradeOf(row),
                                   Convert_swxUsageStringToEnum(zeqRowText(row, "usage").c_str()), text);
    return text;
}

} // namespace

/// One resource of devices, and the query that tells which of them are in use.
struct WDevViewList::Group {
    using Retrieve = json_t* (*)(ZeqClient_s*, const char*);

    Retrieve retrieve;
    const char* select;
    Retrieve retrieveBusy; // null: nothing to ask
    const char* selectBusy;
    const char* busyKey; // device index in the busy query's records
    std::string (*status)(const json_t* row, const BusyDevices& busy);
};

// Switches are asked for no percent: their status shows none.
const WDevViewList::Group WDevViewList::kGroups[] = {
    {ZeqReq_txRetrieve,
     R"(["index","eid","name","status","upgradeStatus","upgradePercent","usage","firmwareVersion","detailedDeviceType"])",
     ZeqReq_connectionRetrieve, R"(["txIndex","mode"])", "txIndex", txStatus},
    {ZeqReq_rxRetrieve,
     R"(["index","eid","name","status","upgradeStatus","upgradePercent","usage","firmwareVersion","detailedDeviceType"])",
     ZeqReq_userSessionRetrieve, R"(["rxIndex"])", "rxIndex", rxStatus},
    {ZeqReq_swxRetrieve,
     R"(["index","eid","name","status","upgradeStatus","usage","firmwareVersion","detailedDeviceType"])",
     nullptr, nullptr, nullptr, swxStatus},
};

void WDevViewList::readFromDatabase() {
    // Set aside, and still there when this rebuild fails and a later one puts it back.
    if (const Wt::WString filter = mProxy->filterRegExp(); !filter.empty()) mFilter = filter;
    mProxy->setFilterRegExp("");
    mProxy->setDynamicSortFilter(false);
    removeAllRows();
    mComplete = false;
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return; // filter and sorting wait for the next good rebuild
    mComplete = true;
    for (const Group& group : kGroups) readGroup(group, client);
    mProxy->setDynamicSortFilter(true);
    mProxy->setFilterRegExp(mFilter);
    mTable->setMinimumSize(Wt::WLength(1), Wt::WLength(75));
}

void WDevViewList::readGroup(const Group& group, ZeqClient_s* client) {
    const ZeqPtr devices = zeqRetrieve(group.retrieve, client, group.select);
    if (!devices) mComplete = false;
    const int count = devices ? ZeqRspUtil_numEntries(devices.get()) : 0;
    if (count < 1) return;
    int row = mModel->rowCount();
    mModel->insertRows(row, count);

    BusyDevices busy;
    if (group.retrieveBusy) {
        const ZeqPtr records = zeqRetrieve(group.retrieveBusy, client, group.selectBusy);
        const int recordCount = records ? ZeqRspUtil_numEntries(records.get()) : 0;
        for (int i = 0; i < recordCount; ++i) {
            const json_t* record = ZeqObj_getRow(records.get(), i);
            if (record)
                busy.try_emplace(zeqRowNumber(record, group.busyKey),
                                 Convert_connectionModeDbStringToEnum(zeqRowText(record, "mode")));
        }
    }

    for (int i = 0; i < count; ++i) {
        const json_t* device = ZeqObj_getRow(devices.get(), i);
        if (!device) continue;
        setCell(row, Index, zeqRowNumber(device, "index"));
        setCell(row, Eid, zeqRowText(device, "eid"));
        setCell(row, Name, zeqRowText(device, "name"));
        setCell(row, Type,
                Convert_detailedDeviceTypeDbStringToUiString(zeqRowText(device, "detailedDeviceType")));
        setCell(row, Status, group.status(device, busy));
        mModel->setData(row, Status,
                        boost::any(Wt::WString(devStatusMark(zeqRowText(device, "status"),
                                                             zeqRowText(device, "upgradeStatus"),
                                                             zeqRowText(device, "usage")))),
                        Wt::StyleClassRole);
        setCell(row, Firmware, zeqRowText(device, "firmwareVersion"));
        ++row;
    }
}
