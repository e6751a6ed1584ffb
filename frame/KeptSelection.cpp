#include "frame/KeptSelection.h"

#include "frame/ObjListParts.h"

KeptSelection::KeptSelection(ObjListParts& list, Job rebuild, Job changed)
    : mList(list), mRebuild(std::move(rebuild)), mChanged(std::move(changed)), mRemember([this]() -> Job {
          return [this, records = indexes()] { mList.table()->setSelectedZeqIndexes(records); };
      }) {
    listen();
}

void KeptSelection::listen() {
    mConnection = mList.table()->selectionChanged().connect(mChanged);
}

void KeptSelection::quietly(const Job& job) {
    mConnection.disconnect();
    job();
    listen();
}

void KeptSelection::rebuild() {
    quietly([this] {
        const int row = mList.table()->selectedRowInView();
        const Job putBack = mRemember();
        mRebuild();
        mList.table()->clearSelection();
        putBack();
        mList.table()->keepSelectionInView(row);
    });
}

void KeptSelection::clear() {
    quietly([this] { mList.table()->clearSelection(); });
}

void KeptSelection::bringIntoView() {
    const Wt::WModelIndexSet rows = mList.table()->selectedIndexes();
    if (rows.size() == 1) mList.table()->scrollTo(*rows.begin(), Wt::WAbstractItemView::EnsureVisible);
}

std::vector<unsigned> KeptSelection::indexes() const {
    return mList.table()->selectedZeqIndexes();
}

std::size_t KeptSelection::count() const {
    return mList.table()->selectedIndexes().size();
}
