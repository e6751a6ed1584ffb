#include "platform/client/Base64.h"
#include "platform/client/Json.h"
#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqRsp.h"

#include <climits>

using namespace zeq;

namespace {

unsigned copyBinary(const json_t* value, void* buffer, unsigned capacity) {
    const json_t* text = json_object_get(value, "$binary");
    if (!json_is_string(text) || !buffer) return 0;
    return static_cast<unsigned>(base64Decode({json_string_value(text), json_string_length(text)},
                                              {static_cast<unsigned char*>(buffer), capacity}));
}

json_t* asObject(json_t* value) {
    return json_is_object(value) || json_is_array(value) ? value : nullptr;
}

} // namespace

json_t* ZeqRspUtil_getObjectParam(const json_t* response, const char* key) {
    return ZeqRspUtil_getIndexedObjectParam(response, 0, key);
}

const char* ZeqRspUtil_getStringParam(const json_t* response, const char* key) {
    return ZeqRspUtil_getIndexedStringParam(response, 0, key);
}

json_int_t ZeqRspUtil_getIntegerParam(const json_t* response, const char* key) {
    return ZeqRspUtil_getIndexedIntegerParam(response, 0, key);
}

int ZeqRspUtil_getBooleanParam(const json_t* response, const char* key) {
    const json_t* value = valueOf(response, 0, key);
    return json_is_true(value) || json_integer_value(value) != 0;
}

unsigned ZeqRspUtil_getBinaryParam(const json_t* response, const char* key, void* buffer, unsigned capacity) {
    return ZeqRspUtil_getIndexedBinaryParam(response, 0, key, buffer, capacity);
}

int ZeqRspUtil_numEntries(const json_t* table) {
    const std::size_t count = json_array_size(rowsOf(table));
    return count > INT_MAX ? INT_MAX : static_cast<int>(count);
}

json_t* ZeqRspUtil_getIndexedObjectParam(const json_t* table, int row, const char* key) {
    return asObject(valueOf(table, row, key));
}

const char* ZeqRspUtil_getIndexedStringParam(const json_t* table, int row, const char* key) {
    return json_string_value(valueOf(table, row, key));
}

json_int_t ZeqRspUtil_getIndexedIntegerParam(const json_t* table, int row, const char* key) {
    const json_t* value = valueOf(table, row, key);
    return json_is_true(value) ? 1 : json_integer_value(value);
}

unsigned ZeqRspUtil_getIndexedBinaryParam(const json_t* table, int row, const char* key, void* buffer,
                                          unsigned capacity) {
    return copyBinary(valueOf(table, row, key), buffer, capacity);
}
