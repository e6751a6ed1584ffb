#include "frame/RecordTable.h"

#include "frame/RecordPane.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqReq.h"
#include "test/TestSession.h"
#include "tests/db/DbTest.h"
#include "tests/frame/PlainApp.h"

#include <Wt/WStandardItemModel>

#include <boost/json/object.hpp>

namespace {

constexpr RecordColumn<> kColumns[] = {
    {"Index", RecordIndex{}},
    {"[RSnnn]EID", "eid", 90},
    {"[RSnnn]Name", [](const ZeqRow& row) { return ":" + row.text("name"); }, 0,
     [](const ZeqRow& row) { return row.has("marked") ? "mirl-status-error" : ""; }},
};
static_assert(columnHeaded(kColumns, "[RSnnn]Name") == 2 && columnHeaded(kColumns, "[RSnnn]Type") == 3);

/// Records that the answer's rows do not hold as they are shown.
struct Device : ZeqRow {
    unsigned offset;
};
constexpr RecordColumn<Device> kDeviceColumns[] = {
    {"index", [](const Device& device) { return device.number("index") + device.offset; }},
    {"[RSnnn]EID", "eid"},
};

ZeqPtr parsed(const std::string& json) {
    return ZeqPtr(json_loads(json.c_str(), 0, nullptr));
}

/// The table with its element, to which a browser's events go.
class OpenTable : public RecordTable {
public:
    using RecordTable::implementation;
    using RecordTable::RecordTable;

