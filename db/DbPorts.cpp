// Where a device is plugged in. The database has no index from device to port, so the port tables are walked.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

namespace {

constexpr unsigned kPortStatusRecords = 50; // at most, numbered from 1

unsigned findPort(const char* resource, unsigned device, unsigned& swxIndex, unsigned& portIndex,
                  Db::Errors& errors) {
    std::string eid;
    if (Db::db.readString(resource, device, "eid", eid, errors) != 0) return 1;
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return 1;
    for (unsigned record = 1; record <= kPortStatusRecords; ++record) {
        const ZeqPtr rsp = zeqRetrieve(ZeqReq_portStatusRetrieveByIndex, client, record);
        if (!rsp) return 1;
        const auto swx = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(rsp.get(), "swxIndex"));
        const ZeqPtr ports(ZeqObj_collapse(rsp.get(), "swxIndex", "ports"));
        if (!ports) return 1;
        const int rows = ZeqRspUtil_numEntries(ports.get());
        for (int row = 0; row < rows; ++row) {
            const char* plugged = ZeqRspUtil_getIndexedStringParam(ports.get(), row, "eid");
            if (!plugged || eid != plugged) continue;
            portIndex =
                static_cast<unsigned>(ZeqRspUtil_getIndexedIntegerParam(ports.get(), row, "portIndex"));
            swxIndex = swx;
            return 0;
        }
    }
    return 0;
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
    unsigned swx = 0;
    unsigned port = 0;
    if (findPort("rx", index, swx, port, errors) != 0) return 1;
    return getSwxNameOrEidFromSwxIndex(swx, value, errors);
}

unsigned Db::getSwxNameOrEidFromTxIndex(unsigned index, std::string& value, Errors& errors) {
    unsigned swx = 0;
    unsigned port = 0;
    if (findPort("tx", index, swx, port, errors) != 0) return 1;
    return getSwxNameOrEidFromSwxIndex(swx, value, errors);
}

unsigned Db::getSwxNameFromRxIndex(unsigned index, std::string& value, Errors& errors) {
    unsigned swx = 0;
    unsigned port = 0;
    if (findPort("rx", index, swx, port, errors) != 0) return 1;
    return readString("swx", swx, "name", value, errors);
}

unsigned Db::getSwxNameFromTxIndex(unsigned index, std::string& value, Errors& errors) {
    unsigned swx = 0;
    unsigned port = 0;
    if (findPort("tx", index, swx, port, errors) != 0) return 1;
    return readString("swx", swx, "name", value, errors);
}
