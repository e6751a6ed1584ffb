#include "views/devices/tabs/WDevViewTxSesStatus.h"

#include "db/Db.h"
#include "db/MirlUtil.h"
#include "platform/client/ZeqReq.h"
#include "shell/WallClock.h"

namespace {

/// What a lookup by the connection's Receiver gives; empty if it fails.
template <unsigned (Db::*lookUp)(unsigned, std::string&, std::vector<std::string>&)>
std::string ofReceiver(const ZeqRow& connection) {
    std::string text;
    std::vector<std::string> errors;
    (Db::db.*lookUp)(connection.number("rxIndex"), text, errors);
    return text;
}

std::string durationOf(const ZeqRow& connection) {
    return MirlUtil_secsToFormattedTimeString(WallClock_secondsSince(connection.time("sessionStartTime")));
}

constexpr RecordColumn<> kColumns[] = {
    {"[RSnnn]Username", ofReceiver<&Db::getLoggedInUsernameFromRxIndex>},
    {"[RSnnn]Receiver Name", ofReceiver<&Db::getRxNameFromRxIndex>},
    {"[RSnnn]Receiver EID", "rxEid"},
    {"[RSnnn]Session Duration", durationOf},
};

} // namespace

WDevViewTxSesStatusTable::WDevViewTxSesStatusTable(Wt::WContainerWidget* parent)
    : RecordPane(kColumns, "devices.tx.sessions.empty", parent) {}

void WDevViewTxSesStatusTable::readFromDatabase(const std::vector<unsigned>& indexes, bool /*force*/) {
    mTable->clearData();
    ZeqClient_s* client = nullptr;
    if (indexes.size() != 1 || Db::db.getZeqClient(client) != 0) return;
    const ZeqPtr connections =
        zeqRetrieve(ZeqReq_connectionRetrieve, client, R"(["rxIndex","rxEid","txEid","sessionStartTime"])");
    std::vector<std::string> errors;
    std::string txEid;
    if (!connections || Db::db.getTxEidFromTxIndex(indexes[0], txEid, errors) != 0) return;
    for (const ZeqRow connection : ZeqRows(connections.get())) {
        if (connection.text("txEid") == txEid) mTable->addRecord(kColumns, connection);
    }
}
