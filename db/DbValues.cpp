// One value of one record: the standard read and the standard write.

#include "db/Db.h"
#include "db/HeldRecords.h"
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

// Takes the value from the records that are held, if it is covered, else from an answer of its own.
template <class Take>
unsigned readValue(const char* resource, unsigned index, const char* key, Db::Errors& errors,
                   const char* caller, Take take) {
    if (HeldRecords* held = HeldRecords::covering(resource, index, key)) {
        const json_t* row = held->row(resource, index, key, errors);
        if (row) take(row);
        return row ? 0 : 1;
    }
    ZeqExchange exchange = readOf(resource, index, key, caller);
    if (exchange.send(errors) != 0) return 1;
    take(exchange.response());
    return 0;
}

ZeqExchange writeOf(const char* resource, unsigned index, const char* caller) {
    ZeqExchange exchange(ZeqReqUtil_newSetResource, resource, caller);
    if (exchange.ready() && index != 0) ZeqReqUtil_setIntegerParam(exchange.request(), "index", index);
    return exchange;
}

} // namespace

unsigned Db::readUInt32(const char* resource, unsigned index, const char* key, unsigned& value,
                        Errors& errors) {
    const auto take = [&](const json_t* row) {
        value = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(row, key));
    };
    return readValue(resource, index, key, errors, __func__, take);
}

unsigned Db::readString(const char* resource, unsigned index, const char* key, std::string& value,
                        Errors& errors) {
    const auto take = [&](const json_t* row) {
        if (const char* text = ZeqRspUtil_getStringParam(row, key)) value = text;
    };
    return readValue(resource, index, key, errors, __func__, take);
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
