#include "views/events/WEventViewLists.h"

#include "db/TimeZone.h"
#include "platform/client/ZeqReq.h"
#include "views/events/EventRecord.h"

namespace {

using List = EventList;

constexpr RecordColumn<> kColumns[] = {
    {"Index", RecordIndex{"instanceId"}},
    {"[RSnnn]Date/Time", eventDate, 150},
    {"[RSnnn]Type", eventSeverity, 110, eventMark},
    {"[RSnnn]Originator EID", "originatorEid", 130},
    {"[RSnnn]Message", "alertMsg"},
};
static_assert(std::size(kColumns) == List::kColumnCount &&
              columnHeaded(kColumns, "[RSnnn]Date/Time") == List::Date &&
              columnHeaded(kColumns, "[RSnnn]Type") == List::Type &&
              columnHeaded(kColumns, "[RSnnn]Originator EID") == List::Originator &&
              columnHeaded(kColumns, "[RSnnn]Message") == List::Message);

} // namespace

EventList::EventList(const Wt::WString& title, Retrieve retrieve, Wt::SelectionMode mode,
                     const Wt::WString& emptyText, Wt::WContainerWidget* parent)
    : WObjListContextPanel(title, kColumnCount, parent), mRetrieve(retrieve) {
    mTable->setColumns(kColumns);
    mTable->setSelectionMode(mode);
    mTable->sortByColumn(Date, Wt::DescendingOrder);
    mTable->setToolTip(tr("events.zone").arg(TimeZone_text()));
    setEmptyText(emptyText);
}

void EventList::readFromDatabase() {
    mTable->read(kColumns, mRetrieve, kEventKeys);
}

void EventList::getCurrentlySelectedRecord(unsigned& instanceId, std::string& date, std::string& type,
                                           std::string& eid, std::string& message) const {
    for (std::string* text : {&date, &type, &eid, &message}) text->clear();
    const Wt::WModelIndexSet rows = mTable->selectedIndexes();
    if (rows.size() != 1) return;
    const Wt::WModelIndex& row = *rows.begin();
    instanceId = mTable->zeqIndexAt(row);
    date = mTable->textAt(row, Date);
    type = mTable->textAt(row, Type);
    eid = mTable->textAt(row, Originator);
    message = mTable->textAt(row, Message);
}

WEventViewUnAckedList::WEventViewUnAckedList(const Wt::WString& title, Wt::WContainerWidget* parent)
    : EventList(title, ZeqReq_unacknowledgedAlertsRetrieve, Wt::ExtendedSelection, tr("events.unacked.empty"),
                parent) {}

WEventViewHistList::WEventViewHistList(const Wt::WString& title, Wt::WContainerWidget* parent)
    : EventList(title, ZeqReq_historicalAlertsRetrieve, Wt::SingleSelection, tr("events.history.empty"),
                parent) {}
