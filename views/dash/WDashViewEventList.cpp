#include "views/dash/WDashViewEventList.h"

#include "db/TimeZone.h"
#include "platform/client/ZeqReq.h"
#include "views/events/EventRecord.h"

namespace {

using List = WDashViewEventList;

// On purpose the severity as it is stored; its mark tells it to whoever does not know the word.
constexpr RecordColumn<> kColumns[] = {
    {"InstanceID", RecordIndex{"instanceId"}},
    {"[RSnnn]Date/Time", eventDate, 150},
    {"[RSnnn]Type", "severity", 110, eventMark},
    {"[RSnnn]Originator EID", "originatorEid", 130},
    {"[RSnnn]Message", "alertMsg"},
};
static_assert(std::size(kColumns) == List::kColumnCount &&
              columnHeaded(kColumns, "[RSnnn]Date/Time") == List::Date &&
              columnHeaded(kColumns, "[RSnnn]Message") == List::Message);

} // namespace

WDashViewEventList::WDashViewEventList(const Wt::WString& title, HeightType heightType, int height,
                                       Wt::WContainerWidget* parent)
    : WCollapsingObjListContextPanel(title, heightType, height, kColumnCount, parent) {
    mTable->setColumns(kColumns);
    mTable->sortByColumn(Date, Wt::DescendingOrder);
    mTable->setToolTip(tr("events.zone").arg(TimeZone_text()));
    setEmptyText(tr("dash.events.empty"));
}

void WDashViewEventList::readFromDatabase() {
    mTable->read(kColumns, ZeqReq_unacknowledgedAlertsRetrieve, kEventKeys);
}

void WDashViewEventList::eventLogClear() {
    if (mTable->rowCount() > 0) mTable->clearData();
}
