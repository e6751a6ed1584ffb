#include "frame/RecordTable.h"

#include "db/Db.h"
#include "frame/EmptyText.h"
#include "frame/MirlUtil.h"
#include "frame/WNumericSortFilterProxyModel.h"

#include <Wt/WStandardItemModel>

#include <algorithm>
#include <string_view>

namespace {

constexpr std::string_view kEidHeader = "[RSnnn]EID";

} // namespace

RecordTable::RecordTable(int columns, Wt::WContainerWidget* parent)
    : WAutoSizeTableView(columns, parent), mProxy(new WNumericSortFilterProxyModel(this)),
      mModel(new Wt::WStandardItemModel(0, columns, mProxy)) {
    mProxy->setSourceModel(mModel);
    mProxy->setDynamicSortFilter(true);
    mProxy->setFilterRole(Wt::EditRole); // of the key column, once there is a pattern
    setModel(mProxy);
    setSelectionMode(Wt::SingleSelection);
    setSortingEnabled(true);
    setColumnResizeEnabled(true);
    setAlternatingRowColors(false);
}

void RecordTable::setColumn(int column, const char* header, bool hidden, int width) {
    setHeader(column, hidden ? Wt::WString::fromUTF8(header) : tr(header));
    if (hidden) setColumnHidden(column, true);
    if (std::string_view(header) == kEidHeader) mNameColumn = column;
    if (width > 0) fixColumn(column, width);
}

void RecordTable::setHeader(int column, const Wt::WString& text) {
    mModel->setHeaderData(column, Wt::Horizontal, boost::any(text));
}

void RecordTable::setEmptyText(const Wt::WString& text) {
    emptyText(*this, text);
}

void RecordTable::clearData() {
    mModel->removeRows(0, mModel->rowCount());
}

ZeqClient_s* RecordTable::databaseClient() {
    ZeqClient_s* client = nullptr;
    return Db::db.getZeqClient(client) == 0 ? client : nullptr;
}

bool RecordTable::answered(const json_t* answer) {
    const json_t* refusal = ZeqRspUtil_getObjectParam(answer, "errors");
    if (!refusal) return true;
    std::vector<std::string> errors;
    Db::db.interpZeqErrors(refusal, errors, true); // an empty list is nothing to report
    Db::db.logZeqErrors(errors);
    return false;
}

int RecordTable::insertRows(int count) {
    const int row = mModel->rowCount();
    mModel->insertRows(row, count);
    return row;
}

void RecordTable::setCell(int row, int column, boost::any&& value, const char* mark) {
    mModel->setData(row, column, value);
    if (mark) mModel->setData(row, column, boost::any(Wt::WString(mark)), Wt::StyleClassRole);
}

unsigned RecordTable::zeqIndexAt(const Wt::WModelIndex& row) const {
    unsigned zeqIndex = 0;
    MirlUtil_modelIndexToZeqIndex(row, mModel, mProxy, zeqIndex);
    return zeqIndex;
}

Wt::WModelIndex RecordTable::rowOf(unsigned zeqIndex) const {
    for (int row = 0; zeqIndex != 0 && row < mProxy->rowCount(); ++row) {
        const Wt::WModelIndex index = mProxy->index(row, 0);
        if (zeqIndexAt(index) == zeqIndex) return index;
    }
    return {};
}

std::string RecordTable::textAt(const Wt::WModelIndex& row, int column) const {
    const Wt::WModelIndex source = mProxy->mapToSource(row);
    if (!source.isValid()) return "";
    const boost::any cell = mModel->data(source.row(), column, Wt::EditRole);
    const std::string* text = boost::any_cast<std::string>(&cell);
    return text ? *text : "";
}

std::string RecordTable::nameAt(const Wt::WModelIndex& row) const {
    const std::string name = mNameColumn > 0 ? textAt(row, mNameColumn) : "";
    return name.empty() ? std::to_string(zeqIndexAt(row)) : name;
}

Wt::WModelIndexSet RecordTable::rowsNamed(const std::vector<std::string>& names) const {
    Wt::WModelIndexSet rows;
    for (int row = 0; !names.empty() && row < mProxy->rowCount(); ++row) {
        const Wt::WModelIndex index = mProxy->index(row, 0);
        if (std::find(names.begin(), names.end(), nameAt(index)) != names.end()) rows.insert(index);
    }
    return rows;
}

int RecordTable::rowCount() const {
    return mModel->rowCount();
}

int RecordTable::numSelected() const {
    return static_cast<int>(selectedIndexes().size());
}

std::vector<unsigned> RecordTable::selectedZeqIndexes() const {
    std::vector<unsigned> zeqIndexes;
    MirlUtil_modelIndexSetToZeqIndexVect(selectedIndexes(), mModel, mProxy, zeqIndexes);
    return zeqIndexes;
}

unsigned RecordTable::selectedZeqIndex() const {
    const Wt::WModelIndexSet rows = selectedIndexes();
    return rows.size() == 1 ? zeqIndexAt(*rows.begin()) : 0;
}

int RecordTable::selectedRowInView() const {
    const Wt::WModelIndexSet rows = selectedIndexes();
    if (rows.empty()) return -1;
    // The view tells whole pages: its window begins somewhere on the current one and reaches into the next.
    // A page of one row is a window that the browser has not measured yet.
    const int row = rows.begin()->row();
    const int page = row / pageSize();
    const bool inView = pageSize() == 1 || page == currentPage() || page == currentPage() + 1;
    return inView ? row : -1;
}

void RecordTable::keepSelectionInView(int rowBefore) {
    const Wt::WModelIndexSet rows = selectedIndexes();
    if (rowBefore >= 0 && !rows.empty() && rows.begin()->row() != rowBefore)
        scrollTo(*rows.begin(), EnsureVisible);
}

RecordTable::SortingPause::SortingPause(RecordTable& table)
    : mTable(table), mSorted(table.mProxy->dynamicSortFilter()) {
    mTable.mProxy->setDynamicSortFilter(false);
}

RecordTable::SortingPause::~SortingPause() {
    mTable.mProxy->setDynamicSortFilter(mSorted);
}
