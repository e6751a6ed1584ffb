#include "views/devices/tabs/WDevViewUsb.h"

#include "db/Db.h"
#include "db/DeviceState.h"

#include <array>

namespace {

using enum UsbFormat;

constexpr SettingsTableSpec kRxSpec = usbSpec("rxUsbDiag");
constexpr SettingsTableSpec kTxSpec = usbSpec("txUsbDiag");

constexpr SettingsRow kRxRows[] = {
    usbGroup("[RSnnn]Receiver SRP"),
    usbRow<Version>("[RSnnn]Version", "srpVersion"),
    usbRow<Hex2>("[RSnnn]Status", "srpStatus"),
    usbRow<Hex2>("[RSnnn]Flags", "srpFlags"),
    usbGroup("[RSnnn]Receiver SCP"),
    usbRow<Hex2>("[RSnnn]Error", "scpError"),
    usbRow<Hex8>("[RSnnn]Flags", "scpFlags"),
    usbRow<Hex2>("[RSnnn]PS Held", "scpPSHeldCount"),
    usbRow<Hex2>("[RSnnn]Per Held", "scpPerHeldCount"),
    usbRow<Hex2>("[RSnnn]Ctl Held", "scpCtlHeldCount"),
    usbRow<Hex2>("[RSnnn]Bulk Held", "scpBulkHeldCount"),
    usbRow<Hex2>("[RSnnn]Retry Held", "scpRetryHeldCount"),
    usbRow<Hex4>("[RSnnn]uCount", "scpUCount"),
    usbRow<Hex8>("[RSnnn]Per Drop", "scpPerDropCount"),
    usbRow<Hex2>("[RSnnn]OSD Active", "scpOsdActive"),
    usbRow<Hex2>("[RSnnn]Mem Reset", "scpMemResetReq"),
    usbRow<Hex2>("[RSnnn]Con Req", "scpConnectReq"),
    usbRow<Hex2>("[RSnnn]Con Active", "scpConnectActive"),
    usbRow<Hex2>("[RSnnn]Discon Status", "scpDisconnectStatus"),
    usbRow<Hex2>("[RSnnn]Ext Active", "scpExtensionActive"),
};

/// Transmitter's side, in the words of the page it stands on.
struct UsbTxGroupKeys {
    const char* hcp;
    const char* hrp;
    const char* hsp;
};
constexpr std::array<SettingsRow, 20> usbTxRows(const UsbTxGroupKeys& groups) {
    return {{
        usbGroup(groups.hcp),
        usbRow<Version>("[RSnnn]Version", "hcpVersion"),
        usbRow<Hex2>("[RSnnn]Status", "hcpStatus"),
        usbRow<Hex2>("[RSnnn]Flags", "hcpFlags"),
        usbRow<Hex2>("[RSnnn]EState", "hcpEState"),
        usbRow<Hex2>("[RSnnn]Hub1", "hcpHub1"),
        usbRow<Hex2>("[RSnnn]Hub2", "hcpHub2"),
        usbRow<Hex2>("[RSnnn]HID", "hcpHid"),
        usbRow<Hex2>("[RSnnn]TxState", "hcpTxState"),
        usbRow<Hex2>("[RSnnn]GFlags", "hcpGFlags"),
        usbRow<Hex2>("[RSnnn]TFlags", "hcpTFlags"),
        usbRow<Hex2>("[RSnnn]Count", "hcpCount"),
        usbRow<Hex2>("[RSnnn]LastDevNum", "hcpLastDevNum"),
        usbRow<Hex2>("[RSnnn]LastDevEndPt", "hcpLastDevEndPt"),
        usbGroup(groups.hrp),
        usbRow<Version>("[RSnnn]Version", "hrpVersion"),
        usbRow<Hex2>("[RSnnn]Status", "hrpStatus"),
        usbGroup(groups.hsp),
        usbRow<Version>("[RSnnn]Version", "hspVersion"),
        usbRow<Hex2>("[RSnnn]Status", "hspStatus"),
    }};
}

constexpr auto kRxPageTxRows = usbTxRows(
    {"[RSnnn]Transmitter HCP", "[RSnnn]Transmitter HRP", "rcv.deviceDetails.usb.label.TransmitterHSP"});
constexpr auto kTxPageRows = usbTxRows({"[RSnnn]HCP", "[RSnnn]HRP", "xmt.deviceDetails.usb.label.HSP"});

unsigned readyRx(unsigned rxIndex) {
    const auto state = readRxState(rxIndex);
    return state && state->ready() ? rxIndex : 0;
}

unsigned readyTx(unsigned txIndex) {
    const auto state = readTxState(txIndex);
    return state && state->ready() ? txIndex : 0;
}

unsigned txConnectedTo(unsigned rxIndex) {
    std::vector<std::string> errors;
    unsigned connection = 0;
    unsigned tx = 0;
    const bool found =
        Db::db.findIndexOfUInt32Key("connection", "rxIndex", rxIndex, connection, errors) == 0 &&
        Db::db.readUInt32("connection", connection, "txIndex", tx, errors) == 0;
    return found ? tx : 0;
}

} // namespace

WDevViewRxUsbRxTable::WDevViewRxUsbRxTable(Wt::WContainerWidget* parent)
    : UsbDiagTable(kRxSpec, kRxRows, readyRx, parent) {}

WDevViewRxUsbTxTable::WDevViewRxUsbTxTable(Wt::WContainerWidget* parent)
    : UsbDiagTable(kTxSpec, kRxPageTxRows, txConnectedTo, parent) {}

WDevViewTxUsbTable::WDevViewTxUsbTable(Wt::WContainerWidget* parent)
    : UsbDiagTable(kTxSpec, kTxPageRows, readyTx, parent) {}

WDevViewRxUsb::WDevViewRxUsb(Wt::WContainerWidget* parent)
    : ShownTables({new WDevViewRxUsbTxTable, new WDevViewRxUsbRxTable}, parent) {}
