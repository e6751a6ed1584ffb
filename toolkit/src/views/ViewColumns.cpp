#include "views/ViewColumns.h"

#include <algorithm>
#include <stdexcept>

namespace Wt::Impl {

namespace {
constexpr int kMaxColumns = 10'000; // a slip of the program, not a table
}

const ViewColumn& ViewColumns::operator[](int column) const {
    static const ViewColumn usual;
    return column >= 0 && column < static_cast<int>(mColumns.size()) ? mColumns[column] : usual;
}

ViewColumn& ViewColumns::edit(int column) {
    if (column < 0 || column >= kMaxColumns) throw std::out_of_range("item view: no such column");
    if (column >= static_cast<int>(mColumns.size())) mColumns.resize(column + 1);
    return mColumns[column];
}

void ViewColumns::inserted(int first, int count) {
    if (first < static_cast<int>(mColumns.size()))
        mColumns.insert(mColumns.begin() + first, count, ViewColumn());
}

void ViewColumns::removed(int first, int count) {
    const int size = static_cast<int>(mColumns.size());
    if (first < size)
        mColumns.erase(mColumns.begin() + first, mColumns.begin() + std::min(first + count, size));
}

} // namespace Wt::Impl
