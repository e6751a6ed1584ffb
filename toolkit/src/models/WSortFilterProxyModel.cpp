#include <Wt/WSortFilterProxyModel.h>

#include "models/Any.h"
#include "models/ProxyState.h"
#include "validators/Pattern.h"

#include <algorithm>

namespace Wt {

WSortFilterProxyModel::WSortFilterProxyModel(WObject* parent)
    : WAbstractProxyModel(parent), mState(std::make_unique<State>()) {}
WSortFilterProxyModel::~WSortFilterProxyModel() = default;

void WSortFilterProxyModel::setSourceModel(WAbstractItemModel* model) {
    for (const auto& old : mState->connections) old.disconnect();
    mState->connections.clear();
    WAbstractProxyModel::setSourceModel(model);
    if (model) {
        using Self = WSortFilterProxyModel;
        mState->connections = {
            model->rowsInserted().connect(this, &Self::sourceRowsInserted),
            model->rowsAboutToBeRemoved().connect(this, &Self::sourceRowsAboutToBeRemoved),
            model->rowsRemoved().connect(this, &Self::sourceRowsRemoved),
            model->columnsAboutToBeInserted().connect(this, &Self::sourceColumnsAboutToBeInserted),
            model->columnsInserted().connect(this, &Self::sourceColumnsInserted),
            model->columnsAboutToBeRemoved().connect(this, &Self::sourceColumnsAboutToBeRemoved),
            model->columnsRemoved().connect(this, &Self::sourceColumnsRemoved),
            model->dataChanged().connect(this, &Self::sourceDataChanged),
            model->headerDataChanged().connect(this, &Self::sourceHeaderDataChanged),
            model->layoutAboutToBeChanged().connect(this, &Self::sourceLayoutAboutToBeChanged),
            model->layoutChanged().connect(this, &Self::sourceLayoutChanged),
            model->modelReset().connect(this, &Self::sourceReset),
        };
    }
    sourceReset();
}

// ---- settings

void WSortFilterProxyModel::setFilterKeyColumn(int column) {
    if (mState->filterColumn == column) return;
    mState->filterColumn = column;
    filterAgain();
}
int WSortFilterProxyModel::filterKeyColumn() const {
    return mState->filterColumn;
}

void WSortFilterProxyModel::setFilterRegExp(const WString& pattern) {
    mState->filterText = pattern;
    const std::string text = pattern.toUTF8();
    mState->filter =
        text.empty() ? nullptr : Impl::Pattern::of(text, mState->filterFlags.testFlag(MatchCaseInsensitive));
    filterAgain();
}
WString WSortFilterProxyModel::filterRegExp() const {
    return mState->filterText;
}

void WSortFilterProxyModel::setFilterFlags(WFlags<RegExpFlag> flags) {
    if (mState->filterFlags.value() == flags.value()) return;
    mState->filterFlags = flags;
    setFilterRegExp(mState->filterText);
}
WFlags<RegExpFlag> WSortFilterProxyModel::filterFlags() const {
    return mState->filterFlags;
}

void WSortFilterProxyModel::setFilterRole(int role) {
    if (mState->filterRole == role) return;
    mState->filterRole = role;
    filterAgain();
}
int WSortFilterProxyModel::filterRole() const {
    return mState->filterRole;
}

void WSortFilterProxyModel::setSortRole(int role) {
    if (mState->sortRole == role) return;
    mState->sortRole = role;
    if (mState->sortColumn >= 0) sortAgain();
}
int WSortFilterProxyModel::sortRole() const {
    return mState->sortRole;
}
int WSortFilterProxyModel::sortColumn() const {
    return mState->sortColumn;
}
SortOrder WSortFilterProxyModel::sortOrder() const {
    return mState->sortOrder;
}

void WSortFilterProxyModel::setDynamicSortFilter(bool enable) {
    if (mState->dynamic == enable) return;
    mState->dynamic = enable;
    if (enable) invalidate();
}
bool WSortFilterProxyModel::dynamicSortFilter() const {
    return mState->dynamic;
}

void WSortFilterProxyModel::invalidate() {
    filterAgain();
    sortAgain();
}

void WSortFilterProxyModel::sort(int column, SortOrder order) {
    mState->sortColumn = column;
    mState->sortOrder = order;
    sortAgain();
}

// ---- shape

WModelIndex WSortFilterProxyModel::mapFromSource(const WModelIndex& sourceIndex) const {
    if (!sourceIndex.isValid() || sourceIndex.model() != sourceModel()) return {};
    const int row = mState->order.position(sourceIndex.row());
    return row < 0 ? WModelIndex() : createIndex(row, sourceIndex.column(), nullptr);
}

WModelIndex WSortFilterProxyModel::mapToSource(const WModelIndex& proxyIndex) const {
    if (!proxyIndex.isValid() || proxyIndex.model() != this || !sourceModel()) return {};
    if (proxyIndex.row() < 0 || proxyIndex.row() >= mState->order.size()) return {};
    return sourceModel()->index(mState->order.at(proxyIndex.row()), proxyIndex.column());
}

int WSortFilterProxyModel::columnCount(const WModelIndex& parent) const {
    return parent.isValid() || !sourceModel() ? 0 : sourceModel()->columnCount();
}

int WSortFilterProxyModel::rowCount(const WModelIndex& parent) const {
    return parent.isValid() ? 0 : mState->order.size();
}

WModelIndex WSortFilterProxyModel::parent(const WModelIndex&) const {
    return {};
}

WModelIndex WSortFilterProxyModel::index(int row, int column, const WModelIndex& parent) const {
    return hasIndex(row, column, parent) ? createIndex(row, column, nullptr) : WModelIndex();
}

bool WSortFilterProxyModel::setHeaderData(int section, Orientation orientation, const boost::any& value,
                                          int role) {
    return WAbstractProxyModel::setHeaderData(section, orientation, value, role);
}

boost::any WSortFilterProxyModel::headerData(int section, Orientation orientation, int role) const {
    return WAbstractProxyModel::headerData(section, orientation, role);
}

WFlags<HeaderFlag> WSortFilterProxyModel::headerFlags(int section, Orientation orientation) const {
    return WAbstractProxyModel::headerFlags(section, orientation);
}

bool WSortFilterProxyModel::insertRows(int row, int count, const WModelIndex& parent) {
    if (parent.isValid() || !sourceModel() || row < 0 || row > rowCount()) return false;
    const int sourceRow = row < rowCount() ? mState->order.at(row) : sourceModel()->rowCount();
    return sourceModel()->insertRows(sourceRow, count);
}

bool WSortFilterProxyModel::removeRows(int row, int count, const WModelIndex& parent) {
    if (parent.isValid() || !sourceModel() || row < 0 || count <= 0 || count > rowCount() - row) return false;
    std::vector<int> sources;
    for (int r = row; r < row + count; ++r) sources.push_back(mState->order.at(r));
    std::sort(sources.rbegin(), sources.rend());
    bool all = true;
    for (int source : sources) all = sourceModel()->removeRow(source) && all;
    return all;
}

void* WSortFilterProxyModel::toRawIndex(const WModelIndex& index) const {
    const WModelIndex source = mapToSource(index);
    if (!source.isValid()) return nullptr;
    // A source row and a column: the rows of the source stay while the order here changes.
    const std::uint64_t raw = (static_cast<std::uint64_t>(source.row()) << 24) + source.column() + 1;
    return reinterpret_cast<void*>(static_cast<std::uintptr_t>(raw));
}

WModelIndex WSortFilterProxyModel::fromRawIndex(void* rawIndex) const {
    const std::uint64_t raw = reinterpret_cast<std::uintptr_t>(rawIndex) - 1;
    int sourceRow = static_cast<int>(raw >> 24);
    if (!mState->movedTo.empty())
        sourceRow = sourceRow < static_cast<int>(mState->movedTo.size()) ? mState->movedTo[sourceRow] : -1;
    const int row = mState->order.position(sourceRow);
    return row < 0 ? WModelIndex() : createIndex(row, static_cast<int>(raw & 0xffffff), nullptr);
}

// ---- what the subclass may decide

bool WSortFilterProxyModel::filterAcceptRow(int sourceRow, const WModelIndex& sourceParent) const {
    if (!mState->filter) return true;
    const boost::any value = sourceModel()->data(
        sourceModel()->index(sourceRow, mState->filterColumn, sourceParent), mState->filterRole);
    const auto match = mState->filter->matchesAll(asString(value).toUTF8());
    if (match == Impl::Pattern::Match::TooCostly) mState->tooCostly = true;
    return match == Impl::Pattern::Match::Yes;
}

bool WSortFilterProxyModel::lessThan(const WModelIndex& lhs, const WModelIndex& rhs) const {
    return Impl::valueLess(sourceModel()->data(lhs, mState->sortRole),
                           sourceModel()->data(rhs, mState->sortRole));
}

} // namespace Wt
