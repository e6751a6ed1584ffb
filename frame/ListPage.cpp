#include "frame/ListPage.h"

#include "frame/DetailsTabs.h"
#include "frame/Place.h"

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

std::string ListPage::placeInAddress() const {
    const std::string records = mSelection ? mSelection->inAddress() : "";
    return records.empty() ? "" : "/" + records + EditingPage::placeInAddress();
}

void ListPage::goTo(std::string_view place) {
    const std::string_view records = Place::takePart(place);
    if (!detailsTabs()->hasChanged()) mSelection->selectInAddress(records);
    const std::string now = mSelection->inAddress();
    if (records == now || Place::inOrder(records) == now) EditingPage::goTo(place);
}

void ListPage::refresh() {
    readFromDatabase(false, false);
}
