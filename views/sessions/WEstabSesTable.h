#pragma once

#include "frame/RecordTable.h"

/// A list of records of which the user picks one, by the name in its first visible column.
class WEstabSesTable : public RecordTable {
protected:
    template <class Record, std::size_t N>
    explicit WEstabSesTable(const RecordColumn<Record> (&columns)[N], Wt::WContainerWidget* parent = nullptr)
        : RecordTable(columns, parent) {
        sortByColumn(1, Wt::AscendingOrder);
    }
};
