#include <Wt/WTableView.h>

#include "views/TableWidget.h"
#include "views/ViewColumns.h"

#include <algorithm>

namespace Wt {

WTableView::WTableView(WContainerWidget* parent)
    : WAbstractItemView(parent), mTable(new Impl::TableWidget(*this)) {
    setImplementation(mTable);
}
WTableView::~WTableView() = default;

void WTableView::setColumnWidth(int column, const WLength& width) {
    editColumn(column).width = std::max(0.0, width.toPixels());
    viewChanged();
}

WLength WTableView::columnWidth(int column) const {
    return WLength(columnAt(column).width);
}

void WTableView::viewChanged() {
    if (mTable->nodeRendered()) mTable->nodeMessagePending();
}

void WTableView::scrollTo(const WModelIndex& index, ScrollHint hint) {
    if (index.isValid() && index.model() == model()) mTable->scrollTo(index.row(), hint);
}

int WTableView::pageSize() const {
    return std::max(1, mTable->pageRows());
}
int WTableView::pageCount() const {
    return model() ? (model()->rowCount() + pageSize() - 1) / pageSize() : 0;
}
int WTableView::currentPage() const {
    return mTable->firstInView() / pageSize();
}
void WTableView::setCurrentPage(int page) {
    if (model()) scrollTo(model()->index(page * pageSize(), 0), PositionAtTop);
}

void WTableView::layoutSizeChanged(int, int) {} // the browser tells how many rows it has room for

} // namespace Wt
