#include "platform/service/request/Computed.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/catalogue/DeviceRows.h"
#include "platform/service/catalogue/DiagnosticRows.h"

#include <algorithm>

namespace zeqd {

namespace {

std::string_view portState(const View& view, const Record& device) {
    if (device.is("status", "offline")) return "no_device";
    if (device.is("upgradeStatus", "upgrading")) return "upgrading";
    const std::string_view side = device.id() == Res::Rx ? "rxIndex" : "txIndex";
    return view.findNumber(Res::Connection, side, device.index()) ? "in_use" : "idle";
}

void plugIn(const View& view, Entries& ports, const Record& device) {
    const std::uint32_t port = device.number("simPort");
    if (port == 0 || port > ports.size()) return;
    Fields& fields = ports[port - 1];
    const auto put = [&fields](std::string_view key, Value value) {
        fields[static_cast<std::size_t>(findKey(rows::kPort, key))] = std::move(value);
    };
    put("remotePort", std::int64_t{1});
    put("deviceType", std::int64_t{findValue(values::deviceType, resource(device.id()).name)});
    put("eid", device.text("eid"));
    put("portState", std::int64_t{findValue(values::portState, portState(view, device))});
}

/// Numbers without a Switch answer an empty port list, so that a walk over all numbers comes to its end.
RecordPtr portStatus(const View& view, std::uint32_t index) {
    if (index < 1 || index > resource(Res::PortStatus).capacity) return nullptr;
    auto record = std::make_shared<Record>(Res::PortStatus, index);
    const RecordPtr swx = view.find(Res::Swx, index);
    if (!swx) return record;
    auto ports = std::make_shared<Entries>();
    for (std::uint32_t port = 1; port <= swx->number("simPortCount"); ++port) {
        ports->push_back(*defaultFields(rows::kPort));
        ports->back()[0] = static_cast<std::int64_t>(port);
    }
    for (const Res kind : {Res::Rx, Res::Tx}) {
        // Looked up once: a large installation has thousands of devices to pass by.
        const auto place = static_cast<std::size_t>(findKey(resource(kind).keys, "simSwx"));
        view.each(kind, [&](const RecordPtr& device) {
            if (device->fields()[place].number() == index) plugIn(view, *ports, *device);
            return true;
        });
    }
    record->set("swxIndex", index);
    record->at("ports") = EntriesPtr(std::move(ports));
    return record;
}

struct Reading {
    std::string_view key;
    std::uint32_t idle; ///< while no session runs
    std::uint32_t busy;
};
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

/// The devices tell the truth of their session: idle figures without one, busy ones with one.
RecordPtr diagnostics(const View& view, Res id, Res deviceKind, std::string_view side,
                      std::span<const Reading> readings, std::uint32_t index) {
    const RecordPtr device = view.find(deviceKind, index);
    if (!device || device->is("status", "offline")) return nullptr;
    const bool busy = view.findNumber(Res::Connection, side, index) != nullptr;
    auto record = std::make_shared<Record>(id, index);
    for (const Reading& reading : readings) record->set(reading.key, busy ? reading.busy : reading.idle);
    return record;
}

std::uint32_t highestIndex(const View& view, Res id) {
    return view.nextIndex(id) - 1;
}

} // namespace

RecordPtr computedRecord(const View& view, Res id, std::uint32_t index) {
    switch (id) {
    case Res::PortStatus:
        return portStatus(view, index);
    case Res::RxUsbDiag:
        return diagnostics(view, id, Res::Rx, "rxIndex", kRxReadings, index);
    case Res::TxUsbDiag:
        return diagnostics(view, id, Res::Tx, "txIndex", kTxReadings, index);
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
