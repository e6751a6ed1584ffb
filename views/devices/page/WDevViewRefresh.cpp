// Polling, and what the page shows of the list's selection.

#include "db/Db.h"
#include "frame/WAutoSizeTableView.h"
#include "shell/MirlApplication.h"
#include "views/devices/list/WDevViewList.h"
#include "views/devices/page/WDevView.h"

#include <Wt/WTimer>

void WDevView::enableAutoRefresh() {
    if (!mRefreshTimer->isActive()) mRefreshTimer->start();
}

void WDevView::disableAutoRefresh() {
    if (mRefreshTimer->isActive()) mRefreshTimer->stop();
}

void WDevView::refreshTimerTimeout() {
    MirlApplication* application = MirlApplication::current();
    if (!application) return;
    Wt::WApplication::UpdateLock lock(application);
    if (lock) readFromDatabase(false, false);
}

void WDevView::devListSelectionChangedHandler() {
    readFromDatabase(true, false);
}

void WDevView::detailsTabChangedHandler() {
    mDetails->readFromDatabase(true, mList->selectedZeqIndexes(), false);
}

// All are asked every time, so that each stamp stays current.
bool WDevView::newDataIsAvailable() {
    bool news = false;
    for (Watch& watch : mWatched) {
        if (Db::db.newDataIsAvailable(InfoMgr_InfoID(watch.id), watch.lastChange)) news = true;
    }
    return news;
}

// The selection goes over by record and kind: indexes of Receivers, Transmitters and Switches overlap.
void WDevView::rebuildList() {
    std::array<std::vector<unsigned>, std::size(kDeviceKinds)> selected;
    for (std::size_t i = 0; i < selected.size(); ++i)
        mList->getZeqIndexVectByDev(kDeviceKinds[i], selected[i]);

    mSelectionConnection.disconnect();
    mList->readFromDatabase();
    mList->table()->clearSelection();
    for (std::size_t i = 0; i < selected.size(); ++i) {
        mList->table()->setSelectedFilteredZeqIndexes(selected[i], mList,
                                                      deviceFilterOf(kDeviceKinds[i].type));
    }
    connectListSelection();
}

void WDevView::readFromDatabase(bool forceDetails, bool forceList) {
    if (mDetails->hasChanged() && !forceList) return;
    // A service that was away comes back with the numbers it had: no news, and yet an empty list here.
    if (forceList || newDataIsAvailable() || !mList->isComplete()) {
        rebuildList();
        forceDetails = true;
    }

    DeviceSelection selection;
    selection.any = mList->numSelected() > 0;
    selection.conflict = mList->selectionContainsConflictedSwx();
    mList->devTypeSelected(selection.type, selection.detail);
    const DeviceSelectionRule& rule = ruleOf(selection);
    for (int i = 0; i < kDeviceActionCount; ++i)
        enableAction(DeviceAction(i), enables(rule, DeviceAction(i)));

    mDetails->selectTab(rule.page);
    if (rule.page == DevDetailsPage::Empty) return;
    std::vector<unsigned> indexes; // kind by kind
    for (const DeviceKind& kind : kDeviceKinds) {
        if (kind.type == selection.type) mList->getZeqIndexVectByDev(kind, indexes);
    }
    mDetails->readFromDatabase(forceDetails, indexes, false);
}
