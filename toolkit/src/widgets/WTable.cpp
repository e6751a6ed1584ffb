// WTable with its cells, rows and columns.
#include <Wt/WTable.h>

#include "web/ElementSpec.h"

#include <Wt/WTableCell.h>
#include <Wt/WTableColumn.h>
#include <Wt/WTableRow.h>

#include <utility>

namespace Wt {

namespace {
std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}
} // namespace

WTable::WTable(WContainerWidget* parent) : WInteractWidget(parent) {
    setInline(false);
}

WTable::~WTable() {
    WTable::clear();
    leaveParent();
}

void WTable::clear() {
    while (!mRows.empty()) deleteRow(rowCount() - 1);
    for (WTableColumn* column : std::exchange(mColumns, {})) delete column;
}

void WTable::expand(int rows, int columns) {
    while (columnCount() < columns) insertColumn(columnCount());
    while (rowCount() < rows) insertRow(rowCount());
}

WTableCell* WTable::elementAt(int row, int column) {
    expand(row + 1, column + 1);
    return mRows[at(row)]->mCells[at(column)];
}

WTableRow* WTable::rowAt(int row) {
    expand(row + 1, 0);
    return mRows[at(row)];
}

WTableColumn* WTable::columnAt(int column) {
    expand(0, column + 1);
    return mColumns[at(column)];
}

WTableRow* WTable::insertRow(int row) {
    auto* made = new WTableRow(this, row);
    for (int column = 0; column < columnCount(); ++column)
        made->mCells.push_back(new WTableCell(made, column));
    mRows.insert(mRows.begin() + row, made);
    made->setNodeParent(this);
    renumber();
    return made;
}

WTableColumn* WTable::insertColumn(int column) {
    auto* made = new WTableColumn(this, column);
    mColumns.insert(mColumns.begin() + column, made);
    for (WTableRow* row : mRows)
        row->mCells.insert(row->mCells.begin() + column, new WTableCell(row, column));
    renumber();
    return made;
}

void WTable::deleteRow(int row) {
    if (row < 0 || row >= rowCount()) return;
    WTableRow* gone = mRows[at(row)];
    mRows.erase(mRows.begin() + row);
    delete gone;
    renumber();
}

void WTable::deleteColumn(int column) {
    if (column < 0 || column >= columnCount()) return;
    for (WTableRow* row : mRows) {
        WTableCell* gone = row->mCells[at(column)];
        row->mCells.erase(row->mCells.begin() + column);
        delete gone;
    }
    delete mColumns[at(column)];
    mColumns.erase(mColumns.begin() + column);
    renumber();
}

void WTable::moveRow(int from, int to) {
    if (from < 0 || from >= rowCount() || to < 0) return;
    if (to >= rowCount()) expand(to + 1, 0);
    WTableRow* row = mRows[at(from)];
    mRows.erase(mRows.begin() + from);
    mRows.insert(mRows.begin() + to, row);
    renumber();
}

void WTable::renumber() {
    for (int row = 0; row < rowCount(); ++row) {
        mRows[at(row)]->mRow = row;
        for (int column = 0; column < columnCount(); ++column)
            mRows[at(row)]->mCells[at(column)]->mColumn = column;
        mRows[at(row)]->nodeChildrenChanged();
    }
    for (int column = 0; column < columnCount(); ++column) mColumns[at(column)]->mColumn = column;
    nodeChildrenChanged();
}

void WTable::setHeaderCount(int count, Orientation orientation) {
    (orientation == Horizontal ? mHeaderRows : mHeaderColumns) = count;
    nodeChanged();
    cellsChanged();
}

int WTable::headerCount(Orientation orientation) const {
    return orientation == Horizontal ? mHeaderRows : mHeaderColumns;
}

bool WTable::isHeader(const WTableCell& cell) const {
    return cell.row() < mHeaderRows || cell.column() < mHeaderColumns;
}

// A cell of an earlier row may reach into this one.
bool WTable::isCovered(int row, int column) const {
    if (!mSpans) return false;
    for (int r = 0; r <= row; ++r)
        for (int c = 0; c <= column; ++c) {
            const WTableCell& cell = *mRows[at(r)]->mCells[at(c)];
            if ((r != row || c != column) && r + cell.rowSpan() > row && c + cell.columnSpan() > column)
                return true;
        }
    return false;
}

void WTable::cellsChanged() {
    for (WTableRow* row : mRows) {
        row->nodeChanged();
        row->nodeChildrenChanged();
        for (WTableCell* cell : row->mCells) cell->nodeChanged();
    }
}

void WTable::refresh() {
    for (WTableRow* row : mRows)
        for (WTableCell* cell : row->mCells) cell->refresh();
    WInteractWidget::refresh();
}

WWidget* WTable::find(const std::string& name) {
    if (objectName() == name) return this;
    for (WTableRow* row : mRows)
        for (WTableCell* cell : row->mCells)
            if (WWidget* found = cell->find(name)) return found;
    return nullptr;
}

void WTable::childNodes(std::vector<Impl::RenderNode*>& children) {
    children.insert(children.end(), mRows.begin(), mRows.end());
}

