#include "views/sessions/WEstabSesTxTable.h"

#include "db/DeviceState.h"
#include "db/HeldRecords.h"
#include "db/UserTargets.h"
#include "views/sessions/AccessModes.h"

#include <vector>

namespace {

constexpr RecordColumn<> kColumns[] = {
    {"index", RecordIndex{}},
    {"[RSnnn]Transmitter EID", "eid"},
    {"[RSnnn]Transmitter Name", "name"},
};

bool isFree(unsigned txIndex, Info_AccessMode wanted) {
    const auto tx = readTxState(txIndex);
    return tx && tx->upgrade == Info_DeviceUpgradeStatus::Idle &&
           tx->usage != Info_DeviceUsage::NotUsableSwxCapacity &&
           (!tx->connected || joinsSession(wanted, tx->mode)) && tx->ready();
}

} // namespace

WEstabSesTxTable::WEstabSesTxTable(Wt::WContainerWidget* parent) : WEstabSesTable(kColumns, parent) {}

void WEstabSesTxTable::readFromDatabase(Info_ConnectionMode mode, unsigned int usrIndex,
                                        unsigned int rxIndex) {
    clearData();
    const auto wanted = static_cast<Info_AccessMode>(mode);
    std::vector<std::string> errors;
    std::string userWord, rxWord;
    UserTargets targets;
    if (Db::db.getAllowedAccessModeFromUserIndex(usrIndex, userWord, errors) != 0 ||
        Db::db.readString("rx", rxIndex, "modeAllowed", rxWord, errors) != 0 ||
        Db::db.getUserTargets(usrIndex, targets, errors) != 0)
        return;
    const auto userMode = accessModeNamed(userWord);
    const auto rxMode = accessModeNamed(rxWord);
    if (!userMode || !rxMode) return;

    HeldRecords held;
    const HeldRecords::Use use(held);
    const json_t* transmitters = holdDevices(held, "tx", "connection", {"txIndex", "mode"});
    std::vector<ZeqRow> offered;
    for (const ZeqRow tx : ZeqRows(transmitters)) {
        const unsigned index = tx.number("index");
        const auto txMode = accessModeNamed(tx.text("modeAllowed"));
        if (txMode && accessModesFit({wanted, *userMode, *rxMode, *txMode}) && targets.allows(index) &&
            isFree(index, wanted))
            offered.push_back(tx);
    }
    addRecords(kColumns, offered);
}
