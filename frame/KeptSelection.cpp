#include "frame/KeptSelection.h"

#include "frame/MirlUtil.h"
#include "frame/ObjListParts.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WNumericSortFilterProxyModel.h"

#include <Wt/WStandardItemModel>

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
        const Job putBack = mRemember();
        mRebuild();
        mList.table()->clearSelection();
        putBack();
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
    std::vector<unsigned> records;
    MirlUtil_modelIndexSetToZeqIndexVect(mList.table()->selectedIndexes(), mList.model(), mList.proxy(),
                                         records);
    return records;
}

std::size_t KeptSelection::count() const {
    return mList.table()->selectedIndexes().size();
}
