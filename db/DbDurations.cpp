// KVM sessions and logins of a device: their mode and how long they last.

#include "db/Db.h"
#include "db/InfoTables.h"
#include "db/MirlUtil.h"
#include "db/OfRecord.h"

#include <Wt/WString>

#include <ctime>

namespace {

unsigned sessionMode(const char* deviceKey, unsigned device, std::string& text, Db::Errors& errors) {
    unsigned connection = 0;
    if (findReferrer("connection", deviceKey, device, connection, errors) != 0) return 1;
    std::string mode;
    if (Db::db.readString("connection", connection, "mode", mode, errors) != 0) return 1;
    if (const auto* row = rowOfString(kConnectionModeTable, mode))
        text = Wt::WString::tr(row->textKey).toUTF8();
    return 0;
}

// `resource` is "connection" or "userSession".
unsigned duration(const char* resource, const char* deviceKey, unsigned device, std::string& text,
                  Db::Errors& errors) {
    unsigned record = 0;
    if (findReferrer(resource, deviceKey, device, record, errors) != 0) return 1;
    unsigned start = 0;
    if (Db::db.readUInt32(resource, record, "sessionStartTime", start, errors) != 0) return 1;
    // A clock that was set back in between must not show a century.
    const auto now = static_cast<unsigned>(std::time(nullptr));
    text = MirlUtil_secsToFormattedTimeString(now > start ? now - start : 0);
    return 0;
}

} // namespace

unsigned Db::getSessionModeFromRxIndex(unsigned rxIndex, std::string& text, Errors& errors) {
    return sessionMode("rxIndex", rxIndex, text, errors);
}

unsigned Db::getSessionModeFromTxIndex(unsigned txIndex, std::string& text, Errors& errors) {
    return sessionMode("txIndex", txIndex, text, errors);
}

unsigned Db::getSessionDurationFromRxIndex(unsigned rxIndex, std::string& text, Errors& errors) {
    return duration("connection", "rxIndex", rxIndex, text, errors);
}

unsigned Db::getSessionDurationFromTxIndex(unsigned txIndex, std::string& text, Errors& errors) {
    return duration("connection", "txIndex", txIndex, text, errors);
}

unsigned Db::getLoginDurationFromRxIndex(unsigned rxIndex, std::string& text, Errors& errors) {
    return duration("userSession", "rxIndex", rxIndex, text, errors);
}
