#include "views/devices/tabs/WDevViewTxSesStatus.h"

#include "db/Db.h"
#include "db/MirlUtil.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "shell/WallClock.h"
#include "views/devices/list/ZeqRow.h"

#include <Wt/WStandardItemModel>

namespace {

enum Column { kUsername, kRxName, kRxEid, kDuration };

constexpr const char* kHeaders[] = {"[RSnnn]Username", "[RSnnn]Receiver Name", "[RSnnn]Receiver EID",
                                    "[RSnnn]Session Duration"};

} // namespace

WDevViewTxSesStatusTable::WDevViewTxSesStatusTable(Wt::WContainerWidget* parent)
    : DevShownRows(kHeaders, "devices.tx.sessions.empty", parent) {}

void WDevViewTxSesStatusTable::readFromDatabase(const std::vector<unsigned>& indexes, bool /*force*/) {
    clearRows();
    ZeqClient_s* client = nullptr;
    if (indexes.size() != 1 || Db::db.getZeqClient(client) != 0) return;
    const ZeqPtr connections =
        zeqRetrieve(ZeqReq_connectionRetrieve, client, R"(["rxIndex","rxEid","txEid","sessionStartTime"])");
    std::vector<std::string> errors;
    std::string txEid;
    if (!connections || Db::db.getTxEidFromTxIndex(indexes[0], txEid, errors) != 0) return;
    for (int i = 0; i < ZeqRspUtil_numEntries(connections.get()); ++i) {
        const json_t* connection = ZeqObj_getRow(connections.get(), i);
        if (!connection || zeqRowText(connection, "txEid") != txEid) continue;
        const auto rxIndex = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(connection, "rxIndex"));
        std::string username;
        std::string rxName;
        Db::db.getLoggedInUsernameFromRxIndex(rxIndex, username, errors);
        Db::db.getRxNameFromRxIndex(rxIndex, rxName, errors);
        const int row = mModel->rowCount();
        mModel->insertRows(row, 1);
        setText(row, kUsername, username);
        setText(row, kRxName, rxName);
        setText(row, kRxEid, zeqRowText(connection, "rxEid"));
        setText(row, kDuration,
                MirlUtil_secsToFormattedTimeString(
                    WallClock_secondsSince(ZeqRspUtil_getIntegerParam(connection, "sessionStartTime"))));
    }
}
