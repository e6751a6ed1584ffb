#include "views/ViewSelection.h"

#include <Wt/WSortFilterProxyModel.h>
#include <Wt/WStandardItemModel.h>

#include <gtest/gtest.h>

#include <sstream>

using namespace Wt;
using Impl::ViewSelection;

namespace {

const ViewSelection::Selectable kAll = [](ViewSelection::Place) { return true; };
const ViewSelection::Selectable kNotThree = [](ViewSelection::Place place) { return place.first != 3; };

std::string rowsOf(const ViewSelection& selection) {
    std::ostringstream out;
    for (const auto& place : selection.places()) out << place.first << ' ';
    return out.str();
}

/// "5" click, "+5" with Ctrl, "^5" with Shift, "*5" with both; "k5", "k+5", "k^5": the keyboard moves there.
bool play(ViewSelection& selection, const std::string& script, const ViewSelection::Selectable& selectable) {
    std::istringstream in(script);
    bool changed = false;
    for (std::string step; in >> step;) {
        const bool key = step[0] == 'k';
        if (key) step.erase(0, 1);
        const bool shift = step[0] == '^' || step[0] == '*', ctrl = step[0] == '+' || step[0] == '*';
        if (shift || ctrl) step.erase(0, 1);
        const int row = std::stoi(step);
        changed = key ? selection.moveTo(row, shift, ctrl, selectable)
                      : selection.click({row, 2}, shift, ctrl, selectable);
    }
    return changed;
}

} // namespace

TEST(ViewSelection, mouseAndKeyboard) {
    const struct {
        SelectionMode mode;
        const char* script;
        const char* rows;
        bool changed; ///< by the last step
    } rows[] = {
        {NoSelection, "5", "", false},
        {NoSelection, "k5", "", false},
        {SingleSelection, "5 6", "6 ", true},
        {SingleSelection, "5 5", "5 ", false},
        {SingleSelection, "5 +6", "6 ", true},
        {SingleSelection, "5 +5", "", true},
        {SingleSelection, "5 ^7", "7 ", true},
        {SingleSelection, "5 k6", "6 ", true},
        {ExtendedSelection, "5 +7", "5 7 ", true},
        {ExtendedSelection, "5 +7 +5", "7 ", true},
        {ExtendedSelection, "5 ^8", "5 6 7 8 ", true},
        {ExtendedSelection, "5 ^8 ^4", "4 5 ", true},
        {ExtendedSelection, "5 ^8 9", "9 ", true},
        {ExtendedSelection, "1 +5 ^7", "5 6 7 ", true},
        {ExtendedSelection, "1 +5 *7", "1 5 6 7 ", true},
        {ExtendedSelection, "^7", "7 ", true}, // nothing to extend from
        {ExtendedSelection, "5 k6 k^8", "6 7 8 ", true},
        {ExtendedSelection, "5 k+8", "5 ", false},
        {ExtendedSelection, "5 k+8 k^9", "5 6 7 8 9 ", true},
    };
    for (const auto& row : rows) {
        ViewSelection selection;
        selection.mode = row.mode;
        EXPECT_EQ(play(selection, row.script, kAll), row.changed) << row.mode << ": " << row.script;
        EXPECT_EQ(rowsOf(selection), row.rows) << row.mode << ": " << row.script;
    }
    ViewSelection selection;
    selection.mode = ExtendedSelection;
    play(selection, "2 ^5", kNotThree);
    EXPECT_EQ(rowsOf(selection), "2 4 5 ");
    EXPECT_TRUE(selection.selectAll(6, 3, kNotThree));
    EXPECT_EQ(rowsOf(selection), "0 1 2 4 5 ");
}

