#include "views/dash/WDashViewSesList.h"

#include "db/Db.h"
#include "db/HeldRecords.h"
#include "platform/client/ZeqReq.h"
#include "views/sessions/SessionCells.h"

#include <map>

namespace {

using List = WDashViewSesList;
using Connections = std::map<unsigned, ZeqRow>; // by Receiver

/// A login, and the session at the same Receiver; null without one.
struct Login : ZeqRow {
    const ZeqRow* session;
};

std::string usernameOf(const Login& login) {
    return sessionUsername(login);
}

std::string receiverOf(const Login& login) {
    return sessionReceiver(login);
}

std::string transmitterOf(const Login& login) {
    std::string name;
    std::vector<std::string> dropped;
    Db::db.getTxNameOrEidFromUsrSesIndex(login.number("index"), name, dropped);
    return name;
}

std::string modeOf(const Login& login) {
    return login.session ? sessionMode(*login.session) : "";
}

std::string durationOf(const Login& login) {
    return login.session ? sessionDuration(*login.session) : "";
}

constexpr RecordColumn<Login> kColumns[] = {
    {"index", RecordIndex{}},        {"[RSnnn]Username", usernameOf},
    {"[RSnnn]Receiver", receiverOf}, {"[RSnnn]Transmitter", transmitterOf},
    {"[RSnnn]Mode", modeOf, 110},    {"[RSnnn]Duration", durationOf, 130},
};
static_assert(std::size(kColumns) == List::kColumnCount &&
              columnHeaded(kColumns, "[RSnnn]Duration") == List::Duration);

} // namespace

WDashViewSesList::WDashViewSesList(const Wt::WString& title, HeightType heightType, int height,
                                   Wt::WContainerWidget* parent)
    : WCollapsingObjListContextPanel(title, heightType, height, kColumnCount, true, parent) {
    mTable->setColumns(kColumns);
    mTable->sortByColumn(Username, Wt::AscendingOrder);
    setEmptyText(tr("dash.sessions.empty"));
}

void WDashViewSesList::readFromDatabase() {
    const ZeqPtr logins = mTable->retrieve(ZeqReq_userSessionRetrieve, R"(["index","rxIndex"])");
    if (!logins) return;
    mClock.clear();
    HeldRecords names;
    const HeldRecords::Use use(names);
    const json_t* sessions =
        names.fetch("connection", {}, {"rxIndex", "txIndex", "mode", "sessionStartTime"});
    holdSessionNames(logins.get(), sessions);

    Connections byReceiver;
    for (const ZeqRow session : ZeqRows(sessions)) byReceiver.try_emplace(session.number("rxIndex"), session);
    std::vector<Login> rows;
    for (const ZeqRow login : ZeqRows(logins.get())) {
        const auto session = byReceiver.find(login.number("rxIndex"));
        rows.push_back({login, session == byReceiver.end() ? nullptr : &session->second});
        if (const ZeqRow* found = rows.back().session)
            mClock.add(login.number("index"), found->time("sessionStartTime"));
    }
    mTable->addRecords(kColumns, rows);
}
