#include "views/TableShown.h"
#include "views/ViewColumns.h"
#include "views/ViewSelection.h"

#include <Wt/WSortFilterProxyModel.h>
#include <Wt/WStandardItemModel.h>

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <random>

using namespace Wt;
using namespace Wt::Impl;

namespace {

/// Does with the messages what client/table.js does, and nothing else.
struct Browser {
    boost::json::array columns;
    std::map<std::int64_t, std::pair<boost::json::array, std::int64_t>> rows; ///< cells and marks
    std::int64_t total = -1;

    void apply(const std::string& message) {
        if (message.empty()) return;
        const boost::json::object object = boost::json::parse("{" + message + "}").get_object();
        if (const auto* cols = object.if_contains("cols")) {
            const auto id = [](const boost::json::value& column) { return column.at(0); };
            bool same = columns.size() == cols->as_array().size();
            for (std::size_t i = 0; same && i < columns.size(); ++i) same = id(columns[i]) == id(cols->at(i));
            if (!same) rows.clear();
            columns = cols->get_array();
        }
        if (const auto* shift = object.if_contains("shift")) {
            const auto at = shift->at(0).as_int64(), by = shift->at(1).as_int64();
            auto before = std::move(rows);
            rows.clear();
            for (auto& [row, drawn] : before) {
                if (row >= at && row + by < at) continue;
                rows[row < at ? row : row + by] = std::move(drawn);
            }
        }
        if (const auto* range = object.if_contains("rows")) {
            total = range->at(0).to_number<std::int64_t>();
            const auto first = range->at(1).to_number<std::int64_t>(),
                       last = range->at(2).to_number<std::int64_t>();
            std::erase_if(rows, [&](const auto& row) { return row.first < first || row.first > last; });
        }
        if (const auto* put = object.if_contains("put"))
            for (const auto& row : put->as_array())
                rows[row.at(0).as_int64()] = {row.at(2).as_array(), row.at(1).as_int64()};
        if (const auto* cells = object.if_contains("cell"))
            for (const auto& cell : cells->as_array())
                rows.at(cell.at(0).as_int64()).first.at(cell.at(1).as_int64()) = cell.at(2);
        if (const auto* marks = object.if_contains("mark"))
            for (const auto& mark : marks->as_array())
                rows.at(mark.at(0).as_int64()).second = mark.at(1).as_int64();
    }
};

struct Table {
    WStandardItemModel source{0, 3};
    WSortFilterProxyModel proxy;
    ViewColumns columns;
    ViewSelection selection;
    TableShown shown;
    int first = 0, last = 30;

    Table() {
        proxy.setSourceModel(&source);
        proxy.setDynamicSortFilter(true);
        proxy.sort(1);
        columns.edit(0).hidden = true;
        selection.mode = ExtendedSelection;
    }
    void fill(int rows, int changedRow = -1) {
        source.removeRows(0, source.rowCount());
        source.insertRows(0, rows);
        for (int row = 0; row < rows; ++row) {
            source.setData(row, 0, boost::any(static_cast<unsigned>(row)));
            source.setData(row, 1, boost::any("name " + std::to_string(row % 7)));
            source.setData(row, 2, boost::any(std::string(row == changedRow ? "changed" : "online")));
        }
    }
    std::string update() {
        return shown.update({.model = &proxy,
                             .columns = columns,
                             .selection = selection,
                             .first = first,
                             .last = last,
                             .sortColumn = 1,
                             .descending = false,
                             .sortingEnabled = true,
                             .resizable = true,
                             .alternating = false,
                             .rowHeight = 20,
                             .headerHeight = 20,
                             .listens = 0});
    }
    void expectShown(const Browser& browser) {
        ASSERT_EQ(browser.total, proxy.rowCount());
        const int end = std::min(last, proxy.rowCount() - 1);
        ASSERT_EQ(static_cast<int>(browser.rows.size()), std::max(0, end - first + 1));
        for (const auto& [row, drawn] : browser.rows) {
            ASSERT_EQ(drawn.first.size(), browser.columns.size());
            for (std::size_t place = 0; place < browser.columns.size(); ++place) {
                const int column = static_cast<int>(browser.columns[place].at(0).as_int64());
                ASSERT_EQ(std::string(drawn.first[place].as_string()),
                          asString(proxy.data(static_cast<int>(row), column)).toUTF8());
            }
            ASSERT_EQ(drawn.second & 1, selection.containsRow(static_cast<int>(row)));
        }
    }
};

} // namespace

TEST(TableShown, onlyWhatDiffersIsSent) {
    Table table;
    table.fill(200);
    EXPECT_FALSE(table.update().empty());
    EXPECT_EQ(table.update(), "");
    table.fill(200);
    EXPECT_EQ(table.update(), "") << "cleared and filled with the same";
    table.fill(200, 14); // the third of those that begin with "name 0"
    EXPECT_EQ(table.update(), R"("cell":[[2,1,"changed"]],"n":2)");
    table.selection.assign({{2, 0}});
    EXPECT_EQ(table.update(), R"("mark":[[2,3]],"n":3)");
    table.columns.edit(2).width = 90;
    EXPECT_EQ(table.update(), R"("cols":[[1,150,"","l",2,"","l"],[2,90,"","l",1,"","l"]],"n":4)");
    table.last = 32;
    EXPECT_EQ(table.update(),
              R"("rows":[200,0,32],"put":[[31,0,["name 1","online"]],[32,0,["name 1","online"]]],"n":5)");
    table.source.removeRows(199, 1);
    EXPECT_EQ(table.update(), R"("rows":[199,0,32],"n":6)");
    table.source.removeRows(0, 199);
    EXPECT_EQ(table.update(), R"("rows":[0,0,-1],"n":7)");
}

