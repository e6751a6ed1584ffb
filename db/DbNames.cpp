// Names of records, and what stands in for a missing one.

#include "db/Db.h"
#include "db/OfRecord.h"

namespace {

unsigned nameOrEid(const char* resource, unsigned index, std::string& value, Db::Errors& errors) {
    std::string name;
    const unsigned result = readTextOf(resource, index, "name", name, errors);
    if (result == 0 && !name.empty()) {
        value = name;
        return 0;
    }
    std::string eid;
    if (readTextOf(resource, index, "eid", eid, errors) == 0) value = "EID - " + eid;
    return result;
}

} // namespace

unsigned Db::getUsernameFromUserIndex(unsigned index, std::string& value, Errors& errors) {
    return readTextOf("user", index, "name", value, errors);
}

unsigned Db::getUserFullNameFromUserIndex(unsigned index, std::string& value, Errors& errors) {
    return readTextOf("user", index, "fullName", value, errors);
}

unsigned Db::getTxEidFromTxIndex(unsigned index, std::string& value, Errors& errors) {
    return readTextOf("tx", index, "eid", value, errors);
}

unsigned Db::getTxNameFromTxIndex(unsigned index, std::string& value, Errors& errors) {
    return readTextOf("tx", index, "name", value, errors);
}

unsigned Db::getRxNameFromRxIndex(unsigned index, std::string& value, Errors& errors) {
    return readTextOf("rx", index, "name", value, errors);
}

unsigned Db::getSwxEidFromSwxIndex(unsigned index, std::string& value, Errors& errors) {
    return readTextOf("swx", index, "eid", value, errors);
}

unsigned Db::getKeyboardLayoutFromRxIndex(unsigned index, std::string& value, Errors& errors) {
    if (readTextOf("rx", index, "keyboardLayout", value, errors) != 0) value = "unknown";
    return 0;
}

unsigned Db::getRxNameOrEidFromRxIndex(unsigned index, std::string& value, Errors& errors) {
    return nameOrEid("rx", index, value, errors);
}

unsigned Db::getTxNameOrEidFromTxIndex(unsigned index, std::string& value, Errors& errors) {
    return nameOrEid("tx", index, value, errors);
}

unsigned Db::getSwxNameOrEidFromSwxIndex(unsigned index, std::string& value, Errors& errors) {
    return nameOrEid("swx", index, value, errors);
}

unsigned Db::getTxNameOrEidFromUsrSesIndex(unsigned sessionIndex, std::string& value, Errors& errors) {
    unsigned rxIndex = 0;
    if (readNumberOf("userSession", sessionIndex, "rxIndex", rxIndex, errors) != 0) return 1;
    unsigned connection = 0;
    if (findReferrer("connection", "rxIndex", rxIndex, connection, errors) != 0) return 1;
    unsigned txIndex = 0;
    if (readNumberOf("connection", connection, "txIndex", txIndex, errors) != 0) return 1;
    return getTxNameOrEidFromTxIndex(txIndex, value, errors);
}
