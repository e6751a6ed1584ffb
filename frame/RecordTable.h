#pragma once

#include "db/ZeqExchange.h"
#include "frame/RecordColumn.h"
#include "frame/WAutoSizeTableView.h"

#include <concepts>
#include <ranges>
#include <string>
#include <vector>

namespace Wt {
class WStandardItemModel;
}

class WNumericSortFilterProxyModel;

/// A table of records whose columns are rows of data: a model of the records, a proxy that sorts and perhaps
/// filters it, and the view. One row is selected at a time unless setSelectionMode() says otherwise; every
/// column sorts, by the natural order.
///
///     auto* table = new RecordTable(kColumns, parent);
///     table->read(kColumns, ZeqReq_rxRetrieve, R"(["index","eid","name"])");
class RecordTable : public WAutoSizeTableView {
public:
    /// The columns' looks are set later.
    explicit RecordTable(int columns, Wt::WContainerWidget* parent = nullptr);

    template <class Record, std::size_t N>
    explicit RecordTable(const RecordColumn<Record> (&columns)[N], Wt::WContainerWidget* parent = nullptr)
        : RecordTable(static_cast<int>(N), parent) {
        setColumns(columns);
    }

    template <class Record, std::size_t N>
    void setColumns(const RecordColumn<Record> (&columns)[N]) {
        for (std::size_t column = 0; column < N; ++column) {
            const auto& [header, cell, width, mark] = columns[column];
            setColumn(static_cast<int>(column), header, cell.isIndex(), width);
        }
    }
    void setHeader(int column, const Wt::WString& text);
    /// What stands in place of the rows while there are none: why, and what to do.
    void setEmptyText(const Wt::WString& text);

    /// Asks the database, and empties the table for what it answers. Null without an answer: then what is shown stays.
    /// Null, too, after a refusal, which is logged.
    template <class Retrieve, class... Args>
    ZeqPtr retrieve(Retrieve send, Args&&... args) {
        ZeqClient_s* const client = databaseClient();
        if (!client) {
            zeqCountUnanswered();
            return nullptr;
        }
        ZeqPtr answer = zeqRetrieve(send, client, std::forward<Args>(args)...);
        if (!answer) return nullptr;
        clearData();
        return answered(answer.get()) ? std::move(answer) : nullptr;
    }
    /// Shows what the database answers instead of what was shown. As retrieve(); false for null.
    template <class Record, std::size_t N, class Retrieve, class... Args>
    bool read(const RecordColumn<Record> (&columns)[N], Retrieve send, Args&&... args) {
        const ZeqPtr answer = retrieve(send, std::forward<Args>(args)...);
        if (answer) addRecords(columns, ZeqRows(answer.get()));
        return answer != nullptr;
    }
    virtual void clearData();

    /// Adds rows for these records at the end of the model.
    template <class Record, std::size_t N, std::ranges::forward_range Records>
    void addRecords(const RecordColumn<Record> (&columns)[N], Records&& records) {
        const SortingPause pause(*this);
        int row = insertRows(static_cast<int>(std::ranges::distance(records)));
        for (const Record& record : records) setRecord(row++, columns, record);
    }
    template <class Record, std::size_t N>
    void addRecord(const RecordColumn<Record> (&columns)[N], const Record& record) {
        setRecord(insertRows(1), columns, record);
    }
    /// Shows the record in that row of records() instead of what it held.
    template <class Record, std::size_t N>
    void setRecord(int row, const RecordColumn<Record> (&columns)[N], const Record& record) {
        for (std::size_t i = 0; i < N; ++i) {
            setCell(row, static_cast<int>(i), columns[i].cell.of(record),
                    columns[i].mark ? columns[i].mark(record) : nullptr);
        }
    }

    /// Record of a row of the table; 0 if there is no such row or it holds none.
    unsigned zeqIndexAt(const Wt::WModelIndex& row) const;
    /// Row of the table that holds the record; invalid if none does.
    Wt::WModelIndex rowOf(unsigned zeqIndex) const;
    /// Text of a cell; empty if it holds none. `row` is one of the table.
    std::string textAt(const Wt::WModelIndex& row, int column) const;

    /// What the record of a row is told by outside of the table: its EID where the table has that column, else its
    /// index, which no other record gets.
    std::string nameAt(const Wt::WModelIndex& row) const;
    Wt::WModelIndexSet rowsNamed(const std::vector<std::string>& names) const;

    int rowCount() const; // of the records, whatever the filter shows
    int numSelected() const;
    /// In the table's order. Rows without a record are left out.
    std::vector<unsigned> selectedZeqIndexes() const;
    /// 0 unless exactly one row is selected.
    unsigned selectedZeqIndex() const;

    /// Row of the first selected record as long as the user has it in view, else -1. To be taken before a
    /// rebuild, for keepSelectionInView().
    int selectedRowInView() const;
    /// Scrolls to the first selected row if it is no longer where it was: a record that the user renames does
    /// not leave the list's window. -1: does nothing.
    void keepSelectionInView(int rowBefore);

    Wt::WStandardItemModel* records() const { return mModel; }
    WNumericSortFilterProxyModel* proxy() const { return mProxy; }

private:
    /// Rows come unsorted while it lives, and are sorted once when it ends.
    class SortingPause {
    public:
        explicit SortingPause(RecordTable& table);
        ~SortingPause();
        SortingPause(const SortingPause&) = delete;
        SortingPause& operator=(const SortingPause&) = delete;

    private:
        RecordTable& mTable;
        const bool mSorted;
    };

    static ZeqClient_s* databaseClient();
    static bool answered(const json_t* answer);
    void setColumn(int column, const char* header, bool hidden, int width);
    int insertRows(int count);
    void setCell(int row, int column, boost::any&& value, const char* mark);

    WNumericSortFilterProxyModel* mProxy; // owned by this
    Wt::WStandardItemModel* mModel;       // owned by the proxy
    int mNameColumn = 0;                  // of what tells a record outside of the table; 0: its index
};
