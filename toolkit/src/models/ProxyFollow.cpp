// How a WSortFilterProxyModel follows its source.
#include "models/ProxyState.h"
#include "models/StableSort.h"

#include <algorithm>
#include <exception>
#include <numeric>

namespace Wt {

// ---- order

bool WSortFilterProxyModel::shows(int sourceRow) const {
    return !mState->tooCostly && filterAcceptRow(sourceRow, WModelIndex());
}

bool WSortFilterProxyModel::keyless(int sourceRow) const {
    return sourceModel()->data(sourceModel()->index(sourceRow, mState->sortColumn), mState->sortRole).empty();
}

bool WSortFilterProxyModel::less(int sourceRow, int otherRow) const {
    const WModelIndex one = sourceModel()->index(sourceRow, mState->sortColumn);
    const WModelIndex other = sourceModel()->index(otherRow, mState->sortColumn);
    try {
        return mState->sortOrder == AscendingOrder ? lessThan(one, other) : lessThan(other, one);
    } catch (const std::exception&) {
        return false;
    }
}

/// Strictly before by the sort key alone.
bool WSortFilterProxyModel::before(int sourceRow, int otherRow) const {
    if (mState->sortColumn < 0) return sourceRow < otherRow;
    const bool keylessRow = mState->keyless[sourceRow], keylessOther = mState->keyless[otherRow];
    if (keylessRow && keylessOther) return false;
    if (keylessRow || keylessOther) return keylessRow == (mState->sortOrder == AscendingOrder);
    return less(sourceRow, otherRow);
}

/// Where a row that is not shown belongs: behind smaller ones, among equal ones by the source's order.
int WSortFilterProxyModel::placeOf(int sourceRow) const {
    const auto search = [this](int end, auto goesRight) {
        int low = 0;
        for (int high = end; low < high;) {
            const int middle = low + (high - low) / 2;
            if (goesRight(mState->order.at(middle)))
                low = middle + 1;
            else
                high = middle;
        }
        return low;
    };
    const int place = search(mState->order.size(), [&](int other) { return !before(sourceRow, other); });
    const auto precedes = [&](int other) { return other < sourceRow || before(other, sourceRow); };
    if (place == 0 || precedes(mState->order.at(place - 1))) return place;
    return search(place, precedes);
}

bool WSortFilterProxyModel::inPlace(int sourceRow, int position) const {
    const auto ordered = [this](int first, int second) {
        return first < second ? !before(second, first) : before(first, second);
    };
    return (position == 0 || ordered(mState->order.at(position - 1), sourceRow)) &&
           (position + 1 == mState->order.size() || ordered(sourceRow, mState->order.at(position + 1)));
}

std::vector<int> WSortFilterProxyModel::sorted() const {
    std::vector<int> rows = mState->order.all();
    std::sort(rows.begin(), rows.end());
    if (mState->sortColumn >= 0) Impl::stableSort(rows, [this](int a, int b) { return before(a, b); });
    return rows;
}

// ---- changes of what is shown, with their signals

void WSortFilterProxyModel::insertSorted(std::vector<int> rows) {
    if (mState->sortColumn >= 0) Impl::stableSort(rows, [this](int a, int b) { return before(a, b); });
    const auto precedes = [this](int row, int other) {
        return before(row, other) || (row < other && !before(other, row));
    };
    for (std::size_t from = 0; from < rows.size();) {
        const int place = placeOf(rows[from]);
        std::size_t end = from + 1;
        // What is to stand in the same gap goes in at once.
        if (place == mState->order.size())
            end = rows.size();
        else
            while (end < rows.size() && precedes(rows[end], mState->order.at(place))) ++end;
        const std::vector<int> run(rows.begin() + from, rows.begin() + end);
        beginInsertRows(WModelIndex(), place, place + static_cast<int>(run.size()) - 1);
        mState->order.insert(place, run);
        endInsertRows();
        from = end;
    }
}

void WSortFilterProxyModel::removeShown(std::vector<int> sourceRows) {
    std::vector<int> positions;
    for (int row : sourceRows)
        if (const int position = mState->order.position(row); position >= 0) positions.push_back(position);
    std::sort(positions.rbegin(), positions.rend());
    for (std::size_t from = 0; from < positions.size();) {
        std::size_t end = from + 1;
        while (end < positions.size() && positions[end] == positions[end - 1] - 1) ++end;
        const int first = positions[end - 1], last = positions[from];
        beginRemoveRows(WModelIndex(), first, last);
        mState->order.erase(first, last - first + 1);
        endRemoveRows();
        from = end;
    }
}

void WSortFilterProxyModel::filterAgain() {
    mState->tooCostly = false;
    if (!sourceModel()) return;
    std::vector<int> gone, come;
    for (int row = 0; row < mState->order.sources(); ++row) {
        const bool shown = mState->order.contains(row);
        const bool pass = shows(row);
        if (shown && !pass) gone.push_back(row);
        if (!shown && pass) come.push_back(row);
    }
    if (mState->tooCostly) { // rows that passed before the limit was met do not stay
        gone = mState->order.all();
        come.clear();
    }
    removeShown(std::move(gone));
    insertSorted(std::move(come));
}

void WSortFilterProxyModel::sortAgain() {
    if (!sourceModel()) return;
    const int sources = mState->order.sources();
    for (int row = 0; row < sources && mState->sortColumn >= 0; ++row) mState->keyless[row] = keyless(row);
    layoutAboutToBeChanged().emit();
    mState->order.assign(sorted(), sources);
    layoutChanged().emit();
}

void WSortFilterProxyModel::replace(int sourceRow) {
    layoutAboutToBeChanged().emit();
    mState->order.erase(mState->order.position(sourceRow));
    mState->order.insert(placeOf(sourceRow), {sourceRow});
    layoutChanged().emit();
}

// ---- the source's signals

void WSortFilterProxyModel::sourceRowsInserted(const WModelIndex& parent, int first, int last) {
    if (parent.isValid()) return;
    const int count = last - first + 1;
    mState->order.sourceInserted(first, count);
    mState->keyless.insert(mState->keyless.begin() + first, count, 0);
    std::vector<int> come;
    for (int row = first; row <= last; ++row) {
        if (mState->sortColumn >= 0) mState->keyless[row] = keyless(row);
        if (shows(row)) come.push_back(row);
    }
    insertSorted(std::move(come));
}

void WSortFilterProxyModel::sourceRowsAboutToBeRemoved(const WModelIndex& parent, int first, int last) {
    if (parent.isValid()) return;
    std::vector<int> gone(last - first + 1);
    std::iota(gone.begin(), gone.end(), first);
    removeShown(std::move(gone));
}

void WSortFilterProxyModel::sourceRowsRemoved(const WModelIndex& parent, int first, int last) {
    if (parent.isValid()) return;
    mState->order.sourceRemoved(first, last - first + 1);
    mState->keyless.erase(mState->keyless.begin() + first, mState->keyless.begin() + last + 1);
}

void WSortFilterProxyModel::sourceColumnsAboutToBeInserted(const WModelIndex& parent, int first, int last) {
    if (!parent.isValid()) beginInsertColumns(parent, first, last);
}
void WSortFilterProxyModel::sourceColumnsInserted() {
    endInsertColumns();
}
void WSortFilterProxyModel::sourceColumnsAboutToBeRemoved(const WModelIndex& parent, int first, int last) {
    if (!parent.isValid()) beginRemoveColumns(parent, first, last);
}
void WSortFilterProxyModel::sourceColumnsRemoved() {
    endRemoveColumns();
}

void WSortFilterProxyModel::sourceDataChanged(const WModelIndex& topLeft, const WModelIndex& bottomRight) {
    if (!topLeft.isValid() || topLeft.parent().isValid()) return;
    const auto touches = [&](int column) {
        return column >= topLeft.column() && column <= bottomRight.column();
    };
    const bool key = mState->sortColumn >= 0 && touches(mState->sortColumn);
    const bool filtered = mState->dynamic && touches(mState->filterColumn);
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        int position = mState->order.position(row);
        if (key && mState->dynamic) mState->keyless[row] = keyless(row);
        if (filtered) {
            const bool pass = shows(row);
            if (pass && position < 0) {
                insertSorted({row});
                continue;
            }
            if (!pass && position >= 0) {
                removeShown({row});
                continue;
            }
        }
        if (position < 0) continue;
        if (key && mState->dynamic && !inPlace(row, position)) {
            replace(row);
            position = mState->order.position(row);
        }
        dataChanged().emit(createIndex(position, topLeft.column(), nullptr),
                           createIndex(position, bottomRight.column(), nullptr));
    }
}

