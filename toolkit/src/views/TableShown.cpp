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

void TableShown::updateRows(const Wanted& wanted, std::string& out) {
    const int total = wanted.model ? wanted.model->rowCount() : 0;
    const int first = std::clamp(wanted.first, 0, total);
    const int count = std::max(0, std::min(wanted.last, total - 1) - first + 1);
    const int oldFirst = mFirst, oldCount = static_cast<int>(mMarks.size());
    const std::size_t width = mVisible.size();

    if (total != mTotal || first != oldFirst || count != oldCount) {
        std::string json = "[";
        for (int value : {total, first, first + count - 1}) {
            if (json.size() > 1) json += ',';
            number(json, value);
        }
        appendMember(out, "rows", json + "]");
    }
    std::vector<std::uint64_t> cells(width * count);
    std::vector<std::uint8_t> marks(count);
    std::vector<std::uint32_t> drawn(count);
    List put("put"), changed("cell"), marked("mark");
    std::string row, cell;
    for (int i = 0; i < count; ++i) {
        const int at = first + i, old = at - oldFirst;
        const bool known = old >= 0 && old < oldCount && mTotal >= 0;
        marks[i] = static_cast<std::uint8_t>((wanted.selection.containsRow(at) ? Selected : 0) |
                                             (wanted.selection.current() == at ? Current : 0));
        drawn[i] = known ? mDrawn[old] : mSerial + 1;
        row.clear();
        for (std::size_t place = 0; place < width; ++place) {
            cell.clear();
            appendCell(cell, *wanted.model, wanted.model->index(at, mVisible[place]));
            const std::uint64_t hash = hashOf(cell);
            cells[i * width + place] = hash;
            if (!known) {
                row += place ? "," : "";
                row += cell;
            } else if (mCells[old * width + place] != hash) {
                std::string& entry = changed.next();
                entry += '[';
                number(entry, at);
                entry += ',';
                number(entry, static_cast<int>(place));
                entry += ',';
                entry += cell;
                entry += ']';
                drawn[i] = mSerial + 1;
            }
        }
        if (known && mMarks[old] == marks[i]) continue;
        std::string& entry = (known ? marked : put).next();
        entry += '[';
        number(entry, at);
        entry += ',';
        number(entry, marks[i]);
        if (!known) {
            entry += ",[";
            entry += row;
            entry += ']';
        }
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
