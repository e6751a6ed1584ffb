#include "frame/MoverList.h"

#include <Wt/WStandardItemModel>

#include <algorithm>
#include <unordered_map>

namespace {

constexpr RecordColumn<MoverItem> kColumns[] = {
    {"index", [](const MoverItem& item) { return item.index; }},
    {"", [](const MoverItem& item) { return item.text; }},
};

constexpr int kText = 1;
constexpr std::size_t kMostEdits = 100; // above, filling anew is cheaper

} // namespace

MoverList::MoverList(const MoverListLook& look, Wt::WContainerWidget* parent)
    : RecordTable(kColumns, parent) {
    setHeader(kText, tr(look.header));
    fixColumn(kText, look.textWidth);
    setColumnResizeEnabled(false);
    setSelectionMode(Wt::ExtendedSelection);
    resize(look.width, look.height);
    setSortingEnabled(look.sorted);
    if (look.sorted) sortByColumn(kText, Wt::AscendingOrder);
}

void MoverList::setItems(const std::vector<MoverItem>& items) {
    if (items == mItems) return;
    if (!editItems(items)) {
        clearData();
        addRecords(kColumns, items);
    }
    mItems = items;
}

// Rows that are gone are removed, then new ones are put in between those that stay. False, and nothing done,
// if that is too much or those that stay have changed their order.
bool MoverList::editItems(const std::vector<MoverItem>& items) {
    std::unordered_map<unsigned, const MoverItem*> wanted;
    for (const MoverItem& item : items) wanted.emplace(item.index, &item);
    std::vector<int> gone; // rows
    std::vector<const MoverItem*> staying;
    for (std::size_t row = 0; row < mItems.size(); ++row) {
        const auto found = wanted.find(mItems[row].index);
        if (found != wanted.end() && *found->second == mItems[row])
            staying.push_back(&mItems[row]);
        else
            gone.push_back(static_cast<int>(row));
    }
    std::vector<int> added; // rows, once the list is done
    std::size_t next = 0;
    for (std::size_t row = 0; row < items.size(); ++row) {
        if (next < staying.size() && items[row] == *staying[next])
            ++next;
        else
            added.push_back(static_cast<int>(row));
    }
    if (next != staying.size() || gone.size() + added.size() > kMostEdits) return false;

    std::for_each(gone.rbegin(), gone.rend(), [this](int row) { records()->removeRow(row); });
    for (const int row : added) {
        records()->insertRow(row);
        setRecord(row, kColumns, items[static_cast<std::size_t>(row)]);
    }
    return true;
}
