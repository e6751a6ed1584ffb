// Monitor descriptions of the "edid" records.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "views/peripherals/Edid.h"

namespace {

// Bytes in a record: a base block and room for one extension block.
constexpr unsigned kEdidRecordSize = 256;

} // namespace

unsigned Db::getEdidInfo(unsigned edidIndex, std::string& manufacturerId, std::string& productCode,
                         std::string& videoType, Errors& errors) {
    ZeqClient_s* client = nullptr;
    if (getZeqClient(client) != 0) return 1;
    const ZeqPtr rsp = zeqRetrieve(ZeqReq_edidRetrieveByIndex, client, edidIndex);
    if (!rsp || zeqRefused(rsp.get(), errors) != 0) return 1;
    char bytes[kEdidRecordSize] = {};
    ZeqRspUtil_getBinaryParam(rsp.get(), "data", bytes, sizeof bytes);
    Edid edid;
    edid.populate(bytes, sizeof bytes);
    edid.manufacturerIdGet(manufacturerId);
    edid.productCodeGet(productCode);
    videoType = edid.isDigital() ? "[RSnnn]DVI" : "[RSnnn]VGA";
    return 0;
}

unsigned Db::getEdidByName(const std::string& name, char* buffer, unsigned size, Errors& errors) {
    ZeqClient_s* client = nullptr;
    if (getZeqClient(client) != 0) return 1;
    const ZeqPtr rsp = zeqRetrieve(ZeqReq_edidRetrieveByName, client, name.c_str());
    if (!rsp || zeqRefused(rsp.get(), errors) != 0) return 1;
    ZeqRspUtil_getBinaryParam(rsp.get(), "data", buffer, size);
    return 0;
}
