#include "platform/client/ZeqObj.h"

#include "platform/client/Base64.h"
#include "platform/client/Json.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

using namespace zeq;

json_t* ZeqObj_new(void) {
    return json_object();
}

json_t* ZeqObj_newArray(void) {
    return json_array();
}

void ZeqObj_free(json_t* object) {
    json_decref(object);
}

void ZeqReqUtil_free(json_t* object) {
    ZeqObj_free(object);
}

void ZeqRspUtil_free(json_t* response) {
    ZeqObj_free(response);
}

int ZeqObj_arrayAppendObject(json_t* array, json_t* object) {
    return json_array_append_new(array, object) == 0 ? 0 : 1;
}

int ZeqObj_setObject(json_t* object, const char* key, json_t* child) {
    return setValue(object, key, child);
}

int ZeqObj_setString(json_t* object, const char* key, const char* text) {
    // On purpose: broken UTF-8 is kept as it is. Sending then fails as a whole, and is logged,
    // instead of losing one key silently.
    return setValue(object, key, text ? json_string_nocheck(text) : nullptr);
}

int ZeqObj_setInt32(json_t* object, const char* key, int32_t value) {
    return setValue(object, key, json_integer(value));
}

int ZeqObj_setInteger(json_t* object, const char* key, json_int_t value) {
    return setValue(object, key, json_integer(value));
}

int ZeqObj_setUInt32(json_t* object, const char* key, uint32_t value) {
    return setValue(object, key, json_integer(value));
}

int ZeqObj_setBool32(json_t* object, const char* key, int value) {
    return setValue(object, key, json_boolean(value));
}

int ZeqObj_setBinary(json_t* object, const char* key, const void* bytes, unsigned length) {
    if (!bytes && length > 0) return 1;
    const std::string text = base64Encode({static_cast<const unsigned char*>(bytes), length});
    return setValue(object, key, json_pack("{s:s}", "$binary", text.c_str()));
}

int ZeqObj_setUInt32Object(json_t* object, const char* subKey, const char* key, uint32_t value) {
    return subKey ? ZeqObj_setUInt32(subObject(object, subKey), key, value) : 1;
}

int ZeqObj_setSelect(json_t* request, const char* key) {
    if (!key) return 1;
    json_t* list = json_object_get(request, "select");
    if (json_is_array(list)) return ZeqObj_arrayAppendObject(list, json_string(key));
    return setValue(request, "select", json_pack("[s]", key));
}

json_t* ZeqObj_getRow(const json_t* table, int row) {
    return rowOf(table, row);
}

namespace {

/// Takes `row` over; what is not an object is dropped.
int appendRow(json_t* out, json_t* row, const char* rowKey, const json_t* rowValue) {
    if (!json_is_object(row)) {
        json_decref(row);
        return 0;
    }
    if (rowValue) setValue(row, rowKey, json_deep_copy(rowValue));
    return ZeqObj_arrayAppendObject(out, row);
}

} // namespace

json_t* ZeqObj_collapse(const json_t* table, const char* rowKey, const char* subKey) {
    if (!rowKey || !subKey || !(json_is_object(table) || json_is_array(table))) return nullptr;
    json_t* out = json_array();
    int failed = out ? 0 : 1;
    for (int row = 0; const json_t* source = rowOf(table, row); ++row) {
        const json_t* rowValue = json_object_get(source, rowKey);
        const json_t* sub = json_object_get(source, subKey);
        if (json_is_object(sub)) {
            failed |= appendRow(out, json_deep_copy(sub), rowKey, rowValue);
        }
        for (std::size_t i = 0; i < json_array_size(sub); ++i) {
            failed |= appendRow(out, json_deep_copy(json_array_get(sub, i)), rowKey, rowValue);
        }
    }
    if (!failed) return out;
    json_decref(out);
    return nullptr;
}
