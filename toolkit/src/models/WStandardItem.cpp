#include <Wt/WStandardItemModel.h>

#include "models/Any.h"
#include "models/ItemTable.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace Wt {

using Impl::ItemCell;

namespace {

void deleteItems(std::vector<ItemCell>& cells) {
    for (const ItemCell& cell : cells) delete cell.item();
    cells.clear();
}

} // namespace

WStandardItem::WStandardItem() = default;
WStandardItem::WStandardItem(const WString& text) {
    setText(text);
}
WStandardItem::WStandardItem(const std::string& iconUri, const WString& text) {
    setText(text);
    setIcon(iconUri);
}
WStandardItem::WStandardItem(int rows, int columns) {
    setColumnCount(columns);
    setRowCount(rows);
}

WStandardItem::~WStandardItem() {
    if (mRare)
        for (Rare::Row& row : mRare->rows) deleteItems(row);
}

WStandardItem::Rare& WStandardItem::rare() {
    if (!mRare) mRare = std::make_unique<Rare>();
    return *mRare;
}

// ---- data

void WStandardItem::setText(const WString& text) {
    setData(boost::any(text), DisplayRole);
}
WString WStandardItem::text() const {
    return asString(data(DisplayRole));
}
void WStandardItem::setIcon(const std::string& uri) {
    setData(boost::any(uri), DecorationRole);
}
std::string WStandardItem::icon() const {
    return asString(data(DecorationRole)).toUTF8();
}
void WStandardItem::setStyleClass(const WString& style) {
    setData(boost::any(style), StyleClassRole);
}
WString WStandardItem::styleClass() const {
    return asString(data(StyleClassRole));
}
void WStandardItem::setToolTip(const WString& toolTip) {
    setData(boost::any(toolTip), ToolTipRole);
}
WString WStandardItem::toolTip() const {
    return asString(data(ToolTipRole));
}
void WStandardItem::setLink(const WLink& link) {
    setData(boost::any(link), LinkRole);
}

WLink WStandardItem::link() const {
    const boost::any value = data(LinkRole);
    const WLink* held = boost::any_cast<WLink>(&value);
    return held ? *held : WLink();
}

void WStandardItem::setChecked(bool checked) {
    setData(boost::any(checked), CheckStateRole);
}

bool WStandardItem::isChecked() const {
    const boost::any value = data(CheckStateRole);
    const bool* held = boost::any_cast<bool>(&value);
    return held && *held;
}

void WStandardItem::setCheckable(bool checkable) {
    if (isCheckable() == checkable) return;
    if (checkable && data(CheckStateRole).empty()) setChecked(false);
    setFlags(checkable ? mFlags | ItemIsUserCheckable : mFlags & ~static_cast<int>(ItemIsUserCheckable));
}

bool WStandardItem::isCheckable() const {
    return mFlags.testFlag(ItemIsUserCheckable);
}

void WStandardItem::setFlags(WFlags<ItemFlag> flags) {
    if (mFlags.value() == flags.value()) return;
    mFlags = flags;
    if (WStandardItemModel* owner = model()) owner->tellChanged(this, index());
}

WFlags<ItemFlag> WStandardItem::flags() const {
    return mFlags;
}

void WStandardItem::setData(const boost::any& data, int role) {
    boost::any& value = role == DisplayRole || role == EditRole ? mValue : rare().data[role];
    if (Impl::sameValue(value, data)) return;
    value = data;
    if (WStandardItemModel* owner = model()) owner->tellChanged(this, index());
}

boost::any WStandardItem::data(int role) const {
    if (role == DisplayRole || role == EditRole) return mValue;
    if (!mRare) return {};
    const auto found = mRare->data.find(role);
    return found == mRare->data.end() ? boost::any() : found->second;
}

// ---- the tree

WStandardItemModel* WStandardItem::model() const {
    const WStandardItem* top = this;
    while (top->mParent) top = top->mParent;
    return top->mRare ? top->mRare->model : nullptr;
}

WStandardItem* WStandardItem::parent() const {
    WStandardItemModel* owner = model();
    return owner && mParent == owner->invisibleRootItem() ? nullptr : mParent;
}

