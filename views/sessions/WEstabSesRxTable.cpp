#include "views/sessions/WEstabSesRxTable.h"

#include "db/Db.h"
#include "db/DeviceState.h"
#include "db/InfoTables.h"
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

    if (!rowOfValue(kAccessModeTable, mode) || !userMode) return;

    HeldRecords held;
    const HeldRecords::Use use(held);
    const json_t* receivers = holdDevices(held, "rx", "userSession", {"rxIndex", "userIndex"});
    std::vector<ZeqRow> offered;
    for (const ZeqRow rx : ZeqRows(receivers)) {
        const auto rxMode = accessModeNamed(rx.text("modeAllowed"));
        if (!rxMode || accessModesClash(mode, *rxMode) || accessModesClash(*userMode, *rxMode)) continue;
        if (isFree(rx.number("index"))) offered.push_back(rx);
    }
    addRecords(kColumns, offered);
}
