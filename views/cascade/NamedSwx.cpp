#include "views/cascade/NamedSwx.h"

#include "db/Db.h"

std::optional<unsigned> namedSwx(const char* key) {
    std::string eid;
    Db::Errors errors;
    if (Db::db.readString("systemGlobals", 0, key, eid, errors) != 0) return std::nullopt;
    unsigned index = 0;
    if (eid.empty() || Db::db.findIndexOfStringKey("swx", "index", "eid", eid.c_str(), index, errors) != 0)
        return 0;
    return index;
}
