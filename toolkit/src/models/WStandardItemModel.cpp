#include <Wt/WStandardItemModel.h>

#include "models/ItemTable.h"

namespace Wt {

WStandardItemModel::WStandardItemModel(WObject* parent)
    : WAbstractItemModel(parent), mRoot(std::make_unique<WStandardItem>()) {
    mRoot->rare().model = this;
}

WStandardItemModel::WStandardItemModel(int rows, int columns, WObject* parent) : WStandardItemModel(parent) {
    mRoot->insertColumns(0, columns);
    mRoot->insertRows(0, rows);
    mColumnHeaders.resize(columns);
}

WStandardItemModel::~WStandardItemModel() = default;

void WStandardItemModel::clear() {
    mRoot = std::make_unique<WStandardItem>();
    mRoot->rare().model = this;
    mColumnHeaders.clear();
    mRowHeaders.clear();
    reset();
}

WStandardItem* WStandardItemModel::tableOf(const WModelIndex& parent) const {
    if (!parent.isValid()) return mRoot.get();
    if (parent.model() != this || parent.isRawIndex()) return nullptr;
    const auto* table = static_cast<WStandardItem*>(parent.internalPointer());
    const Impl::ItemCell* cell = table->cell(parent.row(), parent.column());
    return cell ? cell->item() : nullptr;
}

WStandardItem* WStandardItemModel::itemFromIndex(const WModelIndex& index) const {
    if (!index.isValid()) return mRoot.get();
    if (index.model() != this || index.isRawIndex()) return nullptr;
    return static_cast<WStandardItem*>(index.internalPointer())->itemAt(index.row(), index.column());
}

WModelIndex WStandardItemModel::indexFromItem(const WStandardItem* item) const {
    if (!item || item == mRoot.get() || !item->mParent) return {};
    return createIndex(item->row(), item->column(), item->mParent);
}

void WStandardItemModel::appendColumn(const std::vector<WStandardItem*>& items) {
    mRoot->appendColumn(items);
}
void WStandardItemModel::insertColumn(int column, const std::vector<WStandardItem*>& items) {
    mRoot->insertColumn(column, items);
}
void WStandardItemModel::appendRow(const std::vector<WStandardItem*>& items) {
    mRoot->appendRow(items);
}
void WStandardItemModel::insertRow(int row, const std::vector<WStandardItem*>& items) {
    mRoot->insertRow(row, items);
}
void WStandardItemModel::appendRow(WStandardItem* item) {
    mRoot->appendRow(item);
}
void WStandardItemModel::insertRow(int row, WStandardItem* item) {
    mRoot->insertRow(row, item);
}
WStandardItem* WStandardItemModel::item(int row, int column) const {
    return mRoot->child(row, column);
}
void WStandardItemModel::setItem(int row, int column, WStandardItem* item) {
    mRoot->setChild(row, column, item);
}
WStandardItem* WStandardItemModel::itemPrototype() const {
    return mPrototype.get();
}
void WStandardItemModel::setItemPrototype(WStandardItem* item) {
    mPrototype.reset(item);
}
std::vector<WStandardItem*> WStandardItemModel::takeColumn(int column) {
    return mRoot->takeColumn(column);
}
std::vector<WStandardItem*> WStandardItemModel::takeRow(int row) {
    return mRoot->takeRow(row);
}
WStandardItem* WStandardItemModel::takeItem(int row, int column) {
    return mRoot->takeChild(row, column);
}
void WStandardItemModel::setSortRole(int role) {
    mSortRole = role;
}

// ---- shape

int WStandardItemModel::columnCount(const WModelIndex& parent) const {
    const WStandardItem* table = tableOf(parent);
    return table ? table->columnCount() : 0;
}

int WStandardItemModel::rowCount(const WModelIndex& parent) const {
    const WStandardItem* table = tableOf(parent);
    return table ? table->rowCount() : 0;
}

WModelIndex WStandardItemModel::index(int row, int column, const WModelIndex& parent) const {
    WStandardItem* table = tableOf(parent);
    return table && table->cell(row, column) ? createIndex(row, column, table) : WModelIndex();
}

WModelIndex WStandardItemModel::parent(const WModelIndex& index) const {
    return index.isValid() ? indexFromItem(static_cast<WStandardItem*>(index.internalPointer()))
                           : WModelIndex();
}

namespace {

/// Whether `change` altered the count that `count` gives.
template <typename Count, typename Change>
bool alters(Count count, Change change) {
    const int before = count();
    change();
    return count() != before;
}

} // namespace

bool WStandardItemModel::insertColumns(int column, int count, const WModelIndex& parent) {
    WStandardItem* table = itemFromIndex(parent);
    return table &&
           alters([&] { return table->columnCount(); }, [&] { table->insertColumns(column, count); });
}

bool WStandardItemModel::insertRows(int row, int count, const WModelIndex& parent) {
    WStandardItem* table = itemFromIndex(parent);
    return table && alters([&] { return table->rowCount(); }, [&] { table->insertRows(row, count); });
}

bool WStandardItemModel::removeColumns(int column, int count, const WModelIndex& parent) {
    WStandardItem* table = tableOf(parent);
    return table &&
           alters([&] { return table->columnCount(); }, [&] { table->removeColumns(column, count); });
}

bool WStandardItemModel::removeRows(int row, int count, const WModelIndex& parent) {
    WStandardItem* table = tableOf(parent);
    return table && alters([&] { return table->rowCount(); }, [&] { table->removeRows(row, count); });
}

void WStandardItemModel::sort(int column, SortOrder order) {
    mRoot->sortChildren(column, order);
}

void* WStandardItemModel::toRawIndex(const WModelIndex& index) const {
    return index.isValid() ? itemFromIndex(index) : nullptr;
}

WModelIndex WStandardItemModel::fromRawIndex(void* rawIndex) const {
    return indexFromItem(static_cast<WStandardItem*>(rawIndex));
}

// ---- data

WFlags<ItemFlag> WStandardItemModel::flags(const WModelIndex& index) const {
    const WStandardItem* item = index.isValid() ? tableOf(index) : nullptr;
    return item ? item->flags() : WFlags<ItemFlag>(ItemIsSelectable);
}

boost::any WStandardItemModel::data(const WModelIndex& index, int role) const {
    if (!index.isValid() || index.model() != this || index.isRawIndex()) return {};
    const Impl::ItemCell* cell =
        static_cast<WStandardItem*>(index.internalPointer())->cell(index.row(), index.column());
    if (!cell) return {};
    if (const WStandardItem* item = cell->item()) return item->data(role);
    return role == DisplayRole || role == EditRole ? cell->value() : boost::any();
}

bool WStandardItemModel::setData(const WModelIndex& index, const boost::any& value, int role) {
    if (!index.isValid() || index.model() != this || index.isRawIndex()) return false;
    auto* table = static_cast<WStandardItem*>(index.internalPointer());
    Impl::ItemCell* cell = table->cell(index.row(), index.column());
    if (!cell) return false;
    const bool shown = role == DisplayRole || role == EditRole;
    if (cell->item() || !shown || mPrototype) {
        table->itemAt(index.row(), index.column())->setData(value, role);
    } else if (!cell->holds(value)) {
        cell->setValue(value);
        tellChanged(nullptr, index);
    }
    return true;
}

void WStandardItemModel::tellChanged(WStandardItem* item, const WModelIndex& index) {
    dataChanged().emit(index, index);
    if (!mItemChanged.isConnected()) return;
    if (!item) item = itemFromIndex(index);
    mItemChanged.emit(item);
}

// ---- headers

std::vector<WStandardItemModel::Header>& WStandardItemModel::headers(Orientation orientation) {
    return orientation == Horizontal ? mColumnHeaders : mRowHeaders;
}

const std::vector<WStandardItemModel::Header>& WStandardItemModel::headers(Orientation orientation) const {
    return orientation == Horizontal ? mColumnHeaders : mRowHeaders;
}

boost::any WStandardItemModel::headerData(int section, Orientation orientation, int role) const {
    const auto& all = headers(orientation);
    if (section < 0 || section >= static_cast<int>(all.size())) return {};
    const HeaderData& data = all[section].data;
    const auto found = data.find(role == EditRole ? static_cast<int>(DisplayRole) : role);
    return found == data.end() ? boost::any() : found->second;
}

bool WStandardItemModel::setHeaderData(int section, Orientation orientation, const boost::any& value,
                                       int role) {
    const int sections = orientation == Horizontal ? columnCount() : rowCount();
    if (section < 0 || section >= sections) return false;
    auto& all = headers(orientation);
    if (section >= static_cast<int>(all.size())) all.resize(section + 1);
    all[section].data[role == EditRole ? static_cast<int>(DisplayRole) : role] = value;
    headerDataChanged().emit(orientation, section, section);
    return true;
}

void WStandardItemModel::setHeaderFlags(int section, Orientation orientation, WFlags<HeaderFlag> flags) {
    if (section < 0) return;
    auto& all = headers(orientation);
    if (section >= static_cast<int>(all.size())) all.resize(section + 1);
    all[section].flags = flags;
}

WFlags<HeaderFlag> WStandardItemModel::headerFlags(int section, Orientation orientation) const {
    const auto& all = headers(orientation);
    return section >= 0 && section < static_cast<int>(all.size()) ? all[section].flags : WFlags<HeaderFlag>();
}

} // namespace Wt
