#include <Wt/WAbstractItemModel.h>

#include "models/ItemMatch.h"

namespace Wt {

struct WAbstractItemModel::SignalSet {
    Signal<WModelIndex, int, int> columnsAboutToBeInserted, columnsAboutToBeRemoved, columnsInserted,
        columnsRemoved;
    Signal<WModelIndex, int, int> rowsAboutToBeInserted, rowsAboutToBeRemoved, rowsInserted, rowsRemoved;
    Signal<WModelIndex, WModelIndex> dataChanged;
    Signal<Orientation, int, int> headerDataChanged;
    Signal<> layoutAboutToBeChanged, layoutChanged, modelReset;
};

WAbstractItemModel::WAbstractItemModel(WObject* parent) : WObject(parent) {}
WAbstractItemModel::~WAbstractItemModel() = default;

WAbstractItemModel::SignalSet& WAbstractItemModel::signalsOf() {
    if (!mSignals) mSignals = std::make_unique<SignalSet>();
    return *mSignals;
}

bool WAbstractItemModel::canFetchMore(const WModelIndex&) const {
    return false;
}
void WAbstractItemModel::fetchMore(const WModelIndex&) {}
WFlags<ItemFlag> WAbstractItemModel::flags(const WModelIndex&) const {
    return ItemIsSelectable;
}
WFlags<HeaderFlag> WAbstractItemModel::headerFlags(int, Orientation) const {
    return {};
}

bool WAbstractItemModel::hasChildren(const WModelIndex& index) const {
    return rowCount(index) > 0 && columnCount(index) > 0;
}

bool WAbstractItemModel::hasIndex(int row, int column, const WModelIndex& parent) const {
    return row >= 0 && column >= 0 && row < rowCount(parent) && column < columnCount(parent);
}

boost::any WAbstractItemModel::data(int row, int column, int role, const WModelIndex& parent) const {
    return data(index(row, column, parent), role);
}

WAbstractItemModel::DataMap WAbstractItemModel::itemData(const WModelIndex& index) const {
    DataMap all;
    if (!index.isValid()) return all;
    for (int role = DisplayRole; role <= UserRole; ++role) {
        boost::any value = data(index, role);
        if (!value.empty()) all[role] = value;
    }
    return all;
}

boost::any WAbstractItemModel::headerData(int, Orientation, int) const {
    return {};
}
bool WAbstractItemModel::insertColumns(int, int, const WModelIndex&) {
    return false;
}
bool WAbstractItemModel::insertRows(int, int, const WModelIndex&) {
    return false;
}
bool WAbstractItemModel::removeColumns(int, int, const WModelIndex&) {
    return false;
}
bool WAbstractItemModel::removeRows(int, int, const WModelIndex&) {
    return false;
}
bool WAbstractItemModel::setData(const WModelIndex&, const boost::any&, int) {
    return false;
}
bool WAbstractItemModel::setHeaderData(int, Orientation, const boost::any&, int) {
    return false;
}

bool WAbstractItemModel::setHeaderData(int section, const boost::any& value) {
    return setHeaderData(section, Horizontal, value);
}

bool WAbstractItemModel::setItemData(const WModelIndex& index, const DataMap& values) {
    bool all = true;
    for (const auto& [role, value] : values) all = setData(index, value, role) && all;
    return all;
}

bool WAbstractItemModel::insertColumn(int column, const WModelIndex& parent) {
    return insertColumns(column, 1, parent);
}
bool WAbstractItemModel::insertRow(int row, const WModelIndex& parent) {
    return insertRows(row, 1, parent);
}
bool WAbstractItemModel::removeColumn(int column, const WModelIndex& parent) {
    return removeColumns(column, 1, parent);
}
bool WAbstractItemModel::removeRow(int row, const WModelIndex& parent) {
    return removeRows(row, 1, parent);
}

bool WAbstractItemModel::setData(int row, int column, const boost::any& value, int role,
                                 const WModelIndex& parent) {
    const WModelIndex target = index(row, column, parent);
    return target.isValid() && setData(target, value, role);
}

void WAbstractItemModel::sort(int, SortOrder) {}

WModelIndexList WAbstractItemModel::match(const WModelIndex& start, int role, const boost::any& value,
                                          int hits, WFlags<MatchFlag> flags) const {
    WModelIndexList found;
    if (!start.isValid()) return found;
    const Impl::ItemMatch wanted(value, flags);
    const WModelIndex up = start.parent();
    const int rows = rowCount(up);
    const int steps = (flags & MatchWrap) ? rows : rows - start.row();
    for (int step = 0; step < steps && (hits < 0 || static_cast<int>(found.size()) < hits); ++step) {
        const WModelIndex candidate = index((start.row() + step) % rows, start.column(), up);
        if (wanted.matches(data(candidate, role))) found.push_back(candidate);
    }
    return found;
}

void* WAbstractItemModel::toRawIndex(const WModelIndex&) const {
    return nullptr;
}
WModelIndex WAbstractItemModel::fromRawIndex(void*) const {
    return {};
}

WModelIndex WAbstractItemModel::createIndex(int row, int column, void* ptr) const {
    return {row, column, this, reinterpret_cast<std::uintptr_t>(ptr)};
}
WModelIndex WAbstractItemModel::createIndex(int row, int column, std::uint64_t id) const {
    return {row, column, this, id};
}

Signal<WModelIndex, int, int>& WAbstractItemModel::columnsAboutToBeInserted() {
    return signalsOf().columnsAboutToBeInserted;
}
Signal<WModelIndex, int, int>& WAbstractItemModel::columnsAboutToBeRemoved() {
    return signalsOf().columnsAboutToBeRemoved;
}
Signal<WModelIndex, int, int>& WAbstractItemModel::columnsInserted() {
    return signalsOf().columnsInserted;
}
Signal<WModelIndex, int, int>& WAbstractItemModel::columnsRemoved() {
    return signalsOf().columnsRemoved;
}
Signal<WModelIndex, int, int>& WAbstractItemModel::rowsAboutToBeInserted() {
    return signalsOf().rowsAboutToBeInserted;
}
Signal<WModelIndex, int, int>& WAbstractItemModel::rowsAboutToBeRemoved() {
    return signalsOf().rowsAboutToBeRemoved;
}
Signal<WModelIndex, int, int>& WAbstractItemModel::rowsInserted() {
    return signalsOf().rowsInserted;
}
Signal<WModelIndex, int, int>& WAbstractItemModel::rowsRemoved() {
    return signalsOf().rowsRemoved;
}
Signal<WModelIndex, WModelIndex>& WAbstractItemModel::dataChanged() {
    return signalsOf().dataChanged;
}
Signal<Orientation, int, int>& WAbstractItemModel::headerDataChanged() {
    return signalsOf().headerDataChanged;
}
Signal<>& WAbstractItemModel::layoutAboutToBeChanged() {
    return signalsOf().layoutAboutToBeChanged;
}
Signal<>& WAbstractItemModel::layoutChanged() {
    return signalsOf().layoutChanged;
}
Signal<>& WAbstractItemModel::modelReset() {
    return signalsOf().modelReset;
}

void WAbstractItemModel::beginInsertColumns(const WModelIndex& parent, int first, int last) {
    mChange = {parent, first, last};
    columnsAboutToBeInserted().emit(parent, first, last);
}
void WAbstractItemModel::beginInsertRows(const WModelIndex& parent, int first, int last) {
    mChange = {parent, first, last};
    rowsAboutToBeInserted().emit(parent, first, last);
}
void WAbstractItemModel::beginRemoveColumns(const WModelIndex& parent, int first, int last) {
    mChange = {parent, first, last};
    columnsAboutToBeRemoved().emit(parent, first, last);
}
void WAbstractItemModel::beginRemoveRows(const WModelIndex& parent, int first, int last) {
    mChange = {parent, first, last};
    rowsAboutToBeRemoved().emit(parent, first, last);
}
void WAbstractItemModel::endInsertColumns() {
    columnsInserted().emit(mChange.parent, mChange.first, mChange.last);
}
void WAbstractItemModel::endInsertRows() {
    rowsInserted().emit(mChange.parent, mChange.first, mChange.last);
}
void WAbstractItemModel::endRemoveColumns() {
    columnsRemoved().emit(mChange.parent, mChange.first, mChange.last);
}
void WAbstractItemModel::endRemoveRows() {
    rowsRemoved().emit(mChange.parent, mChange.first, mChange.last);
}
void WAbstractItemModel::reset() {
    modelReset().emit();
}

} // namespace Wt