int WStandardItem::row() const {
    if (!mParent) return -1;
    const std::vector<Rare::Row>& rows = mParent->mRare->rows;
    const auto holds = [this](const Rare::Row& row) {
        return std::any_of(row.begin(), row.end(),
                           [this](const ItemCell& cell) { return cell.item() == this; });
    };
    if (mRow < 0 || mRow >= static_cast<int>(rows.size()) || !holds(rows[mRow]))
        mRow = static_cast<int>(std::find_if(rows.begin(), rows.end(), holds) - rows.begin());
    return mRow;
}

int WStandardItem::column() const {
    if (!mParent) return -1;
    const Rare::Row& siblings = mParent->mRare->rows[row()];
    const auto self = [this](const ItemCell& cell) { return cell.item() == this; };
    return static_cast<int>(std::find_if(siblings.begin(), siblings.end(), self) - siblings.begin());
}

WModelIndex WStandardItem::index() const {
    const WStandardItemModel* owner = model();
    return owner ? owner->indexFromItem(this) : WModelIndex();
}

bool WStandardItem::hasChildren() const {
    return rowCount() > 0 && columnCount() > 0;
}
int WStandardItem::rowCount() const {
    return mRare ? static_cast<int>(mRare->rows.size()) : 0;
}
int WStandardItem::columnCount() const {
    return mRare ? mRare->columns : 0;
}

ItemCell* WStandardItem::cell(int row, int column) const {
    if (row < 0 || column < 0 || row >= rowCount() || column >= columnCount()) return nullptr;
    return &mRare->rows[row][column];
}

WStandardItem* WStandardItem::itemAt(int row, int column) {
    ItemCell* at = cell(row, column);
    if (!at) return nullptr;
    if (!at->item()) {
        const WStandardItemModel* owner = model();
        WStandardItem* made =
            owner && owner->itemPrototype() ? owner->itemPrototype()->clone() : new WStandardItem;
        if (!at->empty()) made->mValue = at->value();
        put(*at, made, row);
    }
    return at->item();
}

void WStandardItem::put(ItemCell& cell, WStandardItem* item, int row) {
    cell.setItem(item);
    if (!item) return;
    item->mParent = this;
    item->mRow = row;
}

WStandardItem* WStandardItem::child(int row, int column) const {
    const ItemCell* at = cell(row, column);
    if (!at || at->empty()) return nullptr;
    return const_cast<WStandardItem*>(this)->itemAt(row, column);
}

void WStandardItem::setChild(int row, WStandardItem* item) {
    setChild(row, 0, item);
}

void WStandardItem::setChild(int row, int column, WStandardItem* item) {
    if (column >= columnCount()) setColumnCount(column + 1);
    if (row >= rowCount()) setRowCount(row + 1);
    ItemCell* at = cell(row, column);
    if (!at || (item && at->item() == item)) return;
    delete at->item();
    put(*at, item, row);
    changed(row, column);
}

WStandardItem* WStandardItem::takeChild(int row, int column) {
    WStandardItem* taken = child(row, column);
    if (!taken) return nullptr;
    cell(row, column)->clear();
    taken->mParent = nullptr;
    taken->mRow = -1;
    changed(row, column);
    return taken;
}

void WStandardItem::changed(int row, int column) {
    WStandardItemModel* owner = model();
    if (owner) owner->tellChanged(cell(row, column)->item(), owner->index(row, column, index()));
}

std::vector<WStandardItem*> WStandardItem::takeRow(int row) {
    std::vector<WStandardItem*> taken;
    for (int column = 0; column < columnCount(); ++column) taken.push_back(takeChild(row, column));
    removeRow(row);
    return taken;
}

std::vector<WStandardItem*> WStandardItem::takeColumn(int column) {
    std::vector<WStandardItem*> taken;
    for (int row = 0; row < rowCount(); ++row) taken.push_back(takeChild(row, column));
    removeColumn(column);
    return taken;
}

// ---- shape

void WStandardItem::setRowCount(int rows) {
    const int now = rowCount();
    if (rows > now) insertRows(now, rows - now);
    if (rows < now) removeRows(rows, now - rows);
}

void WStandardItem::setColumnCount(int columns) {
    const int now = columnCount();
    if (columns > now) insertColumns(now, columns - now);
    if (columns < now) removeColumns(columns, now - columns);
}

