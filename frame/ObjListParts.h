#pragma once

#include "frame/RecordTable.h"

#include <Wt/WString>

#include <string>

namespace Wt {
class WText;
}
class WLineEditPlus;

/// What every list panel holds: the table of records, by its columns as rows of data, and perhaps a filter
/// field. Rows: column 0 is hidden and holds the record index as unsigned int, the other columns std::string,
/// all under Wt::EditRole.
///
///     WSesViewList::WSesViewList(...) : WObjListContextPanel(title, std::size(kColumns), parent) {
///         mTable->setColumns(kColumns);
///     void WSesViewList::readFromDatabase() { mTable->read(kColumns, ZeqReq_connectionRetrieve, nullptr); }
class ObjListParts {
public:
    RecordTable* table() const { return mTable; }
    Wt::WStandardItemModel* model() const { return mModel; }
    WNumericSortFilterProxyModel* proxy() const { return mProxy; }
    WLineEditPlus* filterField() const { return mFilterField; }
    /// Says why the list is locked while it is; null in a list that never is.
    Wt::WText* lockNote() const { return mLockNote; }

protected:
    ObjListParts(int columns, bool withFilter);
    ~ObjListParts() = default;

    /// Makes mFilterField in a row of its own, labelled; owned by the caller.
    Wt::WContainerWidget* makeFilterRow(const Wt::WString& label, const Wt::WString& toolTip);

    /// Shows the records whose column 2 matches the text; what the user types acts as a regular expression.
    void setFilterText(const std::string& text);

    /// What stands in place of the rows while there are none: why, and what to do. A filter that matches
    /// nothing says so instead.
    void setEmptyText(const Wt::WString& text);

    /// Shows a column under the heading, without moving it.
    void setHeader(int column, const Wt::WString& text);

    /// Writes a cell of the source model.
    void setCell(int row, int column, unsigned int value);
    void setCell(int row, int column, const std::string& text);

    // The table belongs to the panel, proxy and model to the table.
    RecordTable* mTable;
    WNumericSortFilterProxyModel* mProxy;
    Wt::WStandardItemModel* mModel;
    WLineEditPlus* mFilterField = nullptr;
    Wt::WText* mLockNote = nullptr; // owned by the panel

private:
    Wt::WString mEmptyText;
};
