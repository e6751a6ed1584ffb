#include "frame/ListPage.h"

#include "frame/DetailsTabs.h"

ListPage::ListPage(Wt::WContainerWidget* parent, std::initializer_list<InfoMgr_InfoID> watched)
    : EditingPage(parent), mWatched(watched) {}

void ListPage::setList(ObjListParts& list, KeptSelection::Job rebuild, KeptSelection::Job selectionChanged) {
    mSelection.emplace(list, std::move(rebuild), std::move(selectionChanged));
}

void ListPage::readFromDatabase(bool forceDetails, bool forceList) {
    if (!forceList && detailsTabs()->hasChanged()) return;
    if (forceList || mWatched.haveNews() || listIsDue()) {
        mSelection->rebuild();
        forceDetails = true;
    }
    showSelection(forceDetails);
}

void ListPage::refresh() {
    readFromDatabase(false, false);
}
