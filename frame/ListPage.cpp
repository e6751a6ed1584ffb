#include "frame/ListPage.h"

#include "frame/DetailsTabs.h"
#include "frame/NamesText.h"
#include "frame/Place.h"

ListPage::ListPage(Wt::WContainerWidget* parent, std::initializer_list<InfoMgr_InfoID> watched)
    : EditingPage(parent), mWatched(watched) {}

void ListPage::setList(ObjListParts& list, KeptSelection::Job rebuild, KeptSelection::Job selectionChanged) {
    mSelection.emplace(list, std::move(rebuild), std::move(selectionChanged));
}

void ListPage::readFromDatabase(bool forceDetails, bool forceList) {
    const WatchedKinds::Reading reading(mWatched);
    if (!forceList && detailsTabs()->hasChanged()) return tellWhatChanged();
    if (forceList || mWatched.haveNews() || listIsDue()) {
        mSelection->rebuild();
        forceDetails = true;
    }
    showSelection(forceDetails);
    showSubject();
}

Wt::WString ListPage::chosenInWords() const {
    const std::size_t count = mSelection->count();
    if (count != 1) return tr(countedKey()).arg(std::to_string(count));
    return Wt::WString::fromUTF8(mSelection->textOfFirst(mWords.columns.front()));
}

Wt::WString ListPage::hit(int stateColumn) const {
    return hitText(mSelection->hits(mWords.columns.front(), stateColumn), countedKey());
}

void ListPage::showSubject() {
    Wt::WString subject;
    if (mSelection->count() > 0) subject = chosenInWords();
    if (mSelection->count() == 1)
        for (std::size_t i = 1; i < mWords.columns.size(); ++i)
            subject += Wt::WString::fromUTF8(" · " + mSelection->textOfFirst(mWords.columns[i]));
    detailsTabs()->setSubject(subject);
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
