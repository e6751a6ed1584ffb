// Where a device is plugged in. The database has no index from device to port, so the port tables are walked.

#include "db/Db.h"
#include "db/HeldRecords.h"
#include "db/OfRecord.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

#include <tuple>

namespace {

constexpr unsigned kPortStatusRecords = 50; // at most, numbered from 1

/// Adds what is plugged into the ports of a table. An EID that stands twice keeps its first place.
bool readTable(unsigned record, std::map<std::string, HeldRecords::Place>& places) {
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return false;
    const ZeqPtr rsp = zeqRetrieve(ZeqReq_portStatusRetrieveByIndex, client, record);
    if (!rsp) return false;
    const auto swx = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(rsp.get(), "swxIndex"));
    const ZeqPtr ports(ZeqObj_collapse(rsp.get(), "swxIndex", "ports"));
    if (!ports) return false;
    const int rows = ZeqRspUtil_numEntries(ports.get());
    for (int row = 0; row < rows; ++row) {
        if (const char* plugged = ZeqRspUtil_getIndexedStringParam(ports.get(), row, "eid"))
            places.try_emplace(
                plugged, swx,
                static_cast<unsigned>(ZeqRspUtil_getIndexedIntegerParam(ports.get(), row, "portIndex")));
    }
    return true;
}

unsigned findPort(const char* resource, unsigned device, unsigned& swxIndex, unsigned& portIndex,
                  Db::Errors& errors) {
    std::string eid;
    if (readTextOf(resource, device, "eid", eid, errors) != 0) return 1;
    HeldRecords own; // of the ones in use, if there are any: many devices then cost each port table once
    const HeldRecords::Use use(own);
    auto& [places, tables] = HeldRecords::inUse()->ports;
    auto place = places.find(eid);
    while (place == places.end() && tables < kPortStatusRecords) {
        if (!readTable(tables + 1, places)) return 1;
        ++tables;
        place = places.find(eid);
    }
    if (place != places.end()) std::tie(swxIndex, portIndex) = place->second;
    return 0;
}

/// A text of the Switch that a device is plugged into; empty for a device on no port.
unsigned textOfSwxOf(const char* resource, unsigned device, std::string& value, Db::Errors& errors,
                     unsigned (*textOfSwx)(unsigned, std::string&, Db::Errors&)) {
    unsigned swx = 0;
    unsigned port = 0;
    if (findPort(resource, device, swx, port, errors) != 0) return 1;
    if (swx != 0) return textOfSwx(swx, value, errors);
    value.clear();
    return 0;
}

unsigned nameOfSwx(unsigned swx, std::string& value, Db::Errors& errors) {
    return readTextOf("swx", swx, "name", value, errors);
}

unsigned nameOrEidOfSwx(unsigned swx, std::string& value, Db::Errors& errors) {
    return Db::db.getSwxNameOrEidFromSwxIndex(swx, value, errors);
}

} // namespace

unsigned Db::getSwxIndexAndPortIndexFromRxIndex(unsigned rxIndex, unsigned& swxIndex, unsigned& portIndex,
                                                Errors& errors) {
    return findPort("rx", rxIndex, swxIndex, portIndex, errors);
}

unsigned Db::getSwxIndexAndPortIndexFromTxIndex(unsigned txIndex, unsigned& swxIndex, unsigned& portIndex,
                                                Errors& errors) {
    return findPort("tx", txIndex, swxIndex, portIndex, errors);
}

unsigned Db::getSwxNameOrEidFromRxIndex(unsigned index, std::string& value, Errors& errors) {
    return textOfSwxOf("rx", index, value, errors, nameOrEidOfSwx);
}

unsigned Db::getSwxNameOrEidFromTxIndex(unsigned index, std::string& value, Errors& errors) {
    return textOfSwxOf("tx", index, value, errors, nameOrEidOfSwx);
}

unsigned Db::getSwxNameFromRxIndex(unsigned index, std::string& value, Errors& errors) {
    return textOfSwxOf("rx", index, value, errors, nameOfSwx);
}

unsigned Db::getSwxNameFromTxIndex(unsigned index, std::string& value, Errors& errors) {
    return textOfSwxOf("tx", index, value, errors, nameOfSwx);
}
