#include "views/devices/tabs/WDevViewSwxPorts.h"

#include "db/Convert.h"
#include "db/Db.h"
#include "platform/client/EventLog.h"
#include "platform/client/ZeqReq.h"

#include <Wt/WStandardItemModel>
#include <Wt/WText>

namespace {

constexpr RecordColumn<> kColumns[] = {
    {"[RSnnn]Port", [](const ZeqRow& port) { return std::to_string(port.number("portIndex")); }},
    {"[RSnnn]Remote Port", [](const ZeqRow& port) { return std::to_string(port.number("remotePort")); }},
    {"[RSnnn]Device Type",
     [](const ZeqRow& port) { return Convert_deviceTypeDbStringToUiString(port.text("deviceType")); }},
    {"[RSnnn]EID", "eid"},
    {"[RSnnn]Status",
     [](const ZeqRow& port) { return Convert_portStateDbStringToUiString(port.text("portState")); }},
};

} // namespace

WDevViewSwxPortsTable::WDevViewSwxPortsTable(Wt::WContainerWidget* parent)
    : RecordPane(kColumns, "devices.swx.ports.empty", parent) {
    mTable->sortByColumn(0, Wt::AscendingOrder);
}

void WDevViewSwxPortsTable::readFromDatabase(const std::vector<unsigned>& indexes) {
    mTable->clearData();
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return;
    for (const unsigned index : indexes) {
        if (readSwitch(client, index)) continue;
        EventLog_write(1, 7, __func__, "Unable to retrieve port status.");
        return;
    }
}

bool WDevViewSwxPortsTable::readSwitch(ZeqClient_s* client, unsigned swxIndex) {
    const ZeqPtr status = zeqRetrieve(ZeqReq_portStatusRetrieveBySwxIndex, client, swxIndex);
    const ZeqPtr ports(status ? ZeqObj_collapse(status.get(), "swxIndex", "ports") : nullptr);
    if (!ports) return false;
    int row = 0; // on purpose the first one of all, see the header
    for (const ZeqRow port : ZeqRows(ports.get())) {
        model()->insertRows(model()->rowCount(), 1);
        mTable->setRecord(row++, kColumns, port);
    }
    return true;
}

WDevViewSwxPorts::WDevViewSwxPorts(Wt::WContainerWidget* parent) : Wt::WContainerWidget(parent) {
    auto* caption = new Wt::WText(tr("[RSnnn]Devices Currently Connected to Switch Ports"), this);
    caption->setInline(false);
    caption->setStyleClass("mirl-label");
    mTable = new WDevViewSwxPortsTable(this);
}

void WDevViewSwxPorts::readFromDatabase(const std::vector<unsigned>& indexes) {
    mTable->readFromDatabase(indexes);
}
