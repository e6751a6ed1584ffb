#include "views/TableShown.h"

#include "views/CellText.h"
#include "views/ViewColumns.h"
#include "views/ViewSelection.h"
#include "web/JsonText.h"

#include <algorithm>

namespace Wt::Impl {

namespace {

enum Mark : std::uint8_t { Selected = 1, Current = 2 };

std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325ULL; // FNV-1a
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3ULL;
    return hash;
}

void number(std::string& out, int value) {
    appendJson(out, static_cast<long long>(value));
}

/// Collects `"name":[entry,entry]`, nothing at all without entries.
class List {
public:
    explicit List(const char* name) : mName(name) {}
    std::string& next() {
        mText += mText.empty() ? '[' : ',';
        return mText;
    }
    void appendTo(std::string& out) const {
        if (mText.empty()) return;
        if (!out.empty()) out += ',';
        appendJson(out, mName);
        out += ':';
        out += mText;
        out += ']';
    }

private:
    const char* mName;
    std::string mText;
};

void appendMember(std::string& out, const char* name, const std::string& json) {
    if (!out.empty()) out += ',';
    appendJson(out, name);
    out += ':';
    out += json;
}

const char* alignName(AlignmentFlag alignment) {
    return alignment == AlignRight ? "\"r\"" : alignment == AlignCenter ? "\"c\"" : "\"l\"";
}

} // namespace

bool TableShown::unchangedSince(int row, std::uint32_t serial) const {
    const int place = row - mFirst;
    return place >= 0 && place < static_cast<int>(mDrawn.size()) && mDrawn[place] <= serial;
}

void TableShown::updateColumns(const Wanted& wanted, std::string& out) {
    std::vector<int> visible;
    std::string json = "[";
    const int columns = wanted.model ? wanted.model->columnCount() : 0;
    for (int column = 0; column < columns; ++column) {
        const ViewColumn& about = wanted.columns[column];
        if (about.hidden) continue;
        visible.push_back(column);
        if (json.size() > 1) json += ',';
        json += '[';
        number(json, column);
        json += ',';
        appendJson(json, about.width);
        json += ',';
        appendJson(json, asString(wanted.model->headerData(column)).toUTF8());
        json += ',';
        json += alignName(about.alignment);
        json += ',';
        const bool sortable = wanted.sortingEnabled && about.sortable;
        number(json, column == wanted.sortColumn ? (wanted.descending ? 3 : 2) : sortable ? 1 : 0);
        json += ',';
        appendJson(json, asString(wanted.model->headerData(column, Horizontal, ToolTipRole)).toUTF8());
        json += ',';
        json += alignName(about.headerAlignment);
        json += ']';
    }
    json += ']';
    const std::uint64_t hash = hashOf(json);
    if (hash != mColumnsHash) {
        appendMember(out, "cols", json);
        mColumnsHash = hash;
    }
    if (visible == mVisible) return;
    mVisible.swap(visible); // the cells of the rows are others now
    mCells.clear();
    mMarks.clear();
    mDrawn.clear();
    mTotal = -1;
}

std::vector<std::uint64_t> TableShown::hashRows(const WAbstractItemModel* model, int first, int count) const {
    std::vector<std::uint64_t> cells;
    cells.reserve(mVisible.size() * static_cast<std::size_t>(count));
    std::string cell;
    for (int row = first; row < first + count; ++row)
        for (const int column : mVisible) {
            cell.clear();
            appendCell(cell, *model, model->index(row, column));
            cells.push_back(hashOf(cell));
        }
    return cells;
}

/// Whether what is to stand at `place` of the page is what row `oldRow` was;
/// false where the page has no such row.
bool TableShown::sameRow(const std::vector<std::uint64_t>& cells, int place, int oldRow) const {
    const int old = oldRow - mFirst;
    if (old < 0 || old >= static_cast<int>(mMarks.size())) return false;
    const auto width = static_cast<std::ptrdiff_t>(mVisible.size());
    const auto wanted = cells.begin() + place * width;
    return std::equal(wanted, wanted + width, mCells.begin() + old * width);
}