void WSortFilterProxyModel::sourceHeaderDataChanged(Orientation orientation, int first, int last) {
    if (orientation == Horizontal) headerDataChanged().emit(orientation, first, last);
}

void WSortFilterProxyModel::sourceLayoutAboutToBeChanged() {
    layoutAboutToBeChanged().emit();
    mState->rawRows.clear();
    for (int row = 0; row < mState->order.sources(); ++row) {
        WModelIndex raw = sourceModel()->index(row, 0);
        raw.encodeAsRawIndex();
        mState->rawRows.push_back(raw);
    }
}

void WSortFilterProxyModel::sourceLayoutChanged() {
    const int sources = sourceModel()->rowCount();
    std::vector<int> movedTo;
    for (const WModelIndex& raw : mState->rawRows) movedTo.push_back(raw.decodeFromRawIndex().row());
    mState->rawRows.clear();
    std::vector<int> shown;
    mState->keyless.assign(sources, 0);
    for (int row = 0; row < sources; ++row) {
        if (mState->sortColumn >= 0) mState->keyless[row] = keyless(row);
        if (shows(row)) shown.push_back(row);
    }
    mState->order.assign(shown, sources);
    mState->order.assign(sorted(), sources);
    mState->movedTo = std::move(movedTo);
    layoutChanged().emit();
    mState->movedTo.clear();
}

void WSortFilterProxyModel::sourceReset() {
    mState->tooCostly = false;
    mState->order.assign({}, 0);
    mState->keyless.clear();
    if (const int sources = sourceModel() ? sourceModel()->rowCount() : 0) {
        mState->keyless.assign(sources, 0);
        std::vector<int> shown;
        for (int row = 0; row < sources; ++row) {
            if (mState->sortColumn >= 0) mState->keyless[row] = keyless(row);
            if (shows(row)) shown.push_back(row);
        }
        mState->order.assign(shown, sources);
        mState->order.assign(sorted(), sources);
    }
    reset();
}

} // namespace Wt
