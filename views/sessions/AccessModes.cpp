#include "views/sessions/AccessModes.h"

#include "db/InfoTables.h"

std::optional<Info_AccessMode> accessModeNamed(const std::string& databaseValue) {
    const EnumRow<Info_AccessMode>* row = rowOfString(kAccessModeTable, databaseValue);
    return row ? std::optional(row->value) : std::nullopt;
}
