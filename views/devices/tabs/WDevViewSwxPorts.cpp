#include "views/devices/tabs/WDevViewSwxPorts.h"

#include "db/Convert.h"
#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/WAutoSizeTableView.h"
#include "platform/client/EventLog.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "views/devices/list/ZeqRow.h"

#include <Wt/WStandardItemModel>
#include <Wt/WText>

#include <cstdio>

namespace {

enum Column { kPort, kRemotePort, kDeviceType, kEid, kStatus };

constexpr const char* kHeaders[] = {"[RSnnn]Port", "[RSnnn]Remote Port", "[RSnnn]Device Type", "[RSnnn]EID",
                                    "[RSnnn]Status"};

std::string numberTextOf(const json_t* row, const char* key) {
    char text[11]; // the largest 32-bit number and its end
    std::snprintf(text, sizeof text, "%u", static_cast<unsigned>(ZeqRspUtil_getIntegerParam(row, key)));
    return text;
}

} // namespace

WDevViewSwxPortsTable::WDevViewSwxPortsTable(Wt::WContainerWidget* parent)
    : DevShownRows(kHeaders, "devices.swx.ports.empty", parent) {
    mView->sortByColumn(kPort, Wt::AscendingOrder);
}

void WDevViewSwxPortsTable::readFromDatabase(const std::vector<unsigned>& indexes) {
    clearRows();
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
    for (int i = 0; i < ZeqRspUtil_numEntries(ports.get()); ++i) {
        const json_t* port = ZeqObj_getRow(ports.get(), i);
        if (!port) continue;
        mModel->insertRows(mModel->rowCount(), 1);
        setText(i, kPort, numberTextOf(port, "portIndex"));
        setText(i, kRemotePort, numberTextOf(port, "remotePort"));
        setText(i, kDeviceType, Convert_deviceTypeDbStringToUiString(zeqRowText(port, "deviceType")));
        setText(i, kEid, zeqRowText(port, "eid"));
        setText(i, kStatus, Convert_portStateDbStringToUiString(zeqRowText(port, "portState")));
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
