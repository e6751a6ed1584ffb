#include "views/sessions/WEstabSesTable.h"

#include "frame/MirlUtil.h"
#include "frame/WNumericSortFilterProxyModel.h"

#include <Wt/WStandardItemModel>

#include <boost/any.hpp>

WEstabSesTable::WEstabSesTable(std::initializer_list<Wt::WString> headers, Wt::WContainerWidget* parent)
    : WAutoSizeTableView(static_cast<int>(headers.size()) + 1, parent),
      mProxy(new WNumericSortFilterProxyModel(this)),
      mModel(new Wt::WStandardItemModel(0, static_cast<int>(headers.size()) + 1, mProxy)) {
    mProxy->setSourceModel(mModel);
    mProxy->setDynamicSortFilter(true);
    setModel(mProxy);
    setSelectionMode(Wt::SingleSelection);
    setColumnHidden(0, true);
    int column = 0;
    for (const Wt::WString& header : headers)
        mModel->setHeaderData(++column, Wt::Horizontal, boost::any(header));
    sortByColumn(1, Wt::AscendingOrder);
}

void WEstabSesTable::clearData() {
    mModel->removeRows(0, mModel->rowCount());
}

unsigned int WEstabSesTable::selectedZeqIndex() const {
    const Wt::WModelIndexSet selected = selectedIndexes();
    unsigned int index = 0;
    if (selected.size() == 1) MirlUtil_modelIndexToZeqIndex(*selected.begin(), mModel, mProxy, index);
    return index;
}

void WEstabSesTable::addRecord(unsigned int index, std::initializer_list<std::string> texts) {
    const int row = mModel->rowCount();
    mModel->insertRow(row);
    mModel->setData(row, 0, boost::any(index));
    int column = 0;
    for (const std::string& text : texts) mModel->setData(row, ++column, boost::any(text));
}
