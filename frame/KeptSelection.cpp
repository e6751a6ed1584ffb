#include "frame/KeptSelection.h"

#include "frame/ObjListParts.h"
#include "frame/Place.h"

namespace {

constexpr std::size_t kMostInAddress = 32; // of EIDs these are 450 characters
constexpr char kManySelected = '~';        // no name begins with it unescaped

} // namespace

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

std::string KeptSelection::inAddress() const {
    const Wt::WModelIndexSet rows = mList.table()->selectedIndexes();
    if (rows.size() > kMostInAddress) return kManySelected + std::to_string(rows.size());
    std::vector<std::string> names;
    for (const Wt::WModelIndex& row : rows) names.push_back(mList.table()->nameAt(row));
    return Place::inOrder(Place::list(names)); // whatever the list is sorted by
}

void KeptSelection::selectInAddress(std::string_view part) {
    if (part.starts_with(kManySelected) || part == inAddress()) return;
    mList.table()->setSelectedIndexes(mList.table()->rowsNamed(Place::names(part)));
    bringIntoView();
}

std::vector<unsigned> KeptSelection::indexes() const {
    return mList.table()->selectedZeqIndexes();
}

std::string KeptSelection::textOfFirst(int column) const {
    const Wt::WModelIndexSet rows = mList.table()->selectedIndexes();
    return rows.empty() ? "" : mList.table()->textAt(*rows.begin(), column);
}

std::vector<HitRecord> KeptSelection::hits(int nameColumn, int stateColumn) const {
    std::vector<HitRecord> records;
    for (const Wt::WModelIndex& row : mList.table()->selectedIndexes())
        records.push_back({mList.table()->textAt(row, nameColumn),
                           stateColumn > 0 ? mList.table()->textAt(row, stateColumn) : ""});
    return records;
}

std::size_t KeptSelection::count() const {
    return mList.table()->selectedIndexes().size();
}
