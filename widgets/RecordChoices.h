#pragma once

#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

#include <initializer_list>

/// Characters of an EID, which stands at the front of a target's item ("EID (name)").
inline constexpr std::size_t kEidLength = 13;

/// Asks for the keys of all records of a resource and calls visit(table, row) for each. 1 when no answer came
/// or the service refused; what it refused is logged. `caller` is the function named in the log.
template <class Visit>
unsigned visitRecords(const char* resource, std::initializer_list<const char*> keys, const char* caller,
                      Visit visit) {
    ZeqExchange exchange(ZeqReqUtil_newGetResource, resource, caller);
    for (const char* key : keys) ZeqReqUtil_setSelect(exchange.request(), key);
    std::vector<std::string> dropped;
    if (exchange.send(dropped) != 0) return 1;
    const int rows = ZeqRspUtil_numEntries(exchange.response());
    for (int row = 0; row < rows; ++row) visit(exchange.response(), row);
    return 0;
}
