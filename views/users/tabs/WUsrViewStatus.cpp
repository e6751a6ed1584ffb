#include "views/users/tabs/WUsrViewStatus.h"

#include "db/Db.h"
#include "db/HeldRecords.h"
#include "platform/client/ZeqReq.h"

#include <Wt/WText>

#include <algorithm>

namespace {

/// What a lookup by a record of the login gives; empty if it fails.
template <unsigned (Db::*lookUp)(unsigned, std::string&, std::vector<std::string>&), const char* (*key)()>
std::string lookedUp(const ZeqRow& login) {
    std::string text;
    std::vector<std::string> errors;
    (Db::db.*lookUp)(login.number(key()), text, errors);
    return text;
}

constexpr const char* loginKey() {
    return "index";
}
constexpr const char* userKey() {
    return "userIndex";
}
constexpr const char* receiverKey() {
    return "rxIndex";
}

constexpr RecordColumn<> kColumns[] = {
    {"Index", RecordIndex{}},
    {"[RSnnn]Username", lookedUp<&Db::getUsernameFromUserIndex, userKey>},
    {"[RSnnn]Receiver", lookedUp<&Db::getRxNameOrEidFromRxIndex, receiverKey>},
    {"[RSnnn]Transmitter", lookedUp<&Db::getTxNameOrEidFromUsrSesIndex, loginKey>},
    {"[RSnnn]Duration", lookedUp<&Db::getSessionDurationFromRxIndex, receiverKey>},
};

} // namespace

WUsrViewStatusTable::WUsrViewStatusTable(Wt::WContainerWidget* parent)
    : RecordPane(kColumns, "users.status.empty", parent) {
    mTable->setColumnResizeEnabled(true);
    mTable->sortByColumn(1, Wt::AscendingOrder);
}

void WUsrViewStatusTable::readFromDatabase(const std::vector<unsigned>& users) {
    mTable->clearData();
    ZeqClient_s* client = nullptr;
    if (users.empty() || Db::db.getZeqClient(client) != 0) return;
    HeldRecords held;
    const HeldRecords::Use use(held);
    const ZeqPtr logins =
        zeqRetrieve(ZeqReq_userSessionRetrieve, client, R"(["index","userIndex","rxIndex"])");
    for (const ZeqRow login : ZeqRows(logins.get()))
        if (std::ranges::count(users, login.number("userIndex")) > 0) mTable->addRecord(kColumns, login);
}

WUsrViewStatus::WUsrViewStatus(Wt::WContainerWidget* parent) : Wt::WContainerWidget(parent) {
    new Wt::WText(tr("[RSnnn]Current Sessions for User(s)"), this);
    mTable = new WUsrViewStatusTable(this);
    mTable->setMinimumSize(Wt::WLength(1), Wt::WLength(200));
}
