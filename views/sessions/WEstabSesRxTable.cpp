#include "views/sessions/WEstabSesRxTable.h"

#include "db/Db.h"
#include "db/DeviceState.h"
#include "db/InfoTables.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "views/sessions/AccessModes.h"

namespace {

std::string textAt(const json_t* table, int row, const char* key) {
    const char* text = ZeqRspUtil_getIndexedStringParam(table, row, key);
    return text ? text : "";
}

bool isFree(unsigned rxIndex) {
    const auto rx = readRxState(rxIndex);
    return rx && rx->ready() && rx->upgrade == Info_DeviceUpgradeStatus::Idle &&
           rx->usage != Info_DeviceUsage::NotUsableSwxCapacity && !rx->loggedIn;
}

} // namespace

WEstabSesRxTable::WEstabSesRxTable(Wt::WContainerWidget* parent)
    : WEstabSesTable({tr("[RSnnn]Receiver EID"), tr("[RSnnn]Receiver Name")}, parent) {}

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

    const json_t* table = exchange.response();
    const int rows = ZeqRspUtil_numEntries(table);
    for (int row = 0; row < rows; ++row) {
        const auto rxMode = accessModeNamed(textAt(table, row, "modeAllowed"));
        if (!rxMode || accessModesClash(mode, *rxMode) || accessModesClash(*userMode, *rxMode)) continue;
        const auto index = static_cast<unsigned>(ZeqRspUtil_getIndexedIntegerParam(table, row, "index"));
        if (isFree(index)) addRecord(index, {textAt(table, row, "eid"), textAt(table, row, "name")});
    }
}
