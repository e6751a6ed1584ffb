#include "platform/service/request/Computed.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/catalogue/DeviceRows.h"
#include "platform/service/catalogue/DiagnosticRows.h"

#include <algorithm>

namespace zeqd {

namespace {

constexpr Reading kRxReadings[] = {
    {"srpVersion", 0x0203, 0x0203}, {"srpStatus", 0x01, 0x03},    {"srpFlags", 0x00, 0x11},
    {"scpFlags", 0, 0x00010203},    {"scpUCount", 0, 0x1F40},     {"scpConnectReq", 0, 1},
    {"scpConnectActive", 0, 1},     {"scpExtensionActive", 0, 1},
};
constexpr Reading kTxReadings[] = {
    {"hcpVersion", 0x0301, 0x0301},
    {"hcpStatus", 0x01, 0x07},
    {"hcpEState", 0x00, 0x04},
    {"hcpHub1", 0, 0x11},
    {"hcpHid", 0, 0x03},
    {"hcpTxState", 0, 0x02},
    {"hcpCount", 0, 3},
    {"hcpLastDevNum", 0, 2},
    {"hcpLastDevEndPt", 0, 0x81},
    {"hrpVersion", 0x0102, 0x0102},
    {"hrpStatus", 0x01, 0x03},
    {"hspVersion", 0x0100, 0x0100},
    {"hspStatus", 0x00, 0x01},
};

std::uint32_t highestIndex(const View& view, Res id) {
    return view.nextIndex(id) - 1;
}

} // namespace

bool ComputedRecords::busy(Res kind, std::uint32_t index) {
    if (!mBusy) {
        mBusy.emplace();
        mView.each(Res::Connection, [this](const RecordPtr& connection) {
            mBusy->emplace(Res::Rx, connection->number("rxIndex"));
            mBusy->emplace(Res::Tx, connection->number("txIndex"));
            return true;
        });
    }
    return mBusy->contains({kind, index});
}

std::string_view ComputedRecords::portState(const Record& device) {
    if (device.is("status", "offline")) return "no_device";
    if (device.is("upgradeStatus", "upgrading")) return "upgrading";
    return busy(device.id(), device.index()) ? "in_use" : "idle";
}

void ComputedRecords::plugIn(Entries& ports, const Record& device) {
    const std::uint32_t port = device.number("simPort");
    if (port == 0 || port > ports.size()) return;
    Fields& fields = ports[port - 1];
    const auto put = [&fields](std::string_view key, Value value) {
        fields[static_cast<std::size_t>(findKey(rows::kPort, key))] = std::move(value);
    };
    put("remotePort", std::int64_t{1});
    put("deviceType", std::int64_t{findValue(values::deviceType, resource(device.id()).name)});
    put("eid", device.text("eid"));
    put("portState", std::int64_t{findValue(values::portState, portState(device))});
}

/// Numbers without a Switch answer an empty port list, so that a walk over all numbers comes to its end.
RecordPtr ComputedRecords::portStatus(std::uint32_t index) {
    if (index < 1 || index > resource(Res::PortStatus).capacity) return nullptr;
    auto record = std::make_shared<Record>(Res::PortStatus, index);
    const RecordPtr swx = mView.find(Res::Swx, index);
    if (!swx) return record;
    auto ports = std::make_shared<Entries>();
    for (std::uint32_t port = 1; port <= swx->number("simPortCount"); ++port) {
        ports->push_back(*defaultFields(rows::kPort));
        ports->back()[0] = static_cast<std::int64_t>(port);
    }
    for (const Res kind : {Res::Rx, Res::Tx}) {
        // Looked up once: a large installation has thousands of devices to pass by.
        const auto place = static_cast<std::size_t>(findKey(resource(kind).keys, "simSwx"));
        mView.each(kind, [&](const RecordPtr& device) {
            if (device->fields()[place].number() == index) plugIn(*ports, *device);
            return true;
        });
    }
    record->set("swxIndex", index);
    record->at("ports") = EntriesPtr(std::move(ports));
    return record;
}

/// The devices tell the truth of their session: idle figures without one, busy ones with one.
RecordPtr ComputedRecords::diagnostics(Res id, Res kind, std::span<const Reading> readings,
                                       std::uint32_t index) {
    const RecordPtr device = mView.find(kind, index);
    if (!device || device->is("status", "offline")) return nullptr;
    auto record = std::make_shared<Record>(id, index);
    for (const Reading& reading : readings)
        record->set(reading.key, busy(kind, index) ? reading.busy : reading.idle);
    return record;
}

RecordPtr ComputedRecords::record(Res id, std::uint32_t index) {
    switch (id) {
    case Res::PortStatus:
        return portStatus(index);
    case Res::RxUsbDiag:
        return diagnostics(id, Res::Rx, kRxReadings, index);
    case Res::TxUsbDiag:
        return diagnostics(id, Res::Tx, kTxReadings, index);
    default:
        return nullptr;
    }
}

std::uint32_t computedIndexes(const View& view, Res id) {
    switch (id) {
    case Res::PortStatus:
        return std::min(highestIndex(view, Res::Swx), resource(id).capacity);
    case Res::RxUsbDiag:
        return highestIndex(view, Res::Rx);
    case Res::TxUsbDiag:
        return highestIndex(view, Res::Tx);
    default:
        return 0;
    }
}

RecordPtr upToDate(const RecordPtr& record, std::int64_t now) {
    if (record->id() != Res::Swx) return nullptr;
    auto fresh = std::make_shared<Record>(*record);
    fresh->set("currentSysTime", static_cast<std::uint32_t>(now));
    return fresh;
}

} // namespace zeqd
