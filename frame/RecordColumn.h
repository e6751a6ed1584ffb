#pragma once

#include "db/ZeqRows.h"

#include <boost/any.hpp>

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

/// Makes a column hold the record's index in the database. Such a column is hidden; lists have it as column 0.
struct RecordIndex {
    const char* key = "index";
};

/// What a column holds of a record: the text under a key as it stands, or what a function makes of the record.
/// A function that gives a number gives the record index, as RecordIndex does.
template <class Record>
class RecordCell {
public:
    using Text = std::string (*)(const Record&);
    using Index = unsigned (*)(const Record&);

    constexpr RecordCell(const char* key) requires std::derived_from<Record, ZeqRow> : mKey(key) {}
    constexpr RecordCell(RecordIndex index) requires std::derived_from<Record, ZeqRow> : mKey(index.key),
                                                                                         mIsIndex(true) {}
    template <std::convertible_to<Text> Function>
    constexpr RecordCell(Function function) : mText(function) {}
    template <std::convertible_to<Index> Function>
    constexpr RecordCell(Function function) : mIndex(function), mIsIndex(true) {}

    constexpr bool isIndex() const { return mIsIndex; }

    /// unsigned for an index, std::string for all else: what lists keep in their models.
    boost::any of(const Record& record) const {
        if (mText) return mText(record);
        if (mIndex) return mIndex(record);
        if constexpr (std::derived_from<Record, ZeqRow>) {
            if (!mIsIndex) return record.text(mKey);
            return record.number(mKey);
        } else {
            return {};
        }
    }

private:
    const char* mKey = nullptr;
    Text mText = nullptr;
    Index mIndex = nullptr;
    bool mIsIndex = false;
};

/// One column of a table of records. `Record` is a ZeqRow, something derived from it that carries what the
/// cells need besides, or a struct of the page's own:
///
///     constexpr RecordColumn<> kColumns[] = {
///         {"Index", RecordIndex{}},
///         {"[RSnnn]EID", "eid", 90},
///         {"[RSnnn]Switch", switchOf},
///     };
template <class Record = ZeqRow>
struct RecordColumn {
    const char* header; // message key; of a hidden column a plain text
    RecordCell<Record> cell;
    int width = 0;                                // pixels; 0: an equal share of what is left
    const char* (*mark)(const Record&) = nullptr; // style class of the cell
};

/// Position of the column with that heading; the number of columns if there is none. For positions that code
/// relies on: static_assert(columnHeaded(kColumns, "[RSnnn]Type") == Type).
template <class Record, std::size_t N>
constexpr std::size_t columnHeaded(const RecordColumn<Record> (&columns)[N], std::string_view header) {
    std::size_t column = 0;
    while (column < N && columns[column].header != header) ++column;
    return column;
}
