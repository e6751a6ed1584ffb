#include "page/SortedList.h"

#include <boost/any.hpp>

#include <string>

namespace {

/// Compares the texts that the cells hold.
class TextOrder : public Wt::WSortFilterProxyModel {
public:
    using WSortFilterProxyModel::WSortFilterProxyModel;

protected:
    bool lessThan(const Wt::WModelIndex& left, const Wt::WModelIndex& right) const override {
        const boost::any a = left.data(Wt::EditRole), b = right.data(Wt::EditRole);
        const auto* one = boost::any_cast<std::string>(&a);
        const auto* other = boost::any_cast<std::string>(&b);
        return one && other && *one < *other;
    }
};

} // namespace

SortedList::SortedList(Wt::WContainerWidget* parent)
    : mView(new Wt::WTableView(parent)), mProxy(new TextOrder(mView)),
      mModel(new Wt::WStandardItemModel(0, kColumns, mProxy)) {
    mProxy->setSourceModel(mModel);
    mProxy->setDynamicSortFilter(true);
    mProxy->setFilterKeyColumn(2);
    mProxy->setFilterRegExp("^.*");
    mView->setModel(mProxy);
    mView->setColumnHidden(0, true);
    mView->sortByColumn(1, Wt::AscendingOrder);
}

void SortedList::refill(int rows) {
    mModel->removeRows(0, mModel->rowCount());
    mModel->insertRows(0, rows);
    for (int row = 0; row < rows; ++row) {
        mModel->setData(row, 0, boost::any(static_cast<unsigned>(row + 1)));
        mModel->setData(row, 1, boost::any("rx " + std::to_string(row * 7919 % rows)));
        mModel->setData(row, 2, boost::any("Receiver of desk " + std::to_string(row)));
        mModel->setData(row, 3, boost::any(std::string("Receiver (G2)")));
        mModel->setData(row, 4, boost::any(std::string("Connected, private")));
        mModel->setData(row, 5, boost::any(std::string("4.12.0")));
    }
}
