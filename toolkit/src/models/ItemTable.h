#pragma once

#include "models/ItemCell.h"

#include <Wt/WStandardItem.h>

#include <map>
#include <vector>

namespace Wt {

/// What few items have.
struct WStandardItem::Rare {
    using Row = std::vector<Impl::ItemCell>; ///< `columns` cells

    std::map<int, boost::any> data; ///< all roles but DisplayRole
    std::vector<Row> rows;          ///< of the table of children
    int columns = 0;
    WStandardItemModel* model = nullptr; ///< of the root
};

} // namespace Wt
