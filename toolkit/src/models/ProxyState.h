#pragma once

#include "models/RowOrder.h"

#include <Wt/WSignal.h>
#include <Wt/WSortFilterProxyModel.h>

#include <memory>
#include <vector>

namespace Wt {

namespace Impl {
class Pattern;
}

/// Hidden part of a WSortFilterProxyModel.
struct WSortFilterProxyModel::State {
    Impl::RowOrder order;
    std::vector<char> keyless; ///< by source row: its sort key has no value
    std::vector<Signals::connection> connections;

    WString filterText;
    WFlags<RegExpFlag> filterFlags;
    std::shared_ptr<const Impl::Pattern> filter; ///< null: every row passes
    mutable bool tooCostly = false;              ///< the filter ran into its limit: nothing passes

    int filterColumn = 0, filterRole = DisplayRole, sortRole = DisplayRole, sortColumn = -1;
    SortOrder sortOrder = AscendingOrder;
    bool dynamic = false;

    /// While the source changes its layout: its rows from before, and where they went.
    WModelIndexList rawRows;
    std::vector<int> movedTo;
};

} // namespace Wt
