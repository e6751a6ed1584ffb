// A record as it stands in the database file.
#pragma once

#include "platform/service/record/Record.h"

namespace zeqd {

struct StoredRecord {
    RecordPtr record;   ///< null when nothing of it can be read
    bool sound = false; ///< as this service writes records
};

/// Keys of an older version that are no more are left out; a value that the catalogue has come to refuse falls
/// back. What decides who gets in does not: an account with an impossible one is not sound, and closed.
StoredRecord readStored(std::string_view resource, std::int64_t index, std::string_view body);

} // namespace zeqd
