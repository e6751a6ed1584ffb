// Building and taking apart trees. Conventions: ZeqTypes.h.
#ifndef PLATFORM_CLIENT_ZEQOBJ_H
#define PLATFORM_CLIENT_ZEQOBJ_H

#include "platform/client/ZeqTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

json_t* ZeqObj_new(void);
json_t* ZeqObj_newArray(void);

/// Frees the whole tree, whatever it is.
void ZeqObj_free(json_t* object);

int ZeqObj_arrayAppendObject(json_t* array, json_t* object);
int ZeqObj_setObject(json_t* object, const char* key, json_t* child);

/// Setters replace what the key held. Text and bytes are copied.
int ZeqObj_setString(json_t* object, const char* key, const char* text);
int ZeqObj_setInt32(json_t* object, const char* key, int32_t value);
int ZeqObj_setInteger(json_t* object, const char* key, json_int_t value);
int ZeqObj_setUInt32(json_t* object, const char* key, uint32_t value);
int ZeqObj_setBool32(json_t* object, const char* key, int value);
int ZeqObj_setBinary(json_t* object, const char* key, const void* bytes, unsigned length);

/// Sets the number under `key` of the sub-object `subKey` ("query", "params"), which is made if it is
/// missing. A second call replaces the value, so that one request can be sent for several records in turn.
int ZeqObj_setUInt32Object(json_t* object, const char* subKey, const char* key, uint32_t value);

/// Adds one key to what a read asks for. A request without any asks for all keys of the record.
int ZeqObj_setSelect(json_t* request, const char* key);

/// Borrowed view of one row of a table; 0 beyond the last one.
json_t* ZeqObj_getRow(const json_t* table, int row);

/// New table of what the rows of `table` hold under `subKey`: an object becomes one row, an array one row for
/// each of its objects, and every row also carries its source row's value of `rowKey`. Can be applied to its
/// own result. The result shares nothing with its source. What holds no such rows (a refusal too) gives an
/// empty table; 0 only for null arguments and for what is neither table nor record.
json_t* ZeqObj_collapse(const json_t* table, const char* rowKey, const char* subKey);

#ifdef __cplusplus
}
#endif

#endif