TEST(ViewSelection, followsRowsThatComeAndGo) {
    const struct {
        const char* what;
        int first, count; ///< count below 0: removed
        const char* rows;
        bool lost;
        int current;
    } rows[] = {
        {"above", 0, 2, "4 6 7 ", false, 7},         {"between", 3, 1, "2 5 6 ", false, 6},
        {"below", 9, 5, "2 4 5 ", false, 5},         {"one of them goes", 4, -1, "2 4 ", true, 4},
        {"all of them go", 2, -4, "", true, 2},      {"others go", 3, -1, "2 3 4 ", false, 4},
        {"none of them", 6, -3, "2 4 5 ", false, 5},
    };
    for (const auto& row : rows) {
        ViewSelection selection;
        selection.mode = ExtendedSelection;
        play(selection, "2 +4 +5", kAll);
        bool lost = false;
        if (row.count > 0)
            selection.rowsInserted(row.first, row.count, 10);
        else
            lost = selection.rowsRemoved(row.first, -row.count, 10);
        EXPECT_EQ(rowsOf(selection), row.rows) << row.what;
        EXPECT_EQ(lost, row.lost) << row.what;
        EXPECT_EQ(selection.current(), row.current) << row.what;
    }
}

TEST(ViewSelection, keyboardStaysWhenAListIsRebuilt) {
    ViewSelection selection;
    selection.mode = ExtendedSelection;
    play(selection, "5", kAll);
    EXPECT_TRUE(selection.rowsRemoved(0, 10, 10));
    selection.settle(0); // drawn while empty
    selection.rowsInserted(0, 10, 0);
    selection.settle(10);
    EXPECT_EQ(selection.current(), 5);

    selection.rowsRemoved(0, 10, 10);
    selection.rowsInserted(0, 10, 0);
    selection.assign({{1, 0}, {7, 0}}); // the program gives the selection back; its row has moved
    selection.settle(10);
    EXPECT_TRUE(selection.current() == 7 || selection.current() == 1);
    EXPECT_TRUE(selection.containsRow(selection.current()));

    selection.rowsRemoved(0, 10, 10);
    selection.rowsInserted(0, 2, 0);
    selection.settle(2);
    EXPECT_EQ(selection.current(), 1);
}

TEST(ViewSelection, keepsItsItemsThroughALayoutChange) {
    WStandardItemModel source(0, 2);
    for (const char* name : {"d", "b", "c", "a"}) source.appendRow(new WStandardItem(name));
    WSortFilterProxyModel proxy;
    proxy.setSourceModel(&source);
    for (WAbstractItemModel* model :
         {static_cast<WAbstractItemModel*>(&source), static_cast<WAbstractItemModel*>(&proxy)}) {
        ViewSelection selection;
        selection.mode = ExtendedSelection;
        model->layoutAboutToBeChanged().connect(std::bind([&] { selection.beforeLayout(*model); }));
        model->layoutChanged().connect(std::bind([&] { EXPECT_FALSE(selection.afterLayout()); }));
        play(selection, "0 +2", kAll);
        const auto names = [&] {
            std::string all;
            for (const auto& place : selection.places())
                all += asString(model->data(place.first, 0)).toUTF8();
            return all + "/" + asString(model->data(selection.current(), 0)).toUTF8();
        };
        const std::string before = names();
        model->sort(0, DescendingOrder);
        model->sort(0, AscendingOrder);
        std::string sorted = before;
        std::sort(sorted.begin(), sorted.begin() + 2);
        EXPECT_EQ(names(), sorted);
    }
}

TEST(ViewSelection, programmaticChangesObeyTheMode) {
    const struct {
        SelectionMode mode;
        std::size_t kept;
    } rows[] = {{NoSelection, 0}, {SingleSelection, 1}, {ExtendedSelection, 3}};
    for (const auto& row : rows) {
        ViewSelection selection;
        selection.mode = row.mode;
        EXPECT_EQ(selection.assign({{1, 4}, {2, 0}, {3, 0}}), row.kept > 0);
        EXPECT_EQ(selection.places().size(), row.kept);
        EXPECT_FALSE(selection.assign({{1, 0}, {2, 0}, {3, 0}})) << "the same again is no change";
        EXPECT_EQ(selection.apply({1, 0}, Deselect), row.kept > 0);
    }
    ViewSelection items;
    items.mode = ExtendedSelection;
    items.behavior = SelectItems;
    items.click({1, 1}, false, false, kAll);
    items.click({2, 3}, true, false, kAll);
    EXPECT_EQ(items.places().size(), 6u);
    EXPECT_FALSE(items.contains(1, 0));
    items.columnsInserted(2, 1);
    EXPECT_TRUE(items.contains(2, 4));
    EXPECT_TRUE(items.columnsRemoved(0, 2));
}
