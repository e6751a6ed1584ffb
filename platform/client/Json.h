// How the library reads trees: tables, records, values. Internal to the client library.
#ifndef PLATFORM_CLIENT_JSON_H
#define PLATFORM_CLIENT_JSON_H

#include <cstddef>
#include <jansson.h>

namespace zeq {

/// Rows of a response, or the array itself; null for everything else.
inline const json_t* rowsOf(const json_t* table) {
    if (json_is_array(table)) return table;
    const json_t* rows = json_object_get(table, "rows");
    return json_is_array(rows) ? rows : nullptr;
}

/// Row of a table; a single record counts as its own row 0. Null beyond the last row.
inline json_t* rowOf(const json_t* table, int row) {
    if (row < 0) return nullptr;
    if (const json_t* rows = rowsOf(table)) return json_array_get(rows, static_cast<std::size_t>(row));
    return row == 0 && json_is_object(table) ? const_cast<json_t*>(table) : nullptr;
}

inline json_t* valueOf(const json_t* table, int row, const char* key) {
    return key ? json_object_get(rowOf(table, row), key) : nullptr;
}

/// Sets `value`, which is taken over in any case, under `key`. 0 or 1.
inline int setValue(json_t* object, const char* key, json_t* value) {
    if (!key) {
        json_decref(value);
        return 1;
    }
    return json_object_set_new_nocheck(object, key, value) == 0 ? 0 : 1;
}

/// The sub-object under `key`, made if it is missing. Null when that is impossible.
inline json_t* subObject(json_t* object, const char* key) {
    json_t* child = json_object_get(object, key);
    if (json_is_object(child)) return child;
    return setValue(object, key, json_object()) == 0 ? json_object_get(object, key) : nullptr;
}

} // namespace zeq

#endif
