#include "views/sessions/SessionCells.h"

#include "db/Convert.h"
#include "db/Db.h"
#include "db/HeldRecords.h"
#include "platform/client/ZeqReq.h"
#include "views/sessions/SessionClock.h"

#include <set>
#include <vector>

namespace {

using Indexes = std::set<unsigned>;

void collect(Indexes& indexes, const json_t* records, const char* key) {
    for (const ZeqRow record : ZeqRows(records))
        if (const unsigned index = record.number(key)) indexes.insert(index);
}

void hold(HeldRecords& held, const char* resource, const Indexes& indexes, const HeldRecords::Keys& keys) {
    if (!indexes.empty()) held.fetch(resource, {indexes.begin(), indexes.end()}, keys);
}

template <unsigned (Db::*kLookup)(unsigned, std::string&, Db::Errors&)>
std::string ofReceiver(const ZeqRow& record) {
    std::string text;
    std::vector<std::string> dropped;
    (Db::db.*kLookup)(record.number("rxIndex"), text, dropped);
    return text;
}

} // namespace

void holdSessionNames(const json_t* logins, const json_t* connections) {
    HeldRecords* held = HeldRecords::inUse();
    if (!held) return;
    const json_t* atReceivers = held->fetch("userSession", {}, {"rxIndex", "userIndex"});
    Indexes users, receivers, transmitters;
    collect(receivers, logins, "rxIndex");
    collect(receivers, connections, "rxIndex");
    collect(transmitters, connections, "txIndex");
    for (const ZeqRow login : ZeqRows(atReceivers))
        if (receivers.contains(login.number("rxIndex"))) users.insert(login.number("userIndex"));
    users.erase(0);
    hold(*held, "user", users, {"name", "mgrName"});
    hold(*held, "rx", receivers, {"name", "eid"});
    hold(*held, "tx", transmitters, {"name", "eid"});
}

std::string sessionUsername(const ZeqRow& record) {
    return ofReceiver<&Db::getLoggedInUsernameFromRxIndex>(record);
}

std::string sessionReceiver(const ZeqRow& record) {
    return ofReceiver<&Db::getRxNameOrEidFromRxIndex>(record);
}

std::string sessionMode(const ZeqRow& connection) {
    return Convert_accessModeEnumToString(
        static_cast<Info_AccessMode>(ZeqRsp_connectionGetMode(connection.json())));
}

std::string sessionDuration(const ZeqRow& connection) {
    return SessionClock::duration(connection.time("sessionStartTime"));
}
