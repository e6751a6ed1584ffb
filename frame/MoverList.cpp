#include "frame/MoverList.h"

#include <algorithm>

namespace {

constexpr RecordColumn<MoverItem> kColumns[] = {
    {"index", [](const MoverItem& item) { return item.index; }},
    {"", [](const MoverItem& item) { return item.text; }},
};

constexpr int kText = 1;
constexpr int kBesideText = 27; // pixels: a cell's padding and the scroll bar

} // namespace

MoverList::MoverList(const MoverListLook& look, Wt::WContainerWidget* parent)
    : RecordTable(kColumns, parent), mTextWidth(look.textWidth) {
    setHeader(kText, tr(look.header));
    setAttributeValue("aria-label", tr(look.header));
    fixColumn(kText, look.textWidth);
    setColumnResizeEnabled(false);
    setSelectionMode(Wt::ExtendedSelection);
    resize(look.width, look.height);
    setSortingEnabled(look.sorted);
    if (look.sorted) sortByColumn(kText, Wt::AscendingOrder);
}

void MoverList::layoutSizeChanged(int width, int height) {
    fixColumn(kText, std::max(mTextWidth, width - kBesideText));
    RecordTable::layoutSizeChanged(width, height);
}

void MoverList::setItems(const std::vector<MoverItem>& items) {
    if (items == mItems) return;
    clearData();
    addRecords(kColumns, items);
    mItems = items;
}
