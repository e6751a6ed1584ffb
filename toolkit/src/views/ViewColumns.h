#pragma once

#include <Wt/WGlobal.h>

#include <vector>

namespace Wt::Impl {

/// What a view knows of a column of its model. Columns that nobody has spoken of have the defaults.
struct ViewColumn {
    double width = 150; ///< of the text, in pixels, without padding and border
    bool hidden = false;
    bool sortable = true;
    AlignmentFlag alignment = AlignLeft;
    AlignmentFlag headerAlignment = AlignLeft;
};

class ViewColumns {
public:
    static constexpr double kMinWidth = 8, kMaxWidth = 4000; ///< pixels, for a column that a user resizes

    const ViewColumn& operator[](int column) const;
    ViewColumn& edit(int column); ///< for column >= 0
    void inserted(int first, int count);
    void removed(int first, int count);

private:
    std::vector<ViewColumn> mColumns;
};

} // namespace Wt::Impl
