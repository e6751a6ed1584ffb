#include <Wt/WAbstractItemView.h>

#include "views/ViewColumns.h"
#include "views/ViewSelection.h"

namespace Wt {

struct WAbstractItemView::SignalSet {
    Signal<WModelIndex, WMouseEvent> clicked, doubleClicked, mouseWentDown, mouseWentUp;
    Signal<> selectionChanged;
    Signal<int, WLength> columnResized;
    Signal<int, WMouseEvent> headerClicked, headerDoubleClicked;
};

WAbstractItemView::WAbstractItemView(WContainerWidget* parent)
    : WCompositeWidget(parent), mColumns(std::make_unique<Impl::ViewColumns>()),
      mSelection(std::make_unique<Impl::ViewSelection>()) {}
WAbstractItemView::~WAbstractItemView() = default;

WAbstractItemView::SignalSet& WAbstractItemView::signalsOf() {
    if (!mSignals) mSignals = std::make_unique<SignalSet>();
    return *mSignals;
}

Signal<WModelIndex, WMouseEvent>& WAbstractItemView::clicked() {
    return signalsOf().clicked;
}
Signal<WModelIndex, WMouseEvent>& WAbstractItemView::doubleClicked() {
    return signalsOf().doubleClicked;
}
Signal<WModelIndex, WMouseEvent>& WAbstractItemView::mouseWentDown() {
    return signalsOf().mouseWentDown;
}
Signal<WModelIndex, WMouseEvent>& WAbstractItemView::mouseWentUp() {
    return signalsOf().mouseWentUp;
}
Signal<>& WAbstractItemView::selectionChanged() {
    return signalsOf().selectionChanged;
}
Signal<int, WLength>& WAbstractItemView::columnResized() {
    return signalsOf().columnResized;
}
Signal<int, WMouseEvent>& WAbstractItemView::headerClicked() {
    return signalsOf().headerClicked;
}
Signal<int, WMouseEvent>& WAbstractItemView::headerDoubleClicked() {
    return signalsOf().headerDoubleClicked;
}

// ---- columns and looks

Impl::ViewColumn& WAbstractItemView::editColumn(int column) {
    return mColumns->edit(column);
}
const Impl::ViewColumn& WAbstractItemView::columnAt(int column) const {
    return (*mColumns)[column];
}

void WAbstractItemView::setHeaderAlignment(int column, WFlags<AlignmentFlag> alignment) {
    mColumns->edit(column).headerAlignment =
        static_cast<AlignmentFlag>((alignment & AlignHorizontalMask).value());
    viewChanged();
}
AlignmentFlag WAbstractItemView::horizontalHeaderAlignment(int column) const {
    return (*mColumns)[column].headerAlignment;
}

void WAbstractItemView::setColumnAlignment(int column, AlignmentFlag alignment) {
    mColumns->edit(column).alignment = alignment;
    viewChanged();
}
AlignmentFlag WAbstractItemView::columnAlignment(int column) const {
    return (*mColumns)[column].alignment;
}

void WAbstractItemView::setAlternatingRowColors(bool enable) {
    mAlternating = enable;
    viewChanged();
}

void WAbstractItemView::setColumnHidden(int column, bool hidden) {
    mColumns->edit(column).hidden = hidden;
    viewChanged();
}
bool WAbstractItemView::isColumnHidden(int column) const {
    return (*mColumns)[column].hidden;
}
void WAbstractItemView::hideColumn(int column) {
    setColumnHidden(column, true);
}
void WAbstractItemView::showColumn(int column) {
    setColumnHidden(column, false);
}

void WAbstractItemView::setRowHeight(const WLength& height) {
    mRowHeight = height;
    viewChanged();
}
void WAbstractItemView::setHeaderHeight(const WLength& height) {
    mHeaderHeight = height;
    viewChanged();
}

void WAbstractItemView::setColumnResizeEnabled(bool enabled) {
    mResizeEnabled = enabled;
    viewChanged();
}

// ---- sorting

void WAbstractItemView::setSortingEnabled(bool enabled) {
    mSorting = enabled;
    viewChanged();
}
void WAbstractItemView::setSortingEnabled(int column, bool enabled) {
    mColumns->edit(column).sortable = enabled;
    viewChanged();
}
bool WAbstractItemView::isSortingEnabled() const {
    return mSorting;
}
bool WAbstractItemView::isSortingEnabled(int column) const {
    return mSorting && (*mColumns)[column].sortable;
}

void WAbstractItemView::sortByColumn(int column, SortOrder order) {
    mSortColumn = column;
    mSortOrder = order;
    if (mModel) mModel->sort(column, order);
    viewChanged();
}

void WAbstractItemView::headerUsed(int column, const WMouseEvent& event) {
    if (!mModel || column < 0 || column >= mModel->columnCount()) return;
    if (isSortingEnabled(column)) {
        const bool again = mSortColumn == column && mSortOrder == AscendingOrder;
        sortByColumn(column, again ? DescendingOrder : AscendingOrder);
    }
    headerClicked().emit(column, event); // last: a handler may delete the view
}

// ---- selection

void WAbstractItemView::setSelectionBehavior(SelectionBehavior behavior) {
    if (mSelection->behavior == behavior) return;
    clearSelection();
    mSelection->behavior = behavior;
    viewChanged();
}
SelectionBehavior WAbstractItemView::selectionBehavior() const {
    return mSelection->behavior;
}

void WAbstractItemView::setSelectionMode(SelectionMode mode) {
    if (mSelection->mode == mode) return;
    clearSelection();
    mSelection->mode = mode;
    viewChanged();
}
SelectionMode WAbstractItemView::selectionMode() const {
    return mSelection->mode;
}

void WAbstractItemView::selectionTouched(bool changed) {
    viewChanged();
    if (changed) selectionChanged().emit();
}

bool WAbstractItemView::selectable(int row, int column) const {
    const WModelIndex index = mModel ? mModel->index(row, column) : WModelIndex();
    return index.isValid() && mModel->flags(index).testFlag(ItemIsSelectable);
}

void WAbstractItemView::setSelectedIndexes(const WModelIndexSet& indexes) {
    std::set<Impl::ViewSelection::Place> places;
    for (const WModelIndex& index : indexes)
        if (index.model() == mModel && selectable(index.row(), index.column()))
            places.emplace(index.row(), index.column());
    selectionTouched(mSelection->assign(places));
}

void WAbstractItemView::clearSelection() {
    selectionTouched(mSelection->assign({}));
}

void WAbstractItemView::select(const WModelIndex& index, SelectionFlag option) {
    if (index.model() != mModel || !selectable(index.row(), index.column())) return;
    selectionTouched(mSelection->apply({index.row(), index.column()}, option));
}

bool WAbstractItemView::isSelected(const WModelIndex& index) const {
    return index.isValid() && index.model() == mModel && mSelection->contains(index.row(), index.column());
}

WModelIndexSet WAbstractItemView::selectedIndexes() const {
    WModelIndexSet indexes;
    for (const auto& [row, column] : mSelection->places())
        indexes.insert(indexes.end(), mModel->index(row, column));
    return indexes;
}

} // namespace Wt
