// Columns of the device list, and filling them from the database.

#include "db/Convert.h"
#include "db/Db.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqReq.h"
#include "views/devices/list/DevStatusMark.h"
#include "views/devices/list/WDevViewList.h"

#include <unordered_map>

namespace {

/// Mode of the connection, or 1 for a login, by device index.
using BusyDevices = std::unordered_map<unsigned, Info_ConnectionMode>;

struct Device;

/// One resource of devices, and the query that tells which of them are in use.
struct Group {
    using Retrieve = json_t* (*)(ZeqClient_s*, const char*);

    Retrieve retrieve;
    const char* select;
    Retrieve retrieveBusy; // null: nothing to ask
    const char* selectBusy;
    const char* busyKey; // device index in the busy query's records
    std::string (*status)(const Device& device);
};

/// A record of a group, and what its status needs besides.
struct Device : ZeqRow {
    const Group* group;
    const BusyDevices* busy;

    /// Its mode in the busy query; null when the device is not in use.
    const Info_ConnectionMode* useMode() const {
        const auto found = busy->find(number("index"));
        return found == busy->end() ? nullptr : &found->second;
    }
    Info_DeviceStatus status() const { return Convert_deviceStatusStringToEnum(text("status").c_str()); }
    Info_DeviceUsage usage() const { return Convert_deviceUsageStringToEnum(text("usage").c_str()); }
    Info_DeviceUpgradeStatus upgrade() const {
        return Convert_deviceUpgradeStatusStringToEnum(text("upgradeStatus").c_str());
    }
};

std::string txStatus(const Device& tx) {
    const Info_ConnectionMode* mode = tx.useMode();
    std::string text;
    Db::db.getFastTxOverallStatus(tx.status(), tx.usage(), tx.upgrade(), tx.number("upgradePercent"),
                                  mode != nullptr, mode ? *mode : Info_ConnectionMode::Share, text);
    return text;
}

std::string rxStatus(const Device& rx) {
    std::string text;
    Db::db.getFastRxOverallStatus(rx.status(), rx.usage(), rx.upgrade(), rx.number("upgradePercent"),
                                  rx.useMode() != nullptr, text);
    return text;
}

std::string swxStatus(const Device& swx) {
    std::string text;
    Db::db.getFastSwxOverallStatus(Convert_swxStatusStringToEnum(swx.text("status").c_str()), swx.upgrade(),
                                   Convert_swxUsageStringToEnum(swx.text("usage").c_str()), text);
    return text;
}

// Switches are asked for no percent: their status shows none.
constexpr Group kGroups[] = {
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

std::string typeOf(const Device& device) {
    return Convert_detailedDeviceTypeDbStringToUiString(device.text("detailedDeviceType"));
}

std::string statusOf(const Device& device) {
    return device.group->status(device);
}

const char* statusMarkOf(const Device& device) {
    return devStatusMark(device.text("status"), device.text("upgradeStatus"), device.text("usage"));
}

constexpr RecordColumn<Device> kColumns[] = {
    {"Index", RecordIndex{}},
    {"[RSnnn]EID", "eid"},
    {"[RSnnn]Name", "name"},
    {"[RSnnn]Type", typeOf},
    {"[RSnnn]Status", statusOf, 0, statusMarkOf},
    {"[RSnnn]Firmware", "firmwareVersion"},
};

using List = WDevViewList;
static_assert(std::size(kColumns) == List::kColumnCount &&
              columnHeaded(kColumns, "[RSnnn]EID") == List::Eid &&
              columnHeaded(kColumns, "[RSnnn]Name") == List::Name &&
              columnHeaded(kColumns, "[RSnnn]Type") == List::Type &&
              columnHeaded(kColumns, "[RSnnn]Status") == List::Status);

BusyDevices busyDevicesOf(const Group& group, ZeqClient_s* client) {
    BusyDevices busy;
    if (!group.retrieveBusy) return busy;
    const ZeqPtr records = zeqRetrieve(group.retrieveBusy, client, group.selectBusy);
    for (const ZeqRow record : ZeqRows(records.get()))
        busy.try_emplace(record.number(group.busyKey),
                         Convert_connectionModeDbStringToEnum(record.text("mode")));
    return busy;
}

/// False without an answer.
bool readGroup(const Group& group, ZeqClient_s* client, RecordTable& table) {
    const ZeqPtr answer = zeqRetrieve(group.retrieve, client, group.select);
    const ZeqRows rows(answer.get());
    if (rows.empty()) return answer != nullptr;
    const BusyDevices busy = busyDevicesOf(group, client);
    table.addRecords(kColumns, rows | std::views::transform([&](const ZeqRow& row) {
                                   return Device{row, &group, &busy};
                               }));
    return true;
}

} // namespace

WDevViewList::WDevViewList(const Wt::WString& title, Wt::WContainerWidget* parent)
    : WObjListContextPanel(title, kColumnCount, true, parent) {
    mTable->setColumns(kColumns);
    mTable->setSelectionMode(Wt::ExtendedSelection);
    setEmptyText(tr("devices.list.empty"));
    mTable->sortByColumn(Name, Wt::AscendingOrder);
}

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
    for (const Group& group : kGroups) {
        if (!readGroup(group, client, *mTable)) mComplete = false;
    }
    mProxy->setDynamicSortFilter(true);
    mProxy->setFilterRegExp(mFilter);
    mTable->setMinimumSize(Wt::WLength(1), Wt::WLength(75));
}
