#include <Wt/WStandardItemModel.h>

#include "models/ItemTable.h"
#include "models/StableSort.h"

#include <numeric>

namespace Wt {

void WStandardItem::sortChildren(int column, SortOrder order) {
    if (column < 0 || column >= columnCount()) return;
    WStandardItemModel* owner = model();
    if (owner) owner->layoutAboutToBeChanged().emit();
    std::vector<Rare::Row>& rows = mRare->rows;
    std::vector<WStandardItem*> keys(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row)
        keys[row] = itemAt(static_cast<int>(row), column); // an item's class decides how it compares
    std::vector<int> places(rows.size());
    std::iota(places.begin(), places.end(), 0);
    Impl::stableSort(places, [&](int a, int b) {
        return order == AscendingOrder ? *keys[a] < *keys[b] : *keys[b] < *keys[a];
    });
    std::vector<Rare::Row> sorted;
    sorted.reserve(rows.size());
    for (int place : places) sorted.push_back(std::move(rows[place]));
    rows.swap(sorted);
    for (Rare::Row& row : rows)
        for (Impl::ItemCell& cell : row)
            if (cell.item() && cell.item()->hasChildren()) cell.item()->sortChildren(column, order);
    if (owner) owner->layoutChanged().emit();
}

} // namespace Wt
