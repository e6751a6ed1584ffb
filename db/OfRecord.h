#pragma once

#include "db/Db.h"

// Reads of Db for what names a record of a table. Index 0 names none: the read fails without an exchange and
// leaves value and errors as they were. Db's own reads take 0 for a singleton, and of a table they would give
// the first record.

inline unsigned readTextOf(const char* resource, unsigned record, const char* key, std::string& value,
                           Db::Errors& errors) {
    return record == 0 ? 1 : Db::db.readString(resource, record, key, value, errors);
}

inline unsigned readNumberOf(const char* resource, unsigned record, const char* key, unsigned& value,
                             Db::Errors& errors) {
    return record == 0 ? 1 : Db::db.readUInt32(resource, record, key, value, errors);
}

/// The record of `resource` that refers to a record of another table by `key`.
inline unsigned findReferrer(const char* resource, const char* key, unsigned record, unsigned& index,
                             Db::Errors& errors) {
    return record == 0 ? 1 : Db::db.findIndexOfUInt32Key(resource, key, record, index, errors);
}
