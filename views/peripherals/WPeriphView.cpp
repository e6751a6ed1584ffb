#include "views/peripherals/WPeriphView.h"

#include "frame/ActionColumn.h"
#include "frame/ActionResults.h"
#include "frame/Confirm.h"
#include "frame/DetailsTabs.h"
#include "frame/RowsInOrder.h"
#include "views/peripherals/WPeriphViewMonAttribs.h"
#include "views/peripherals/WPeriphViewMonDecode.h"
#include "views/peripherals/WPeriphViewMonList.h"
#include "views/peripherals/WPullMonitorDialog.h"
#include "views/peripherals/WPushMonitorDialog.h"

#include <Wt/WTabWidget>

namespace {

// Pixels.
constexpr int kListHeight = 225;
constexpr int kListMinHeight = 180;
constexpr int kDetailsHeight = 292;

using View = WPeriphView;

// clang-format off
constexpr ActionRow<View, MonitorAction> kActions[] = {
    {MonitorAction::Delete, "[RSnnn]Delete Monitors", "[RSnnn]Delete",
     "[RSnnn]Delete the stored attributes of one or more selected monitors.",
     &View::deleteMonsActionButtonClickedHandler},
    {MonitorAction::Push, "[RSnnn]Push Monitor", "[RSnnn]Push",
     "[RSnnn]Push stored monitor attributes out to an attached Transmitter.",
     &View::pushMonsActionButtonClickedHandler, Needs::OneRecord},
    {MonitorAction::Pull, "[RSnnn]Pull Monitor", "[RSnnn]Pull",
     "[RSnnn]Pull (retrieve) the attributes of a monitor that is currently attached to a Receiver.",
     &View::pullMonsActionButtonClickedHandler, Needs::Nothing},
};
constexpr DetailsTabRow<View, MonitorTab> kTabs[] = {
    {MonitorTab::Attributes, 0, "[RSnnn]Attributes", makeTab<WPeriphViewMonAttribs>,
     &View::monSaveButtonClickedHandler, &View::monCancelButtonClickedHandler},
    {MonitorTab::Decode, 0, "[RSnnn]Decoded EDID", makeTab<WPeriphViewMonDecode>},
};
// clang-format on
static_assert(rowsInOrder(kActions) && rowsInOrder(kTabs));

constexpr Confirmation kConfirmDelete = {
    .flag = "enableDeleteMonitorWarning",
    .title = "[RSnnn]Confirm Delete",
    .message = "[RSnnn]Are you sure you want to delete the selected item?",
    .proceed = "[RSnnn]Delete",
    .messageOfMany = "[RSnnn]Are you sure you want to delete the selected items?",
    .focusOnCancel = true};

} // namespace

WPeriphView::WPeriphView(Wt::WContainerWidget* parent)
    : ListPage(parent, {InfoMgr_InfoID::Edids}), mList(new WPeriphViewMonList(tr("[RSnnn]Peripherals"))),
      mDetails(
          new DetailsTabs(tr("[RSnnn]Monitor Attributes"), DetailsTabs::FixedHeight, kDetailsHeight, 1)) {
    auto* actions = new ActionColumn;
    actions->addActions(this, kActions);
    mDetails->addTabs(this, kTabs, mList);
    mDetails->tabWidget(0)->currentChanged().connect(this, &WPeriphView::detailsTabChangedHandler);
    place(actions, {{mList, kListHeight, kListMinHeight, 0, kListShare}, {.widget = mDetails, .stretch = 1}});
    giveRoomWhenFolded(*mDetails, *mList);
    setDetails(mDetails);
    setWords({"periph.count"});
    setList(
        *mList, [this] { mList->readFromDatabase(); }, [this] { monListSelectionChangedHandler(); });
}

WPeriphViewMonAttribs& WPeriphView::attribs() const {
    return static_cast<WPeriphViewMonAttribs&>(
        *mDetails->settingsTab(static_cast<std::size_t>(MonitorTab::Attributes)));
}

bool WPeriphView::decodeIsInUse() const {
    const auto* decode = dynamic_cast<WPeriphViewMonDecode*>(mDetails->tabWidget(0)->currentWidget());
    return decode && decode->hasSelectedText();
}

bool WPeriphView::listIsDue() const {
    return !mList->isComplete();
}

void WPeriphView::showSelection(bool forceDetails) {
    const std::size_t count = selection().count();
    const bool isProtected = mList->protectedEdidIsSelected();
    actions()->enableFor(count);
    actions()->enable(static_cast<std::size_t>(MonitorAction::Delete), count > 0 && !isProtected);
    if (count != 1) attribs().enableButtons(false, false);
    attribs().setProtected(isProtected);
    mDetails->setHidden(count == 0);
    const bool isRead = count > 0 || forceDetails; // a hidden pane is emptied once
    if (isRead && !decodeIsInUse()) mDetails->readFromDatabase(forceDetails, chosenRecords(), false);
}

void WPeriphView::monListSelectionChangedHandler() {
    readFromDatabase(true, false);
}

void WPeriphView::detailsTabChangedHandler() {
    mDetails->readFromDatabase(true, chosenRecords(), false);
}

void WPeriphView::monSaveButtonClickedHandler() {
    save(attribs());
}

void WPeriphView::monCancelButtonClickedHandler() {
    cancel(attribs());
}

void WPeriphView::deleteMonsActionButtonClickedHandler() {
    if (mList->numSelected() == 0 || !confirm(kConfirmDelete, selection().count(), hit())) return;
    ActionResults results;
    mList->selectedMonsDelete(results);
    monListSelectionChangedHandler();
    if (results.failed() > 0) showFailures(results);
}

void WPeriphView::pushMonsActionButtonClickedHandler() {
    unsigned index = 0;
    std::string type;
    if (mList->getEdidIndexOfCurrentlySelectedRecord(index) != 0 ||
        mList->getTypeOfCurrentlySelectedRecord(type) != 0)
        return;
    WPushMonitorDialog(index, type).exec();
}

void WPeriphView::pullMonsActionButtonClickedHandler() {
    WPullMonitorDialog().exec();
    readFromDatabase(false, false);
}
