#include "views/devices/tabs/WDevViewUsb.h"

#include "db/Db.h"
#include "db/DeviceState.h"

#include <Wt/WHBoxLayout>

namespace {

constexpr int kSpacing = 10; // pixels

constexpr UsbDiagRow kRxRows[] = {
    {"[RSnnn]Receiver SRP"},
    {"[RSnnn]Version", "srpVersion", UsbFormat::Version},
    {"[RSnnn]Status", "srpStatus", UsbFormat::Hex2},
    {"[RSnnn]Flags", "srpFlags", UsbFormat::Hex2},
    {"[RSnnn]Receiver SCP"},
    {"[RSnnn]Error", "scpError", UsbFormat::Hex2},
    {"[RSnnn]Flags", "scpFlags", UsbFormat::Hex8},
    {"[RSnnn]PS Held", "scpPSHeldCount", UsbFormat::Hex2},
    {"[RSnnn]Per Held", "scpPerHeldCount", UsbFormat::Hex2},
    {"[RSnnn]Ctl Held", "scpCtlHeldCount", UsbFormat::Hex2},
    {"[RSnnn]Bulk Held", "scpBulkHeldCount", UsbFormat::Hex2},
    {"[RSnnn]Retry Held", "scpRetryHeldCount", UsbFormat::Hex2},
    {"[RSnnn]uCount", "scpUCount", UsbFormat::Hex4},
    {"[RSnnn]Per Drop", "scpPerDropCount", UsbFormat::Hex8},
    {"[RSnnn]OSD Active", "scpOsdActive", UsbFormat::Hex2},
    {"[RSnnn]Mem Reset", "scpMemResetReq", UsbFormat::Hex2},
    {"[RSnnn]Con Req", "scpConnectReq", UsbFormat::Hex2},
    {"[RSnnn]Con Active", "scpConnectActive", UsbFormat::Hex2},
    {"[RSnnn]Discon Status", "scpDisconnectStatus", UsbFormat::Hex2},
    {"[RSnnn]Ext Active", "scpExtensionActive", UsbFormat::Hex2},
};

constexpr auto kRxPageTxRows = usbTxRows(
    {"[RSnnn]Transmitter HCP", "[RSnnn]Transmitter HRP", "rcv.deviceDetails.usb.label.TransmitterHSP"});
constexpr auto kTxPageRows = usbTxRows({"[RSnnn]HCP", "[RSnnn]HRP", "xmt.deviceDetails.usb.label.HSP"});

} // namespace

WDevViewRxUsbRxTable::WDevViewRxUsbRxTable(Wt::WContainerWidget* parent)
    : UsbDiagTable("rxUsbDiag", kRxRows, parent) {}

bool WDevViewRxUsbRxTable::findRecord(unsigned rxIndex, unsigned& recordIndex) {
    recordIndex = rxIndex;
    const auto state = readRxState(rxIndex);
    return state && state->ready();
}

WDevViewRxUsbTxTable::WDevViewRxUsbTxTable(Wt::WContainerWidget* parent)
    : UsbDiagTable("txUsbDiag", kRxPageTxRows, parent) {}

bool WDevViewRxUsbTxTable::findRecord(unsigned rxIndex, unsigned& recordIndex) {
    std::vector<std::string> errors;
    unsigned connection = 0;
    return Db::db.findIndexOfUInt32Key("connection", "rxIndex", rxIndex, connection, errors) == 0 &&
           Db::db.readUInt32("connection", connection, "txIndex", recordIndex, errors) == 0;
}

WDevViewTxUsbTable::WDevViewTxUsbTable(Wt::WContainerWidget* parent)
    : UsbDiagTable("txUsbDiag", kTxPageRows, parent) {}

bool WDevViewTxUsbTable::findRecord(unsigned txIndex, unsigned& recordIndex) {
    recordIndex = txIndex;
    const auto state = readTxState(txIndex);
    return state && state->ready();
}

WDevViewRxUsb::WDevViewRxUsb(Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mTxTable(new WDevViewRxUsbTxTable), mRxTable(new WDevViewRxUsbRxTable) {
    auto* layout = new Wt::WHBoxLayout;
    layout->setSpacing(kSpacing);
    layout->addWidget(mTxTable, 0, Wt::AlignTop);
    layout->addWidget(mRxTable, 0, Wt::AlignTop);
    layout->addWidget(new Wt::WTable, 1);
    setLayout(layout);
}

void WDevViewRxUsb::readFromDatabase(const std::vector<unsigned>& indexes) {
    mTxTable->readFromDatabase(indexes);
    mRxTable->readFromDatabase(indexes);
}

WDevViewTxUsb::WDevViewTxUsb(Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mTable(new WDevViewTxUsbTable(this)) {}

void WDevViewTxUsb::readFromDatabase(const std::vector<unsigned>& indexes) {
    mTable->readFromDatabase(indexes);
}
