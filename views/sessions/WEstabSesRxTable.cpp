#include "views/sessions/WEstabSesRxTable.h"

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "views/sessions/AccessModes.h"

namespace {

constexpr RecordColumn<> kColumns[] = {
    {"index", RecordIndex{}},
    {"[RSnnn]Receiver EID", "eid"},
    {"[RSnnn]Receiver Name", "name"},
};

bool isMode(Info_AccessMode mode) {
    return mode == Info_AccessMode::Share || mode == Info_AccessMode::Private ||
           mode == Info_AccessMode::ShareOrPrivate;
}

bool isFree(unsigned rxIndex) {
    Info_DeviceStatus status{};
    Info_DeviceUpgradeStatus upgrade{};
    Info_DeviceUsage usage{};
    bool loggedIn = false;
    std::vector<std::string> errors;
    return Db::db.getRxStatus(rxIndex, status, upgrade, usage, loggedIn, errors) == 0 &&
           status == Info_DeviceStatus::Ready && upgrade == Info_DeviceUpgradeStatus::Idle &&
           usage != Info_DeviceUsage::NotUsableSwxCapacity && !loggedIn;
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
    if (exchange.send(errors) != 0 || !isMode(mode) || !userMode) return;

    for (const ZeqRow rx : ZeqRows(exchange.response())) {
        const auto rxMode = accessModeNamed(rx.text("modeAllowed"));
        if (!rxMode || accessModesClash(mode, *rxMode) || accessModesClash(*userMode, *rxMode)) continue;
        if (isFree(rx.number("index"))) addRecord(kColumns, rx);
    }
}
