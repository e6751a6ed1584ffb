#include "views/devices/tabs/DevShownRows.h"

#include "frame/EmptyText.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WNumericSortFilterProxyModel.h"

#include <Wt/WStandardItemModel>

#include <boost/any.hpp>

namespace {

constexpr int kHeight = 360; // pixels: heading and seventeen rows

} // namespace

DevShownRows::DevShownRows(std::span<const char* const> headers, const char* emptyKey,
                           Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mView(new WAutoSizeTableView(static_cast<int>(headers.size()))),
      mProxy(new WNumericSortFilterProxyModel(mView)),
      mModel(new Wt::WStandardItemModel(0, static_cast<int>(headers.size()), mProxy)) {
    for (std::size_t column = 0; column < headers.size(); ++column)
        mModel->setHeaderData(static_cast<int>(column), Wt::Horizontal, boost::any(tr(headers[column])));
    mProxy->setSourceModel(mModel);
    mProxy->setDynamicSortFilter(true);
    mProxy->setFilterKeyColumn(0);
    mProxy->setFilterRole(Wt::EditRole);
    mView->setModel(mProxy);
    mView->setColumnResizeEnabled(true);
    mView->setSortingEnabled(true);
    mView->setSelectionMode(Wt::NoSelection);
    mView->setInline(false);
    mView->setHeight(kHeight);
    emptyText(*mView, tr(emptyKey));
    addWidget(mView);
    setLayoutSizeAware(true);
}

void DevShownRows::layoutSizeChanged(int width, int /*height*/) {
    mView->adaptToWidth(width);
}

void DevShownRows::clearRows() {
    mModel->removeRows(0, mModel->rowCount());
}

void DevShownRows::setText(int row, int column, const std::string& text) {
    mModel->setData(row, column, boost::any(text));
}
