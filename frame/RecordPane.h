#pragma once

#include "frame/RecordTable.h"

#include <Wt/WContainerWidget>

/// A table of records in a details pane, as wide as the pane: to be sorted, not to be selected from.
class RecordPane : public Wt::WContainerWidget {
public:
    Wt::WStandardItemModel* model() const { return mTable->records(); }
    WNumericSortFilterProxyModel* proxy() const { return mTable->proxy(); }
    RecordTable* table() const { return mTable; }

protected:
    /// emptyKey: message key of what stands there while there is no row.
    template <class Record, std::size_t N>
    RecordPane(const RecordColumn<Record> (&columns)[N], const char* emptyKey, Wt::WContainerWidget* parent)
        : RecordPane(new RecordTable(columns), emptyKey, parent) {}

    void layoutSizeChanged(int width, int height) override;

    RecordTable* mTable;

private:
    RecordPane(RecordTable* table, const char* emptyKey, Wt::WContainerWidget* parent);
};