void WStandardItem::insertRows(int row, int count) {
    if (count <= 0 || row < 0 || row > rowCount()) return;
    WStandardItemModel* owner = model();
    if (owner) owner->beginInsertRows(index(), row, row + count - 1);
    Rare& table = rare();
    if (table.columns == 0) table.columns = 1;
    std::vector<Rare::Row> more(count);
    for (Rare::Row& made : more) made.resize(table.columns);
    table.rows.insert(table.rows.begin() + row, std::make_move_iterator(more.begin()),
                      std::make_move_iterator(more.end()));
    if (owner) owner->endInsertRows();
}

void WStandardItem::removeRows(int row, int count) {
    if (count <= 0 || row < 0 || count > rowCount() - row) return;
    WStandardItemModel* owner = model();
    if (owner) owner->beginRemoveRows(index(), row, row + count - 1);
    std::vector<Rare::Row>& rows = rare().rows;
    for (int r = row; r < row + count; ++r) deleteItems(rows[r]);
    rows.erase(rows.begin() + row, rows.begin() + row + count);
    if (owner) owner->endRemoveRows();
}

void WStandardItem::insertColumns(int column, int count) {
    if (count <= 0 || column < 0 || column > columnCount()) return;
    WStandardItemModel* owner = model();
    if (owner) owner->beginInsertColumns(index(), column, column + count - 1);
    Rare& table = rare();
    for (Rare::Row& row : table.rows) {
        Rare::Row wider(table.columns + count);
        std::swap_ranges(row.begin(), row.begin() + column, wider.begin());
        std::swap_ranges(row.begin() + column, row.end(), wider.begin() + column + count);
        row.swap(wider);
    }
    table.columns += count;
    if (owner) owner->endInsertColumns();
}

void WStandardItem::removeColumns(int column, int count) {
    if (count <= 0 || column < 0 || count > columnCount() - column) return;
    WStandardItemModel* owner = model();
    if (owner) owner->beginRemoveColumns(index(), column, column + count - 1);
    Rare& table = rare();
    for (Rare::Row& row : table.rows) {
        for (int c = column; c < column + count; ++c) delete row[c].item();
        row.erase(row.begin() + column, row.begin() + column + count);
    }
    table.columns -= count;
    if (owner) owner->endRemoveColumns();
}

void WStandardItem::removeRow(int row) {
    removeRows(row, 1);
}
void WStandardItem::removeColumn(int column) {
    removeColumns(column, 1);
}

void WStandardItem::insertRow(int row, const std::vector<WStandardItem*>& items) {
    const int columns = static_cast<int>(items.size());
    if (columns > columnCount()) setColumnCount(columns);
    const int before = rowCount();
    insertRows(row, 1);
    if (rowCount() == before) return;
    for (int column = 0; column < columns; ++column)
        if (items[column]) setChild(row, column, items[column]);
}

void WStandardItem::insertColumn(int column, const std::vector<WStandardItem*>& items) {
    const int rows = static_cast<int>(items.size());
    insertColumns(column, 1);
    if (rows > rowCount()) setRowCount(rows);
    for (int row = 0; row < rows; ++row)
        if (items[row]) setChild(row, column, items[row]);
}

void WStandardItem::insertRows(int row, const std::vector<WStandardItem*>& items) {
    insertRows(row, static_cast<int>(items.size()));
    for (std::size_t i = 0; i < items.size(); ++i) setChild(row + static_cast<int>(i), 0, items[i]);
}

void WStandardItem::appendRow(const std::vector<WStandardItem*>& items) {
    insertRow(rowCount(), items);
}
void WStandardItem::appendColumn(const std::vector<WStandardItem*>& items) {
    insertColumn(columnCount(), items);
}
void WStandardItem::insertRow(int row, WStandardItem* item) {
    insertRow(row, std::vector{item});
}
void WStandardItem::appendRow(WStandardItem* item) {
    insertRow(rowCount(), std::vector{item});
}
void WStandardItem::appendRows(const std::vector<WStandardItem*>& items) {
    insertRows(rowCount(), items);
}

WStandardItem* WStandardItem::clone() const {
    auto copy = std::make_unique<WStandardItem>();
    copy->mFlags = mFlags;
    copy->mValue = mValue;
    if (mRare && !mRare->data.empty()) copy->rare().data = mRare->data;
    return copy.release();
}

bool WStandardItem::operator<(const WStandardItem& other) const {
    const WStandardItemModel* owner = model();
    const int role = owner ? owner->sortRole() : static_cast<int>(DisplayRole);
    return Impl::valueLess(data(role), other.data(role));
}

} // namespace Wt
