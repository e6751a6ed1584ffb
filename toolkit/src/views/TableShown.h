#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Wt {
class WAbstractItemModel;
}

namespace Wt::Impl {

class ViewColumns;
class ViewSelection;

/// What the browser shows of a table, as hashes, and the difference to what it is to show. The message is an
/// object for client/table.js; members that did not change are absent:
///
///   "cols"  [[column, width, text, align, sort, tip, align of the header], …]
///           the visible columns from left to right; width in pixels; align "l", "r" or "c";
///           sort: 0 cannot be sorted by, 1 not sorted, 2 ascending, 3 descending
///   "look"  [row height, header height, resizable, alternating, listens]
///           heights in pixels, two times 0 or 1, and the mouse events that are wanted besides clicks:
///           1 down, 2 up, 4 double
///   "shift" [row, by] before all others of rows: the rows from here on have numbers greater by `by`;
///           a negative one takes the rows `row` to `row - by - 1` away
///   "rows"  [number of rows in all, first and last row that the page keeps]
///           others are dropped; last < first: none
///   "put"   [[row, marks, [cell, …]], …] rows that are new to the page; a cell is text, or
///           {"t":text,"c":style class,"tip":tool tip,"i":icon URL,"h":link URL,
///            "k":0 unchecked, 1 partly, 2 checked}
///   "cell"  [[row, place, cell], …] changed cells; place counts visible columns
///   "mark"  [[row, marks], …]; 1 = selected, 2 = the keyboard stands here
class TableShown {
public:
    enum Listens { MouseDown = 1, MouseUp = 2, DoubleClick = 4 };

    struct Wanted {
        const WAbstractItemModel* model; ///< may be null
        const ViewColumns& columns;
        const ViewSelection& selection;
        int first, last; ///< rows that should be in the page; cut to what there is
        int sortColumn;
        bool descending, sortingEnabled, resizable, alternating;
        double rowHeight, headerHeight; ///< pixels
        int listens;                    ///< Listens
    };

    /// The message without its braces; empty when nothing changed.
    std::string update(const Wanted& wanted);

    /// The browser shows nothing of it any more.
    void forget() { *this = TableShown(mSerial); }

    /// A row that the browser drew by message `serial` is still what it was then, so that a click on it is
    /// meant for what is there now.
    bool unchangedSince(int row, std::uint32_t serial) const;
    std::uint32_t serial() const { return mSerial; } ///< number of the last message
    const std::vector<int>& visibleColumns() const { return mVisible; }

    TableShown() = default;

private:
    explicit TableShown(std::uint32_t serial) : mSerial(serial) {}

    /// Rows that came (or went) at one place since the last message.
    struct Shift {
        int at = 0, by = 0;
        /// The number that a row had, -1 for one that has come.
        int before(int row) const {
            if (row < at) return row;
            return row < at + by ? -1 : row - by;
        }
    };

    void updateColumns(const Wanted& wanted, std::string& out);
    void updateRows(const Wanted& wanted, std::string& out);
    std::vector<std::uint64_t> hashRows(const WAbstractItemModel* model, int first, int count) const;
    Shift findShift(const std::vector<std::uint64_t>& cells, int first, int count, int total) const;
    void appendNewRow(std::string& entry, const Wanted& wanted, int row, std::uint8_t marks) const;
    bool sameRow(const std::vector<std::uint64_t>& cells, int place, int oldRow) const;

    std::vector<int> mVisible;         ///< columns, from left to right
    std::vector<std::uint64_t> mCells; ///< row by row, mVisible.size() hashes each
    std::vector<std::uint8_t> mMarks;  ///< by row
    std::vector<std::uint32_t> mDrawn; ///< by row: message that put it or changed a cell of it
    int mFirst = 0, mTotal = -1;
    std::uint64_t mColumnsHash = 0, mLookHash = 0;
    std::uint32_t mSerial = 0;
};

} // namespace Wt::Impl
