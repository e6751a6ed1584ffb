// Search for the record that holds a value. The service has no index: all rows are walked in order.

#include "db/Db.h"
#include "db/HeldRecords.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

#include <cstring>

unsigned Db::findIndexOfStringKey(const char* resource, const char* resultKey, const char* searchKey,
                                  const char* searchValue, unsigned& result, Errors& errors) {
    ZeqExchange exchange(ZeqReqUtil_newGetResource, resource, __func__);
    if (exchange.send(errors) != 0) return 1;
    const json_t* rsp = exchange.response();
    const int rows = ZeqRspUtil_numEntries(rsp);
    for (int row = 0; row < rows; ++row) {
        const char* text = ZeqRspUtil_getIndexedStringParam(rsp, row, searchKey);
        if (!text || std::strcmp(text, searchValue) != 0) continue;
        result = static_cast<unsigned>(ZeqRspUtil_getIndexedIntegerParam(rsp, row, resultKey));
        return 0;
    }
    return 1;
}

unsigned Db::findIndexOfUInt32Key(const char* resource, const char* key, unsigned value, unsigned& index,
                                  Errors& errors) {
    if (HeldRecords* held = HeldRecords::inUse(); held && HeldRecords::holdsWhole(resource))
        return held->find(resource, key, value, index);
    ZeqExchange exchange(ZeqReqUtil_newGetResource, resource, __func__);
    // A table without entries is refused; here that is just "not found".
    if (exchange.sendQuietly() != 0) return 1;
    const json_t* rsp = exchange.response();
    unsigned row = 0;
    if (findOffsetOfUInt32KeyInZeqRsp(rsp, key, value, row, errors) != 0) return 1;
    index = static_cast<unsigned>(ZeqRspUtil_getIndexedIntegerParam(rsp, static_cast<int>(row), "index"));
    return 0;
}

unsigned Db::findOffsetOfUInt32KeyInZeqRsp(const json_t* rsp, const char* key, unsigned value,
                                           unsigned& offset, Errors& errors) {
    const int rows = ZeqRspUtil_numEntries(rsp);
    for (int row = 0; row < rows; ++row) {
        const auto held = static_cast<unsigned>(ZeqRspUtil_getIndexedIntegerParam(rsp, row, key));
        if (zeqRefused(rsp, errors) != 0) return 1;
        if (held == value) {
            offset = static_cast<unsigned>(row);
            return 0;
        }
    }
    return 1;
}
