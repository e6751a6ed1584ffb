#include "frame/WAutoSizeTableView.h"

#include <Wt/WAbstractItemModel>

#include <boost/any.hpp>

#include <algorithm>

namespace {

constexpr int kScrollBarWidth = 20;  // pixels kept free at the right
constexpr int kCellDecoration = 7;   // pixels of a cell's padding and border
constexpr int kMaxUserWidth = 10000; // pixels; a dragged width is what a browser says it is

} // namespace

WAutoSizeTableView::WAutoSizeTableView(int columns, Wt::WContainerWidget* parent)
    : Wt::WTableView(parent), mNumColumns(static_cast<std::uint8_t>(columns)),
      mUserColumnWidths(mNumColumns) {
    setLayoutSizeAware(true);
    columnResized().connect(this, &WAutoSizeTableView::columnResizedHandler);
}

void WAutoSizeTableView::clearSelection() {
    setSelectedIndexes(Wt::WModelIndexSet());
}

void WAutoSizeTableView::setSelectedZeqIndexes(const std::vector<unsigned int>& zeqIndexes) {
    if (zeqIndexes.empty()) return;
    Wt::WModelIndexSet rows;
    addRowsOf(
        zeqIndexes, nullptr, [](void*, Wt::WModelIndex) { return true; }, rows);
    setSelectedIndexes(rows);
}

void WAutoSizeTableView::setSelectedFilteredZeqIndexes(const std::vector<unsigned int>& zeqIndexes,
                                                       void* context, RowFilter filter) {
    if (zeqIndexes.empty()) return;
    Wt::WModelIndexSet rows = selectedIndexes();
    addRowsOf(zeqIndexes, context, filter, rows);
    setSelectedIndexes(rows);
}

// One walk of the list for all records: five hundred selected of ten thousand are no five million reads.
void WAutoSizeTableView::addRowsOf(std::vector<unsigned int> wanted, void* context, RowFilter filter,
                                   Wt::WModelIndexSet& rows) {
    std::sort(wanted.begin(), wanted.end());
    wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
    if (!wanted.empty() && wanted.front() == 0) wanted.erase(wanted.begin()); // no record
    std::vector<bool> found(wanted.size());
    std::size_t missing = wanted.size();
    for (int row = 0; row < model()->rowCount() && missing > 0; ++row) {
        const boost::any cell = model()->data(row, 0, Wt::EditRole);
        const unsigned int* zeqIndex = boost::any_cast<unsigned int>(&cell);
        if (!zeqIndex) continue;
        const auto place = std::lower_bound(wanted.begin(), wanted.end(), *zeqIndex);
        if (place == wanted.end() || *place != *zeqIndex) continue;
        const std::size_t n = static_cast<std::size_t>(place - wanted.begin());
        const Wt::WModelIndex index = model()->index(row, 0);
        if (found[n] || !filter(context, index)) continue;
        found[n] = true;
        --missing;
        rows.insert(index);
    }
}

void WAutoSizeTableView::fixColumn(int column, int pixels) {
    mUserColumnWidths.at(static_cast<std::size_t>(column)) = static_cast<std::uint32_t>(pixels);
    setColumnWidth(column, Wt::WLength(pixels));
}

void WAutoSizeTableView::columnResizedHandler(int column, Wt::WLength width) {
    if (column < 0 || column >= mNumColumns) return;
    fixColumn(column, static_cast<int>(std::clamp(width.toPixels(), 0.0, double(kMaxUserWidth))));
    if (mLastWidth > 0) adaptToWidth(mLastWidth);
}

void WAutoSizeTableView::adaptToWidth(int width) {
    std::vector<int> free;
    double taken = kScrollBarWidth;
    for (int column = 0; column < mNumColumns; ++column) {
        if (isColumnHidden(column)) continue;
        const std::uint32_t fixed = mUserColumnWidths[static_cast<std::size_t>(column)];
        if (fixed == 0)
            free.push_back(column);
        else
            taken += fixed + kCellDecoration;
    }
    for (const int column : free) {
        const double share = (width - taken) / double(free.size());
        setColumnWidth(column, Wt::WLength(std::max(0, static_cast<int>(share - kCellDecoration))));
    }
    mLastWidth = width;
}

void WAutoSizeTableView::layoutSizeChanged(int width, int height) {
    Wt::WTableView::layoutSizeChanged(width, height);
    if (width != mLastWidth) adaptToWidth(width);
    if (this->height() != Wt::WLength(height)) resize(Wt::WLength(width), Wt::WLength(height));
}
