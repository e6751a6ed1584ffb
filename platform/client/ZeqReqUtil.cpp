#include "platform/client/Json.h"
#include "platform/client/ZeqClient.h"
#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqReq.h"

using namespace zeq;

namespace {

json_t* newRequest(const char* method, const char* resource) {
    return resource ? json_pack("{s:s, s:s}", "method", method, "resource", resource) : nullptr;
}

} // namespace

json_t* ZeqReqUtil_newGetResource(const char* resource) {
    return newRequest("get", resource);
}

json_t* ZeqReqUtil_newSetResource(const char* resource) {
    return newRequest("set", resource);
}

json_t* ZeqReqUtil_newCreateResource(const char* resource) {
    return newRequest("create", resource);
}

json_t* ZeqReqUtil_newDeleteResource(const char* resource) {
    return newRequest("delete", resource);
}

int ZeqReqUtil_setMethod(json_t* request, const char* method) {
    return ZeqObj_setString(request, "method", method);
}

int ZeqReqUtil_setResource(json_t* request, const char* resource) {
    return ZeqObj_setString(request, "resource", resource);
}

int ZeqReqUtil_setIntegerParam(json_t* request, const char* key, json_int_t value) {
    return ZeqObj_setInteger(subObject(request, "params"), key, value);
}

int ZeqReqUtil_setStringParam(json_t* request, const char* key, const char* text) {
    return ZeqObj_setString(subObject(request, "params"), key, text);
}

int ZeqReqUtil_setBooleanParam(json_t* request, const char* key, int value) {
    return ZeqObj_setBool32(subObject(request, "params"), key, value);
}

int ZeqReqUtil_setObjectParam(json_t* request, const char* key, json_t* object) {
    return ZeqObj_setObject(subObject(request, "params"), key, object);
}

int ZeqReqUtil_setIntegerQuery(json_t* request, const char* key, json_int_t value) {
    json_t* query = subObject(request, "query");
    json_t* held = key ? json_object_get(query, key) : nullptr;
    if (json_is_array(held)) return ZeqObj_arrayAppendObject(held, json_integer(value));
    if (held) return setValue(query, key, json_pack("[O, I]", held, value));
    return ZeqObj_setInteger(query, key, value);
}

int ZeqReqUtil_setSelect(json_t* request, const char* key) {
    return ZeqObj_setSelect(request, key);
}

json_t* ZeqReqUtil_submit(json_t* request, ZeqClient_s* client) {
    return ZeqClient_getResponse(client, request);
}