    void show(const std::string& json) {
        const ZeqPtr answer = parsed(json);
        clearData();
        addRecords(kColumns, ZeqRows(answer.get()));
    }
    std::string shown() const {
        std::string all;
        for (int row = 0; row < proxy()->rowCount(); ++row) {
            const Wt::WModelIndex index = proxy()->index(row, 0);
            all += std::to_string(zeqIndexAt(index)) + textAt(index, 2) + " ";
        }
        return all;
    }
};

struct Fixture {
    PlainApp app;
    OpenTable& table = *new OpenTable(kColumns, app.application.root());
};

TEST(RecordTable, ColumnsAreRows) {
    Fixture f;
    EXPECT_TRUE(f.table.isColumnHidden(0));
    EXPECT_FALSE(f.table.isColumnHidden(1));
    const auto header = [&](int column) {
        return boost::any_cast<Wt::WString>(f.table.records()->headerData(column)).key();
    };
    EXPECT_EQ(header(1), "[RSnnn]EID");
    EXPECT_EQ(header(2), "[RSnnn]Name");
    EXPECT_EQ(f.table.selectionMode(), Wt::SingleSelection);
    EXPECT_FALSE(f.table.alternatingRowColors());
    EXPECT_TRUE(f.table.isColumnResizeEnabled());
    for (const int width : {520, 720}) { // also when it comes again
        f.table.adaptToWidth(width);
        EXPECT_EQ(f.table.columnWidth(1).toPixels(), 90);
        EXPECT_EQ(f.table.columnWidth(2).toPixels(), width - 20 - 90 - 7 - 7);
    }
}

TEST(RecordTable, CellsAreWhatTheRecordsSay) {
    Fixture f;
    f.table.show(
        R"([{"index":9,"eid":"E9","name":"rx10"},4,{"index":4,"eid":"E4","name":"rx9","marked":1},{}])");
    EXPECT_EQ(f.table.rowCount(), 3) << "no row for what is no record";
    f.table.sortByColumn(2, Wt::AscendingOrder);
    EXPECT_EQ(f.table.shown(), "0: 4:rx9 9:rx10 ");
    EXPECT_EQ(f.table.textAt(f.table.rowOf(4), 1), "E4");
    const auto mark = [&](unsigned record) {
        return boost::any_cast<Wt::WString>(
            f.table.proxy()->data(f.table.rowOf(record).row(), 2, Wt::StyleClassRole));
    };
    EXPECT_EQ(mark(4), "mirl-status-error");
    EXPECT_EQ(mark(9), "");
    EXPECT_EQ(boost::any_cast<unsigned>(f.table.records()->data(0, 0, Wt::EditRole)), 9u);

    const ZeqPtr one = parsed(R"({"index":5,"name":"rx9b"})");
    f.table.addRecord(kColumns, ZeqRow(one.get()));
    f.table.setRecord(0, kColumns, ZeqRow(one.get()));
    EXPECT_EQ(f.table.shown(), "0: 4:rx9 5:rx9b 5:rx9b ") << "sorted as they come";
}

TEST(RecordTable, ARecordMayCarryMoreThanItsAnswer) {
    PlainApp app;
    RecordTable table(kDeviceColumns, app.application.root());
    const ZeqPtr rows = parsed(R"([{"index":1,"eid":"A"},{"index":2,"eid":"B"}])");
    for (const unsigned offset : {0u, 2000u})
        table.addRecords(kDeviceColumns, ZeqRows(rows.get()) | std::views::transform([=](const ZeqRow& row) {
                                             return Device{row, offset};
                                         }));
    std::vector<unsigned> indexes;
    for (int row = 0; row < table.rowCount(); ++row)
        indexes.push_back(table.zeqIndexAt(table.proxy()->index(row, 0)));
    EXPECT_EQ(indexes, (std::vector<unsigned>{1, 2, 2001, 2002}));
    EXPECT_EQ(table.textAt(table.rowOf(2002), 1), "B");
}

TEST(RecordTable, TheSelectionNamesRecords) {
    Fixture f;
    f.table.setSelectionMode(Wt::ExtendedSelection);
    f.table.show(R"([{"index":3,"name":"c"},{"index":1,"name":"a"},{"name":"b"}])");
    f.table.sortByColumn(2, Wt::AscendingOrder);
    EXPECT_EQ(f.table.selectedZeqIndex(), 0u);
    f.table.select(f.table.rowOf(3));
    EXPECT_EQ(f.table.selectedZeqIndex(), 3u);
    f.table.select(f.table.proxy()->index(0, 0));
    EXPECT_EQ(f.table.selectedZeqIndex(), 0u) << "two are not one";
    EXPECT_EQ(f.table.selectedZeqIndexes(), (std::vector<unsigned>{1, 3}));
    f.table.select(f.table.proxy()->index(1, 0));
    EXPECT_EQ(f.table.numSelected(), 3);
    EXPECT_EQ(f.table.selectedZeqIndexes(), (std::vector<unsigned>{1, 3})) << "index 0 is no record";

    f.table.setSelectedZeqIndexes({0});
    EXPECT_EQ(f.table.numSelected(), 0) << "and names none";
    EXPECT_FALSE(f.table.rowOf(0).isValid());
    EXPECT_FALSE(f.table.rowOf(2).isValid());
    EXPECT_EQ(f.table.zeqIndexAt(Wt::WModelIndex()), 0u);
    EXPECT_EQ(f.table.textAt(Wt::WModelIndex(), 2), "");
}

TEST(RecordTable, SortingThatIsOffStaysOffUntilItIsTurnedOn) {
    Fixture f;
    f.table.sortByColumn(2, Wt::AscendingOrder);
    f.table.proxy()->setDynamicSortFilter(false);
    f.table.show(R"([{"index":2,"name":"b"},{"index":1,"name":"a"}])");
    EXPECT_FALSE(f.table.proxy()->dynamicSortFilter());
    f.table.proxy()->setDynamicSortFilter(true);
    f.table.show(R"([{"index":2,"name":"b"},{"index":1,"name":"a"}])");
    EXPECT_EQ(f.table.shown(), "1:a 2:b ");
    EXPECT_TRUE(f.table.proxy()->dynamicSortFilter());
}

/// Two hundred records in the order of their names; that of record 150 is the given one.
std::string twoHundred(const std::string& name150) {
    std::string rows;
    for (int i = 1; i <= 200; ++i) {
        rows += (i > 1 ? R"(,{"index":)" : R"({"index":)") + std::to_string(i) + R"(,"name":")" +
                (i == 150 ? name150 : std::to_string(1000 + i)) + R"("})";
    }
    return "[" + rows + "]";
}

