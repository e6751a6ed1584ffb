#include "views/sessions/WSesViewList.h"

#include "db/Db.h"
#include "db/HeldRecords.h"
#include "platform/client/ZeqReq.h"
#include "views/sessions/SessionCells.h"

#include <Wt/WStandardItemModel>

#include <algorithm>

namespace {

using List = WSesViewList;

std::string transmitterOf(const ZeqRow& session) {
    std::string name;
    std::vector<std::string> dropped;
    Db::db.getTxNameOrEidFromTxIndex(session.number("txIndex"), name, dropped);
    return name;
}

constexpr RecordColumn<> kColumns[] = {
    {"index", RecordIndex{}},
    {"[RSnnn]Username", sessionUsername},
    {"[RSnnn]Receiver", sessionReceiver},
    {"[RSnnn]Transmitter", transmitterOf},
    {"[RSnnn]Mode", sessionMode, 110},
    {"[RSnnn]Duration", sessionDuration, 130},
};
static_assert(std::size(kColumns) == List::kColumnCount &&
              columnHeaded(kColumns, "[RSnnn]Username") == List::Username &&
              columnHeaded(kColumns, "[RSnnn]Receiver") == List::Receiver &&
              columnHeaded(kColumns, "[RSnnn]Transmitter") == List::Transmitter &&
              columnHeaded(kColumns, "[RSnnn]Mode") == List::Mode &&
              columnHeaded(kColumns, "[RSnnn]Duration") == List::Duration);

} // namespace

WSesViewList::WSesViewList(const Wt::WString& title, Wt::WContainerWidget* parent)
    : WObjListContextPanel(title, kColumnCount, parent) {
    mTable->setColumns(kColumns);
    mTable->setSelectionMode(Wt::ExtendedSelection);
    mTable->sortByColumn(Username, Wt::AscendingOrder);
    setEmptyText(tr("sessions.list.empty"));
}

void WSesViewList::readFromDatabase() {
    const ZeqPtr sessions = mTable->retrieve(ZeqReq_connectionRetrieve,
                                             R"(["index","rxIndex","txIndex","mode","sessionStartTime"])");
    if (!sessions) return;
    mClock.clear();
    HeldRecords names;
    const HeldRecords::Use use(names);
    holdSessionNames(nullptr, sessions.get());
    const ZeqRows rows(sessions.get());
    for (const ZeqRow session : rows) mClock.add(session.number("index"), session.time("sessionStartTime"));
    mTable->addRecords(kColumns, rows);
}

void WSesViewList::showEnding(const std::vector<unsigned>& sessions) {
    for (int row = 0; row < mModel->rowCount(); ++row) {
        const boost::any cell = mModel->data(row, Index, Wt::EditRole);
        const unsigned* session = boost::any_cast<unsigned>(&cell);
        if (session && std::ranges::count(sessions, *session) > 0)
            setCell(row, Duration, tr("sessions.ending").toUTF8());
    }
}
