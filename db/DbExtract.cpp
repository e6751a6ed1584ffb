// One value of a response already held: no exchange.

#include "db/Db.h"
#include "platform/client/ZeqRsp.h"

unsigned Db::extractUInt32(const json_t* rsp, const char* key, unsigned& value) {
    value = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(rsp, key));
    return 0;
}

unsigned Db::extractString(const json_t* rsp, const char* key, std::string& value) {
    const char* text = ZeqRspUtil_getStringParam(rsp, key);
    value = text ? text : "";
    return text ? 0 : 1;
}

unsigned Db::extractEnableDisable(const json_t* rsp, const char* key, bool& value) {
    value = false;
    std::string text;
    const unsigned result = extractString(rsp, key, text);
    if (result == 0) value = text == "enabled";
    return result;
}
