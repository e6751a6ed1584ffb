#include "frame/WNumericSortFilterProxyModel.h"

#include "db/MirlUtil.h"

#include <boost/any.hpp>

#include <string>

WNumericSortFilterProxyModel::WNumericSortFilterProxyModel(Wt::WObject* parent)
    : Wt::WSortFilterProxyModel(parent) {}

bool WNumericSortFilterProxyModel::lessThan(const Wt::WModelIndex& left, const Wt::WModelIndex& right) const {
    const boost::any leftCell = left.data(Wt::EditRole);
    const boost::any rightCell = right.data(Wt::EditRole);
    const std::string* leftText = boost::any_cast<std::string>(&leftCell);
    const std::string* rightText = boost::any_cast<std::string>(&rightCell);
    return leftText && rightText && MirlUtil_lessThan(*leftText, *rightText);
}
