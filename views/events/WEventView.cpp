#include "views/events/WEventView.h"

#include "db/Db.h"
#include "frame/ActionColumn.h"
#include "frame/ActionResults.h"
#include "frame/Confirm.h"
#include "frame/RowsInOrder.h"
#include "views/events/EventHistoryResource.h"
#include "views/events/WEventViewDetails.h"
#include "views/events/WEventViewLists.h"

namespace {

// Pixels.
constexpr int kListHeight = 175;
constexpr int kListMinHeight = 115;
constexpr int kListShare = 28; // percent of the window, for each of the two

using View = WEventView;

// clang-format off
constexpr ActionRow<View, EventAction> kActions[] = {
    {EventAction::Acknowledge, "[RSnnn]Acknowledge", "[RSnnn]Acknowledge",
     "[RSnnn]Acknowledge events by selecting one or more events then pressing the Acknowledge button.",
     &View::ackActionButtonClicked},
    {EventAction::AcknowledgeAll, "[RSnnn]Acknowledge All", "[RSnnn]Acknowledge All",
     "[RSnnn]Acknowledge all unacknowledged events.", &View::ackAllActionButtonClicked},
    {.value = EventAction::SaveHistory, .title = "[RSnnn]Save History", .button = "[RSnnn]Save",
     .hint = "[RSnnn]Download event history and save it to a file.", .handler = nullptr, .enabledAtFirst = true},
    {.value = EventAction::ClearHistory, .title = "[RSnnn]Clear History", .button = "[RSnnn]Clear",
     .hint = "[RSnnn]Clear all events from the history list. The current list of unacknowledged events is unaffected.",
     .handler = &View::clearActionButtonClicked, .enabledAtFirst = true},
};
// clang-format on
static_assert(rowsInOrder(kActions));

constexpr Confirmation kConfirmClear = {.flag = "enableClearEventHistoryWarning",
                                        .title = "[RSnnn]Confirm Clear",
                                        .message = "[RSnnn]Are you sure you want to clear the event history?",
                                        .proceed = "[RSnnn]Clear",
                                        .focusOnCancel = true};

} // namespace

WEventView::WEventView(Wt::WContainerWidget* parent)
    : PageFrame(parent), mUnAcked(new WEventViewUnAckedList(tr("[RSnnn]Unacknowledged Events"))),
      mHist(new WEventViewHistList(tr("[RSnnn]Event History"))), mDetails(new WEventViewDetails),
      mUnAckedSelection(
          *mUnAcked, [this] { mUnAcked->readFromDatabase(); },
          [this] { unAckedEventListSelectionChangedHandler(); }),
      mHistSelection(
          *mHist, [this] { mHist->readFromDatabase(); }, [this] { histEventListSelectionChangedHandler(); }),
      mWatched({InfoMgr_InfoID::Alerts, InfoMgr_InfoID::AlertHistory}) {
    auto* actions = new ActionColumn;
    actions->addActions(this, kActions);
    actions->cell(static_cast<std::size_t>(EventAction::SaveHistory))
        ->linkSet(Wt::WLink(new EventHistoryResource(this)));
    place(actions, {{mUnAcked, kListHeight, kListMinHeight, 0, kListShare},
                    {mHist, kListHeight, kListMinHeight, 0, kListShare},
                    {.widget = mDetails, .stretch = 1}});
    giveRoomWhenFolded(*mDetails, *mHist);
}

void WEventView::enable(EventAction action, bool enabled, const char* why) {
    actions()->enable(static_cast<std::size_t>(action), enabled, why);
}

void WEventView::refresh() {
    // What the service does not tell as a change would be read for nothing.
    const WatchedKinds::Reading reading(mWatched);
    if (mWatched.haveNews()) readFromDatabase(false);
}

void WEventView::readFromDatabase(bool /*ignored*/) {
    rebuild(mUnAckedSelection, &WEventView::unAckedEventListSelectionChangedHandler);
    rebuild(mHistSelection, &WEventView::histEventListSelectionChangedHandler);
    enable(EventAction::AcknowledgeAll, mUnAcked->rowCount() > 0, "events.needs.unacked");
}

void WEventView::rebuild(KeptSelection& selection, void (WEventView::*changed)()) {
    selection.rebuild();
    (this->*changed)();
}

void WEventView::show(const EventList& list, const KeptSelection& chosen, KeptSelection& other) {
    std::string date, type, eid, message;
    if (chosen.count() > 0) {
        other.clear();
        unsigned instance = 0;
        list.getCurrentlySelectedRecord(instance, date, type, eid, message);
    } else if (other.count() > 0) {
        return; // the details are of the other list
    }
    const auto text = [](const std::string& utf8) { return Wt::WString::fromUTF8(utf8); };
    mDetails->message().setContent(text(type), text(date), text(eid), text(message));
}

void WEventView::unAckedEventListSelectionChangedHandler() {
    enable(EventAction::Acknowledge, mUnAckedSelection.count() > 0);
    show(*mUnAcked, mUnAckedSelection, mHistSelection);
}

// On purpose it leaves Acknowledge as it is: pressed with nothing selected it does nothing.
void WEventView::histEventListSelectionChangedHandler() {
    show(*mHist, mHistSelection, mUnAckedSelection);
}

void WEventView::ackActionButtonClicked() {
    for (const unsigned instance : mUnAckedSelection.indexes()) {
        std::vector<std::string> dropped; // whoever was quicker has acknowledged it
        Db::db.ackSpecificAlert(instance, dropped);
    }
    if (mUnAckedSelection.count() > 0) readFromDatabase(false);
}

void WEventView::ackAllActionButtonClicked() {
    ActionResults results;
    results.run("", [](auto& errors) { return Db::db.ackAllAlerts(errors); });
    readFromDatabase(false);
    if (results.failed() > 0) showFailures(results);
}

void WEventView::clearActionButtonClicked() {
    const Wt::WString events = tr("events.count").arg(mHist->rowCount());
    if (!confirm(kConfirmClear, 1, events)) return;
    ActionResults results;
    results.run("", [](auto& errors) { return Db::db.clearAllHistoricalAlerts(errors); });
    readFromDatabase(false);
    if (results.failed() > 0) showFailures(results);
}
