// Typed getters: each is one row.
#include "platform/client/EnumWords.h"
#include "platform/client/ZeqRsp.h"

namespace {

uint32_t getUInt32(const json_t* record, const char* key) {
    const json_int_t value = ZeqRspUtil_getIntegerParam(record, key);
    return value >= 0 && value <= UINT32_MAX ? static_cast<uint32_t>(value) : 0;
}

int getEnum(const json_t* record, const char* key, const zeq::EnumWords& words) {
    return zeq::enumNumber(words, ZeqRspUtil_getStringParam(record, key));
}

} // namespace

#define ZEQ_GET_NUMBER(name, key)                                                                            \
    uint32_t ZeqRsp_##name(const json_t* record) {                                                           \
        return getUInt32(record, key);                                                                       \
    }
#define ZEQ_GET_TIME(name, key)                                                                              \
    int64_t ZeqRsp_##name(const json_t* record) {                                                            \
        return ZeqRspUtil_getIntegerParam(record, key);                                                      \
    }
#define ZEQ_GET_TEXT(name, key)                                                                              \
    const char* ZeqRsp_##name(const json_t* record) {                                                        \
        return ZeqRspUtil_getStringParam(record, key);                                                       \
    }
#define ZEQ_GET_ENUM(name, key, words)                                                                       \
    int ZeqRsp_##name(const json_t* record) {                                                                \
        return getEnum(record, key, words);                                                                  \
    }

ZEQ_GET_NUMBER(connectionGetIndex, "index")
ZEQ_GET_NUMBER(connectionGetRxIndex, "rxIndex")
ZEQ_GET_NUMBER(connectionGetTxIndex, "txIndex")
ZEQ_GET_ENUM(connectionGetMode, "mode", zeq::kAccessMode)
ZEQ_GET_TIME(connectionGetSessionStartTime, "sessionStartTime")

ZEQ_GET_NUMBER(edidGetIndex, "index")
ZEQ_GET_TEXT(edidGetName, "name")
ZEQ_GET_TEXT(edidGetDescription, "description")

ZEQ_GET_NUMBER(rxGetIndex, "index")
ZEQ_GET_TEXT(rxGetEid, "eid")
ZEQ_GET_TEXT(rxGetName, "name")

ZEQ_GET_NUMBER(txGetIndex, "index")
ZEQ_GET_TEXT(txGetEid, "eid")
ZEQ_GET_TEXT(txGetName, "name")

ZEQ_GET_NUMBER(swxGetIndex, "index")
ZEQ_GET_TEXT(swxGetEid, "eid")
ZEQ_GET_TEXT(swxGetName, "name")
ZEQ_GET_ENUM(swxGetMode, "mode", zeq::kSwxMode)
ZEQ_GET_ENUM(swxGetStatus, "status", zeq::kSwxStatus)
ZEQ_GET_ENUM(swxGetUsage, "usage", zeq::kSwxUsage)

ZEQ_GET_NUMBER(userGetIndex, "index")
ZEQ_GET_TEXT(userGetName, "name")
ZEQ_GET_TEXT(userGetFullName, "fullName")
ZEQ_GET_TEXT(userGetMgrName, "mgrName")
ZEQ_GET_ENUM(userGetRole, "role", zeq::kUserRole)
ZEQ_GET_ENUM(userGetModeAllowed, "modeAllowed", zeq::kAccessMode)
ZEQ_GET_ENUM(userGetAllTargetAccess, "allTargetAccess", zeq::kEnabled)

ZEQ_GET_NUMBER(userSessionGetRxIndex, "rxIndex")
ZEQ_GET_TIME(userSessionGetSessionStartTime, "sessionStartTime")
