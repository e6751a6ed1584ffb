#pragma once

#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqRsp.h"

#include <cstddef>
#include <iterator>
#include <ranges>
#include <string>

/// One record of an answer, borrowed from it. A key that is absent, or holds another type, reads as nothing:
/// text "", number 0.
class ZeqRow {
public:
    explicit ZeqRow(const json_t* record) : mRecord(record) {}

    bool has(const char* key) const { return json_object_get(mRecord, key) != nullptr; }
    std::string text(const char* key) const {
        const char* found = ZeqRspUtil_getStringParam(mRecord, key);
        return found ? found : "";
    }
    /// A record index (0 names no record), a count, a percent.
    unsigned number(const char* key) const { return static_cast<unsigned>(time(key)); }
    /// Seconds since 1970 UTC.
    json_int_t time(const char* key) const { return ZeqRspUtil_getIntegerParam(mRecord, key); }

    const json_t* json() const { return mRecord; }

private:
    const json_t* mRecord;
};

/// The records of an answer, of a collapsed table or of an array, borrowed from it. A row that is no record is
/// left out. No answer and a refusal have none.
///
///     for (const ZeqRow row : ZeqRows(answer.get())) names.push_back(row.text("name"));
class ZeqRows : public std::ranges::view_base {
public:
    class iterator {
    public:
        using value_type = ZeqRow;
        using difference_type = std::ptrdiff_t;
        using iterator_concept = std::forward_iterator_tag;

        iterator() = default;
        iterator(const json_t* table, int row, int end) : mTable(table), mRow(row), mEnd(end) { skip(); }

        ZeqRow operator*() const { return ZeqRow(ZeqObj_getRow(mTable, mRow)); }
        iterator& operator++() {
            ++mRow;
            skip();
            return *this;
        }
        iterator operator++(int) {
            const iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const iterator& other) const { return mRow == other.mRow; }

    private:
        void skip() {
            while (mRow < mEnd && !json_is_object(ZeqObj_getRow(mTable, mRow))) ++mRow;
        }

        const json_t* mTable = nullptr;
        int mRow = 0;
        int mEnd = 0;
    };

    explicit ZeqRows(const json_t* table) : mTable(table), mEnd(ZeqRspUtil_numEntries(table)) {}

    iterator begin() const { return {mTable, 0, mEnd}; }
    iterator end() const { return {mTable, mEnd, mEnd}; }
    bool empty() const { return begin() == end(); }

private:
    const json_t* mTable;
    int mEnd;
};