TEST(TableShown, aRowThatComesOrGoesCostsOneRow) {
    Table table;
    table.proxy.sort(2); // by the column that is told below: row 3 is where the new one stands
    table.fill(100);
    for (int row = 0; row < 100; ++row)
        table.source.setData(row, 2, boost::any(std::to_string(1000 + 2 * row)));
    table.selection.mode = ExtendedSelection;
    table.selection.assign({{5, 0}});
    Browser browser;
    browser.apply(table.update());

    table.source.insertRow(100);
    table.source.setData(100, 1, boost::any(std::string("new")));
    table.source.setData(100, 2, boost::any(std::string("1005")));
    table.selection.rowsInserted(3, 1, 100);
    std::string message = table.update();
    EXPECT_EQ(message, R"("shift":[3,1],"rows":[101,0,30],"put":[[3,0,["new","1005"]]],"n":2)");
    browser.apply(message);
    table.expectShown(browser);

    table.source.removeRow(100);
    table.selection.rowsRemoved(3, 1, 101);
    message = table.update();
    EXPECT_EQ(message, R"("shift":[3,-1],"rows":[100,0,30],"put":[[30,0,["name 2","1060"]]],"n":3)");
    browser.apply(message);
    table.expectShown(browser);

    table.first = 40;
    table.last = 60;
    browser.apply(table.update());
    table.source.removeRows(0, 2); // above what is in the page
    message = table.update();
    EXPECT_EQ(
        message,
        R"("shift":[40,-2],"rows":[98,40,60],"put":[[59,0,["name 5","1122"]],[60,0,["name 6","1124"]]],"n":5)");
    browser.apply(message);
    table.expectShown(browser);
}

TEST(TableShown, cellsWithMoreThanText) {
    Table table;
    table.fill(1);
    Browser browser;
    browser.apply(table.update());
    table.source.setData(0, 2, boost::any(std::string("red")), StyleClassRole);
    table.source.setData(0, 2, boost::any(std::string("a \"tip\"\n")), ToolTipRole);
    table.source.setData(0, 2, boost::any(true), CheckStateRole);
    browser.apply(table.update());
    const boost::json::value wanted = {{"t", "online"}, {"c", "red"}, {"tip", "a \"tip\"\n"}, {"k", 2}};
    EXPECT_EQ(boost::json::value(browser.rows[0].first[1]), wanted);
}

TEST(TableShown, browserFollowsRandomChanges) {
    std::mt19937 random(3);
    const auto below = [&](int n) { return static_cast<int>(random() % std::max(1, n)); };
    Table table;
    Browser browser;
    table.fill(80);
    for (int step = 0; step < 600; ++step) {
        const int rows = table.source.rowCount();
        switch (below(9)) {
        case 0:
            table.source.insertRows(below(rows + 1), 1 + below(4));
            break;
        case 1:
            table.source.removeRows(below(rows), 1);
            break;
        case 2:
            table.source.setData(below(rows), 1 + below(2), boost::any("x" + std::to_string(below(30))));
            break;
        case 3:
            table.first = below(rows);
            table.last = table.first + below(40);
            break;
        case 4:
            table.columns.edit(2).hidden = below(2);
            break;
        case 5:
            table.selection.assign({{below(20), 0}, {below(60), 0}});
            break;
        case 6:
            table.proxy.sort(1 + below(2), below(2) ? AscendingOrder : DescendingOrder);
            break;
        case 7:
            if (step % 20 == 0) table.fill(below(100));
            break;
        default:
            if (step % 30 == 0) { // the page was loaded anew
                table.shown.forget();
                browser = {};
            }
        }
        if (below(2)) continue;
        browser.apply(table.update());
        table.first = std::min(table.first, table.proxy.rowCount());
        table.expectShown(browser);
        if (HasFatalFailure()) FAIL() << "step " << step;
    }
}

TEST(TableShown, clicksOnWhatHasChangedMeanwhileAreNotMeant) {
    Table table;
    table.fill(50);
    table.update();
    const auto drawn = table.shown.serial();
    EXPECT_TRUE(table.shown.unchangedSince(3, drawn));
    EXPECT_FALSE(table.shown.unchangedSince(40, drawn)); // not in the page
    EXPECT_FALSE(table.shown.unchangedSince(-1, drawn));
    table.source.setData(0, 2, boost::any(std::string("other"))); // first row in order
    table.update();
    EXPECT_FALSE(table.shown.unchangedSince(0, drawn));
    EXPECT_TRUE(table.shown.unchangedSince(1, drawn));
    EXPECT_TRUE(table.shown.unchangedSince(0, table.shown.serial()));
}