// Most tables lay out a page; only one with headings is a table to a screen reader.
void WTable::describe(Impl::ElementSpec& spec) {
    WInteractWidget::describe(spec);
    spec.styleClass("Wt-table");
    if (mHeaderRows == 0 && mHeaderColumns == 0 && !spec.hasAttribute("role"))
        spec.attribute("role", "presentation");
}

void WTable::propagateSetEnabled(bool enabled) {
    for (WTableRow* row : mRows)
        for (WTableCell* cell : row->mCells)
            if (!cell->isDisabled()) static_cast<WWidget*>(cell)->propagateSetEnabled(enabled);
    WInteractWidget::propagateSetEnabled(enabled);
}

void WTable::propagateSetVisible(bool visible) {
    for (WTableRow* row : mRows)
        for (WTableCell* cell : row->mCells)
            if (!cell->isHidden()) static_cast<WWidget*>(cell)->propagateSetVisible(visible);
    WInteractWidget::propagateSetVisible(visible);
}

struct WTableRow::Look {
    WLength height;
    std::string styleClass, givenId;
};

WTableRow::Look& WTableRow::look() {
    if (!mLook) mLook = std::make_unique<Look>();
    return *mLook;
}

const WTableRow::Look& WTableRow::seenLook() const {
    static const Look kPlain;
    return mLook ? *mLook : kPlain;
}

WTableRow::WTableRow(WTable* table, int row) : mTable(table), mRow(row) {
    setOwner(*this, table);
}

WTableRow::~WTableRow() {
    for (WTableCell* cell : std::exchange(mCells, {})) delete cell;
}

WTableCell* WTableRow::elementAt(int column) {
    return mTable->elementAt(mRow, column);
}

void WTableRow::setHeight(const WLength& height) {
    look().height = height;
    nodeChanged();
}

WLength WTableRow::height() const {
    return seenLook().height;
}

void WTableRow::setStyleClass(const WString& styleClass) {
    look().styleClass = styleClass.toUTF8();
    nodeChanged();
}

const std::string& WTableRow::styleClass() const {
    return seenLook().styleClass;
}

void WTableRow::setHidden(bool hidden) {
    if (mHidden == hidden) return;
    mHidden = hidden;
    nodeChanged();
}

void WTableRow::setId(const std::string& id) {
    look().givenId = id;
    nodeChanged();
}

const std::string WTableRow::id() const {
    const std::string& given = seenLook().givenId;
    return given.empty() ? "o" + std::to_string(nodeId()) : given;
}

void WTableRow::describe(Impl::ElementSpec& spec) {
    spec.tag("tr");
    const Look& look = seenLook();
    spec.styleClass(look.styleClass);
    if (!look.givenId.empty()) spec.attribute("id", look.givenId);
    if (!look.height.isAuto()) spec.style("height", look.height.cssText());
    if (mHidden) spec.propertyJson("wtHidden", "[true]");
}

void WTableRow::childNodes(std::vector<Impl::RenderNode*>& children) {
    for (WTableCell* cell : mCells)
        if (!mTable->isCovered(mRow, cell->column())) children.push_back(cell);
}

WTableColumn::WTableColumn(WTable* table, int column) : mTable(table), mColumn(column) {}
WTableColumn::~WTableColumn() = default;

WTableCell* WTableColumn::elementAt(int row) {
    return mTable->elementAt(row, mColumn);
}

void WTableColumn::setWidth(const WLength& width) {
    mWidth = width;
    mTable->cellsChanged();
}

void WTableColumn::setStyleClass(const WString& styleClass) {
    mStyleClass = styleClass.toUTF8();
    mTable->cellsChanged();
}

WTableCell::WTableCell(WTableRow* row, int column) : mRow(row), mColumn(column) {
    setOwner(*this, row->table());
    setNodeParent(row);
}

WTableCell::~WTableCell() {
    setOwner(*this, nullptr);
}

void WTableCell::setColumnSpan(int colSpan) {
    mColumnSpan = static_cast<unsigned short>(colSpan < 1 ? 1 : colSpan);
    table()->mSpans = true;
    table()->cellsChanged();
}

void WTableCell::setRowSpan(int rowSpan) {
    mRowSpan = static_cast<unsigned short>(rowSpan < 1 ? 1 : rowSpan);
    table()->mSpans = true;
    table()->cellsChanged();
}

int WTableCell::row() const {
    return mRow->rowNum();
}
WTable* WTableCell::table() const {
    return mRow->table();
}
WTableColumn* WTableCell::tableColumn() const {
    return table()->columnAt(mColumn);
}

const char* WTableCell::tag() const {
    return table()->isHeader(*this) ? "th" : "td";
}

void WTableCell::describe(Impl::ElementSpec& spec) {
    WContainerWidget::describe(spec);
    const WTableColumn& column = *tableColumn();
    if (width().isAuto() && !column.width().isAuto()) spec.style("width", column.width().cssText());
    spec.styleClass(column.styleClass());
    if (mColumnSpan > 1) spec.attribute("colspan", std::to_string(mColumnSpan));
    if (mRowSpan > 1) spec.attribute("rowspan", std::to_string(mRowSpan));
    const int alignment = contentAlignment();
    if (alignment & AlignTop) spec.style("vertical-align", "top");
    if (alignment & AlignMiddle) spec.style("vertical-align", "middle");
    if (alignment & AlignBottom) spec.style("vertical-align", "bottom");
}

} // namespace Wt
