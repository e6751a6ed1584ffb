// Names of records, and what stands in for a missing one.

#include "db/Db.h"

namespace {

unsigned nameOrEid(const char* resource, unsigned index, std::string& value, Db::Errors& errors) {
    std::string name;
    const unsigned result = Db::db.readString(resource, index, "name", name, errors);
    if (result == 0 && !name.empty()) {
        value = name;
        return 0;
    }
    std::string eid;
    if (Db::db.readString(resource, index, "eid", eid, errors) == 0) value = "EID - " + eid;
    return result;
}

} // namespace

unsigned Db::getUsernameFromUserIndex(unsigned index, std::string& value, Errors& errors) {
    return readString("user", index, "name", value, errors);
}

unsigned Db::getUserFullNameFromUserIndex(unsigned index, std::string& value, Errors& errors) {
    return readString("user", index, "fullName", value, errors);
}

unsigned Db::getTxEidFromTxIndex(unsigned index, std::string& value, Errors& errors) {
    return readString("tx", index, "eid", value, errors);
}

unsigned Db::getTxNameFromTxIndex(unsigned index, std::string& value, Errors& errors) {
    return readString("tx", index, "name", value, errors);
}

unsigned Db::getRxNameFromRxIndex(unsigned index, std::string& value, Errors& errors) {
    return readString("rx", index, "name", value, errors);
}

unsigned Db::getSwxEidFromSwxIndex(unsigned index, std::string& value, Errors& errors) {
    return readString("swx", index, "eid", value, errors);
}

unsigned Db::getKeyboardLayoutFromRxIndex(unsigned index, std::string& value, Errors& errors) {
    if (readString("rx", index, "keyboardLayout", value, errors) != 0) value = "unknown";
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
    if (readUInt32("userSession", sessionIndex, "rxIndex", rxIndex, errors) != 0) return 1;
    unsigned connection = 0;
    if (findIndexOfUInt32Key("connection", "rxIndex", rxIndex, connection, errors) != 0) return 1;
    unsigned txIndex = 0;
    if (readUInt32("connection", connection, "txIndex", txIndex, errors) != 0) return 1;
    return getTxNameOrEidFromTxIndex(txIndex, value, errors);
}
