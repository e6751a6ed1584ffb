#include "views/sessions/WEstabSesRxTable.h"

#include "db/Db.h"
#include "db/DeviceState.h"
#include "db/InfoTables.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "views/sessions/AccessModes.h"

namespace {

constexpr RecordColumn<> kColumns[] = {
    {"index", RecordIndex{}},
    {"[RSnnn]Receiver EID", "eid"},
    {"[RSnnn]Receiver Name", "name"},
};

bool isFree(unsigned rxIndex) {
    const auto rx = readRxState(rxIndex);
    return rx && rx->ready() && rx->upgrade == Info_DeviceUpgradeStatus::Idle &&
           rx->usage != Info_DeviceUsage::NotUsableSwxCapacity && !rx->loggedIn;
}

} // namespace

WEstabSesRxTable::WEstabSesRxTable(Wt::WContainerWidget* parent) : WEstabSesTable(kColumns, parent) {}

void WEstabSesRxTable::readFromDatabase(Info_AccessMode mode, unsigned int usrIndex) {
    clearData();
    std::vector<std::string> errors;
    std::string userWord;
    Db::db.getAllowedAccessModeFromUserIndex(usrIndex, userWord, errors);
    const auto userMode = accessModeNamed(userWord);

    ZeqExchange exchange(ZeqReqUtil_newGetResource, "rx", __func__);
    if (!exchange.ready()) return;
    for (const char* key : {"index", "eid", "name", "modeAllowed"}) ZeqObj_setSelect(exchange.request(), key);
    if (exchange.send(errors) != 0 || !rowOfValue(kAccessModeTable, mode) || !userMode) return;

    for (const ZeqRow rx : ZeqRows(exchange.response())) {
        const auto rxMode = accessModeNamed(rx.text("modeAllowed"));
        if (!rxMode || accessModesClash(mode, *rxMode) || accessModesClash(*userMode, *rxMode)) continue;
        if (isFree(rx.number("index"))) addRecord(kColumns, rx);
    }
}
