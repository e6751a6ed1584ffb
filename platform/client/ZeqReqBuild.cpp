// Typed requests that the caller sends: each is one row.
#include "platform/client/EnumWords.h"
#include "platform/client/ZeqReq.h"

namespace {

json_t* withIndex(json_t* request, uint32_t index) {
    ZeqReqUtil_setIntegerParam(request, "index", index);
    return request;
}

/// A number that has no word goes out as it is: the service refuses it,
/// rather than this library inventing a value.
int setEnumParam(json_t* request, const char* key, const zeq::EnumWords& words, int number) {
    const char* word = zeq::enumWord(words, number);
    return word ? ZeqReqUtil_setStringParam(request, key, word)
                : ZeqReqUtil_setIntegerParam(request, key, number);
}

} // namespace

#define ZEQ_NEW_CREATE(resource)                                                                             \
    json_t* ZeqReq_##resource##NewCreateReq(void) {                                                          \
        return ZeqReqUtil_newCreateResource(#resource);                                                      \
    }
#define ZEQ_NEW_DELETE(resource)                                                                             \
    json_t* ZeqReq_##resource##NewDeleteReq(uint32_t index) {                                                \
        return withIndex(ZeqReqUtil_newDeleteResource(#resource), index);                                    \
    }
#define ZEQ_NEW_UPDATE(name, resource)                                                                       \
    json_t* ZeqReq_##name##NewUpdateReq(uint32_t index) {                                                    \
        return withIndex(ZeqReqUtil_newSetResource(resource), index);                                        \
    }
#define ZEQ_SET_NUMBER(name, key)                                                                            \
    int ZeqReq_##name(json_t* request, uint32_t value) {                                                     \
        return ZeqReqUtil_setIntegerParam(request, key, value);                                              \
    }
#define ZEQ_SET_TEXT(name, key)                                                                              \
    int ZeqReq_##name(json_t* request, const char* text) {                                                   \
        return ZeqReqUtil_setStringParam(request, key, text);                                                \
    }
#define ZEQ_SET_ENUM(name, key, words)                                                                       \
    int ZeqReq_##name(json_t* request, int number) {                                                         \
        return setEnumParam(request, key, words, number);                                                    \
    }

ZEQ_NEW_CREATE(connection)
ZEQ_SET_NUMBER(connectionSetRxIndex, "rxIndex")
ZEQ_SET_NUMBER(connectionSetTxIndex, "txIndex")
ZEQ_SET_ENUM(connectionSetMode, "mode", zeq::kAccessMode)
ZEQ_NEW_DELETE(connection)

ZEQ_NEW_CREATE(userSession)
ZEQ_SET_NUMBER(userSessionSetUserIndex, "userIndex")
ZEQ_SET_NUMBER(userSessionSetRxIndex, "rxIndex")

ZEQ_NEW_CREATE(adminSession)
ZEQ_SET_TEXT(adminSessionSetIpAddress, "ipAddress")
ZEQ_NEW_DELETE(adminSession)

ZEQ_NEW_CREATE(user)
ZEQ_SET_TEXT(userSetName, "name")
ZEQ_SET_TEXT(userSetFullName, "fullName")
ZEQ_SET_ENUM(userSetRole, "role", zeq::kUserRole)
ZEQ_SET_TEXT(userSetPassword, "password")
ZEQ_NEW_DELETE(user)
ZEQ_NEW_UPDATE(user, "user")
ZEQ_NEW_UPDATE(userTargetList, "user")

ZEQ_NEW_UPDATE(swx, "swx")
ZEQ_NEW_DELETE(edid)

json_t* ZeqReq_systemGlobalsNewUpdateReq(void) {
    return ZeqReqUtil_newSetResource("systemGlobals");
}
