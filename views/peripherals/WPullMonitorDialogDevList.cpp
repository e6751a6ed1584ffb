#include "views/peripherals/WPullMonitorDialogDevList.h"

#include "db/Db.h"
#include "db/HeldRecords.h"
#include "platform/client/ZeqReq.h"

namespace {

/// One resource of devices.
struct Group {
    json_t* (*retrieve)(ZeqClient_s*, const char*);
    unsigned offset; // added to the index
    unsigned (Db::*swxOf)(unsigned index, std::string& name, Db::Errors& errors);
};

constexpr Group kGroups[] = {
    {ZeqReq_rxRetrieve, 0, &Db::getSwxNameOrEidFromRxIndex},
    {ZeqReq_txRetrieve, WPullMonitorDialogDevList::kTransmitterOffset, &Db::getSwxNameOrEidFromTxIndex},
};

struct Device : ZeqRow {
    const Group* group;
};

unsigned valueOf(const Device& device) {
    return device.number("index") + device.group->offset;
}

std::string swxOf(const Device& device) {
    std::string name;
    std::vector<std::string> errors;
    (Db::db.*device.group->swxOf)(device.number("index"), name, errors);
    return name;
}

constexpr int kWidth = 121; // pixels

constexpr RecordColumn<Device> kColumns[] = {
    {"index", valueOf},
    {"[RSnnn]EID", "eid", kWidth},
    {"[RSnnn]Name", "name", kWidth},
    {"[RSnnn]Switch", swxOf, kWidth},
};

} // namespace

WPullMonitorDialogDevList::WPullMonitorDialogDevList(Wt::WContainerWidget* parent)
    : RecordTable(kColumns, parent) {
    setEmptyText(tr("periph.devices.empty"));
}

void WPullMonitorDialogDevList::readFromDatabase() {
    clearData();
    HeldRecords held;
    const HeldRecords::Use use(held);
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return;
    for (const Group& group : kGroups) {
        const ZeqPtr answer = zeqRetrieve(group.retrieve, client, R"(["index","eid","name"])");
        addRecords(kColumns, ZeqRows(answer.get()) | std::views::transform([&group](const ZeqRow& row) {
                                 return Device{row, &group};
                             }));
    }
}