// As many rows more (or less) as there are now, from the first difference on: believed when more of the rows
// below find themselves that way than without it. So one row that came costs one row, in a list that was
// cleared and filled again too.
TableShown::Shift TableShown::findShift(const std::vector<std::uint64_t>& cells, int first, int count,
                                        int total) const {
    const int by = total - mTotal;
    if (mTotal < 0 || by == 0 || mMarks.empty() || mVisible.empty()) return {};
    const int begin = std::max(first, mFirst);
    int at = begin;
    while (at < first + count && sameRow(cells, at - first, at)) ++at;
    const Shift shift{at, by};
    int gained = 0;
    for (int row = at; row < first + count; ++row) {
        const int before = shift.before(row);
        gained += before >= 0 && sameRow(cells, row - first, before);
        gained -= sameRow(cells, row - first, row);
    }
    return gained > 0 ? shift : Shift{};
}

void TableShown::updateRows(const Wanted& wanted, std::string& out) {
    const int total = wanted.model ? wanted.model->rowCount() : 0;
    const int first = std::clamp(wanted.first, 0, total);
    const int count = std::max(0, std::min(wanted.last, total - 1) - first + 1);
    const int oldFirst = mFirst, oldCount = static_cast<int>(mMarks.size());
    const std::size_t width = mVisible.size();

    std::vector<std::uint64_t> cells = hashRows(wanted.model, first, count);
    const Shift shift = findShift(cells, first, count, total);
    if (shift.by) {
        std::string json = "[";
        number(json, shift.at);
        json += ',';
        number(json, shift.by);
        appendMember(out, "shift", json + "]");
    }
    if (total != mTotal || first != oldFirst || count != oldCount) {
        std::string json = "[";
        for (int value : {total, first, first + count - 1}) {
            if (json.size() > 1) json += ',';
            number(json, value);
        }
        appendMember(out, "rows", json + "]");
    }
    std::vector<std::uint8_t> marks(count);
    std::vector<std::uint32_t> drawn(count);
    List put("put"), changed("cell"), marked("mark");
    for (int i = 0; i < count; ++i) {
        const int at = first + i, before = shift.before(at), old = before - oldFirst;
        const bool known = before >= 0 && old >= 0 && old < oldCount && mTotal >= 0;
        marks[i] = static_cast<std::uint8_t>((wanted.selection.containsRow(at) ? Selected : 0) |
                                             (wanted.selection.current() == at ? Current : 0));
        drawn[i] = known && before == at ? mDrawn[old] : mSerial + 1;
        if (!known) {
            appendNewRow(put.next(), wanted, at, marks[i]);
            continue;
        }
        for (std::size_t place = 0; place < width; ++place) {
            if (mCells[old * width + place] == cells[i * width + place]) continue;
            std::string& entry = changed.next();
            entry += '[';
            number(entry, at);
            entry += ',';
            number(entry, static_cast<int>(place));
            entry += ',';
            appendCell(entry, *wanted.model, wanted.model->index(at, mVisible[place]));
            entry += ']';
            drawn[i] = mSerial + 1;
        }
        if (mMarks[old] == marks[i]) continue;
        std::string& entry = marked.next();
        entry += '[';
        number(entry, at);
        entry += ',';
        number(entry, marks[i]);
        entry += ']';
    }
    put.appendTo(out);
    changed.appendTo(out);
    marked.appendTo(out);
    mCells.swap(cells);
    mMarks.swap(marks);
    mDrawn.swap(drawn);
    mFirst = first;
    mTotal = total;
}

void TableShown::appendNewRow(std::string& entry, const Wanted& wanted, int row, std::uint8_t marks) const {
    entry += '[';
    number(entry, row);
    entry += ',';
    number(entry, marks);
    entry += ",[";
    for (std::size_t place = 0; place < mVisible.size(); ++place) {
        if (place) entry += ',';
        appendCell(entry, *wanted.model, wanted.model->index(row, mVisible[place]));
    }
    entry += "]]";
}

std::string TableShown::update(const Wanted& wanted) {
    std::string out;
    std::string look = "[";
    appendJson(look, wanted.rowHeight);
    look += ',';
    appendJson(look, wanted.headerHeight);
    look += wanted.resizable ? ",1" : ",0";
    look += wanted.alternating ? ",1," : ",0,";
    number(look, wanted.listens);
    look += ']';
    if (const std::uint64_t hash = hashOf(look); hash != mLookHash) {
        appendMember(out, "look", look);
        mLookHash = hash;
    }
    updateColumns(wanted, out);
    updateRows(wanted, out);
    if (!out.empty()) {
        ++mSerial;
        appendMember(out, "n", std::to_string(mSerial));
    }
    return out;
}

} // namespace Wt::Impl
