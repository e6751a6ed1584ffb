// One value of one record: the standard read and the standard write.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

#include <strings.h>

namespace {

ZeqExchange readOf(const char* resource, unsigned index, const char* key, const char* caller) {
    ZeqExchange exchange(ZeqReqUtil_newGetResource, resource, caller);
    if (!exchange.ready()) return exchange;
    if (index != 0) ZeqObj_setUInt32Object(exchange.request(), "query", "index", index);
    ZeqObj_setSelect(exchange.request(), key);
    return exchange;
}

ZeqExchange writeOf(const char* resource, unsigned index, const char* caller) {
    ZeqExchange exchange(ZeqReqUtil_newSetResource, resource, caller);
    if (exchange.ready() && index != 0) ZeqReqUtil_setIntegerParam(exchange.request(), "index", index);
    return exchange;
}

} // namespace

unsigned Db::readUInt32(const char* resource, unsigned index, const char* key, unsigned& value,
                        Errors& errors) {
    ZeqExchange exchange = readOf(resource, index, key, __func__);
    if (exchange.send(errors) != 0) return 1;
    value = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(exchange.response(), key));
    return 0;
}

unsigned Db::readString(const char* resource, unsigned index, const char* key, std::string& value,
                        Errors& errors) {
    ZeqExchange exchange = readOf(resource, index, key, __func__);
    if (exchange.send(errors) != 0) return 1;
    if (const char* text = ZeqRspUtil_getStringParam(exchange.response(), key)) value = text;
    return 0;
}

unsigned Db::readEnableDisable(const char* resource, unsigned index, const char* key, bool& value,
                               Errors& errors) {
    std::string text;
    if (readString(resource, index, key, text, errors) != 0) return 1;
    value = strcasecmp(text.c_str(), "enabled") == 0;
    return 0;
}

unsigned Db::writeUInt32(const char* resource, unsigned index, const char* key, unsigned value,
                         Errors& errors) {
    ZeqExchange exchange = writeOf(resource, index, __func__);
    if (!exchange.ready()) return 1;
    ZeqReqUtil_setIntegerParam(exchange.request(), key, value);
    return exchange.send(errors, "Cannot write integer value to database.");
}

unsigned Db::writeString(const char* resource, unsigned index, const char* key, const char* value,
                         Errors& errors) {
    ZeqExchange exchange = writeOf(resource, index, __func__);
    if (!exchange.ready()) return 1;
    ZeqReqUtil_setStringParam(exchange.request(), key, value);
    return exchange.send(errors, "Cannot write string value to database.");
}

unsigned Db::writeString(const char* resource, unsigned index, const char* key, const std::string& value,
                         Errors& errors) {
    return writeString(resource, index, key, value.c_str(), errors);
}

unsigned Db::writeEnableDisable(const char* resource, unsigned index, const char* key, bool value,
                                Errors& errors) {
    return writeString(resource, index, key, value ? "enabled" : "disabled", errors);
}

unsigned Db::requestDeviceReboot(const char* resource, unsigned index, Errors& errors) {
    return writeString(resource, index, "reset", "cold_reboot", errors);
}

unsigned Db::deleteRecordByIndex(const char* resource, unsigned index, Errors& errors) {
    ZeqExchange exchange(ZeqReqUtil_newDeleteResource, resource, __func__);
    if (!exchange.ready()) return 1;
    ZeqObj_setUInt32Object(exchange.request(), "params", "index", index);
    return exchange.send(errors);
}