TEST(RecordTable, ARenamedRecordStaysInViewIfItWas) {
    const struct {
        const char* what;
        int firstInView; // -1: the browser has not told
        unsigned selected;
        const char* newName;
        bool scrolls;
    } rows[] = {
        {"moved to the top", 140, 150, "0", true},
        {"moved, the window is not known", -1, 150, "0", true},
        {"not moved", 140, 150, "1150", false},
        {"another one was renamed above it", 140, 152, "0", false}, // both still stand before it
        {"another one passed it", 130, 145, "0", true},
        {"the one above all was passed", -1, 1, "0", true},
        {"moved, but the user had scrolled away", 0, 150, "0", false},
        {"nothing is selected", 140, 0, "0", false},
    };
    for (const auto& row : rows) {
        Fixture f;
        Wt::Impl::TestSession& browser = Wt::Impl::TestSession::current();
        f.table.show(twoHundred("1150"));
        f.table.sortByColumn(2, Wt::AscendingOrder);
        browser.takeOperations();
        if (row.firstInView >= 0)
            browser.browserEvent(*dynamic_cast<Wt::Impl::RenderNode*>(f.table.implementation()), "range",
                                 {{"first", row.firstInView}, {"page", 20}});
        f.table.setSelectedZeqIndexes({row.selected});
        browser.takeOperations();

        const int before = f.table.selectedRowInView();
        f.table.show(twoHundred(row.newName));
        f.table.setSelectedZeqIndexes({row.selected});
        f.table.keepSelectionInView(before);
        const std::string sent = browser.takeOperations();
        EXPECT_EQ(sent.find(R"("scroll")") != std::string::npos, row.scrolls) << row.what << ": " << sent;
    }
}

TEST(RecordTable, WithoutADatabaseWhatIsShownStays) {
    Fixture f;
    f.table.show(R"([{"index":1,"name":"a"}])");
    EXPECT_FALSE(f.table.read(kColumns, ZeqReq_rxRetrieve, nullptr));
    EXPECT_EQ(f.table.rowCount(), 1);
}

class RecordTableRead : public DbTest {};

TEST_F(RecordTableRead, ShowsWhatTheDatabaseAnswers) {
    store.put("rx", 1, R"("eid":"E1","name":"Desk 1")");
    store.put("rx", 2, R"("eid":"E2","name":"Desk 2")");
    OpenTable table(kColumns);
    EXPECT_TRUE(table.read(kColumns, ZeqReq_rxRetrieve, R"(["index","eid","name"])"));
    EXPECT_EQ(table.shown(), "1:Desk 1 2:Desk 2 ");
    EXPECT_TRUE(table.read(kColumns, ZeqReq_rxRetrieve, nullptr)) << "instead of what was there";
    EXPECT_EQ(table.rowCount(), 2);
    const std::size_t lines = log.lines().size();

    store.refuse("get", "rx", 0, R"({"errno":9})");
    EXPECT_FALSE(table.read(kColumns, ZeqReq_rxRetrieve, nullptr));
    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_GT(log.lines().size(), lines) << "the refusal stands in the log";
    store.hangUp();
    EXPECT_FALSE(table.read(kColumns, ZeqReq_rxRetrieve, nullptr));
}

/// A pane of the kind that pages have.
class Pane : public RecordPane {
public:
    explicit Pane(Wt::WContainerWidget* parent) : RecordPane(kColumns, "[RSnnn]Name", parent) {}
    using RecordPane::layoutSizeChanged;
};

TEST(RecordPane, OnlyShows) {
    PlainApp app;
    Pane pane(app.application.root());
    EXPECT_EQ(pane.table()->selectionMode(), Wt::NoSelection);
    EXPECT_TRUE(pane.table()->isSortingEnabled());
    EXPECT_EQ(pane.table()->attributeValue("data-empty").toUTF8(), Wt::WString::tr("[RSnnn]Name").toUTF8());
    pane.layoutSizeChanged(520, 10);
    EXPECT_EQ(pane.table()->columnWidth(2).toPixels(), 396);
}

} // namespace
