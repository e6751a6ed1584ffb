#include "frame/MirlUtil.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "frame/WObjListContextPanel.h"
#include "tests/frame/PlainApp.h"
#include "widgets/WLineEditPlus.h"

#include <Wt/WStandardItemModel>

#include <boost/any.hpp>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// A list of (index, kind, name) rows that a test fills.
class FilledList : public WObjListContextPanel {
public:
    FilledList() : WObjListContextPanel("list", 3, true) { mTable->setColumnHidden(0, true); }

    using ObjListParts::setEmptyText;
    void readFromDatabase() override {}
    void add(unsigned index, const std::string& kind, const std::string& name) {
        const int row = mModel->rowCount();
        mModel->insertRows(row, 1);
        setCell(row, 0, index);
        setCell(row, 1, kind);
        setCell(row, 2, name);
    }
    std::vector<unsigned> selected() const {
        std::vector<unsigned> indexes;
        MirlUtil_modelIndexSetToZeqIndexVect(mTable->selectedIndexes(), mModel, mProxy, indexes);
        return indexes;
    }
    std::string shown() const {
        std::string names;
        for (int row = 0; row < mProxy->rowCount(); ++row)
            names += boost::any_cast<std::string>(mProxy->data(row, 2, Wt::EditRole)) + " ";
        return names;
    }
};

TEST(ObjList, SortsNaturallyWhateverTheRowsHold) {
    PlainApp app;
    FilledList list;
    for (const char* name : {"rx10", "", "rx2", "a10b", "rx1", "a9b", "99999999999999999999", "-", "Rx3"})
        list.add(1, "x", name);
    list.proxy()->sort(2, Wt::AscendingOrder);
    EXPECT_EQ(list.shown(), " - 99999999999999999999 Rx3 a10b a9b rx1 rx2 rx10 ");
}

TEST(ObjList, NamesOverWhichTheOrderContradictsItselfLoseNoRow) {
    PlainApp app;
    FilledList list;
    list.proxy()->sort(2, Wt::AscendingOrder);
    const char* const circle[] = {"a2", "a10", "a1b", "a-1", "a1-1", "a01"};
    for (unsigned i = 0; i < 120; ++i) list.add(i + 1, "x", circle[i * 7 % 6]);
    for (int row = 0; row < 120; row += 3)
        list.model()->setData(row, 2, boost::any(std::string(circle[row % 6])));
    list.model()->removeRows(30, 40);
    list.proxy()->sort(2, Wt::DescendingOrder);
    std::vector<bool> seen(80);
    for (int row = 0; row < list.proxy()->rowCount(); ++row)
        seen[static_cast<std::size_t>(list.proxy()->mapToSource(list.proxy()->index(row, 0)).row())] = true;
    EXPECT_EQ(std::count(seen.begin(), seen.end(), true), 80);
}

TEST(ObjList, ACellWithoutTextSortsAnywhereButBreaksNothing) {
    PlainApp app;
    FilledList list;
    for (unsigned i = 0; i < 40; ++i) list.add(i + 1, "x", "name" + std::to_string(40 - i));
    list.model()->setData(7, 2, boost::any(12u));
    list.model()->setData(20, 2, boost::any());
    list.proxy()->sort(2, Wt::DescendingOrder);
    EXPECT_EQ(list.proxy()->rowCount(), 40);
}

TEST(ObjList, FilterIsARegularExpressionOnTheThirdColumn) {
    PlainApp app;
    FilledList list;
    list.add(1, "studio", "Alpha 1");
    list.add(2, "alpha", "Beta (2)");
    list.add(3, "alpha", "alphabet");
    const struct {
        const char* text;
        int rows;
    } rows[] = {
        {"ALPHA", 2}, {"b.t", 2}, {"^Beta", 1}, {"\\(2\\)", 1}, {"", 3}, {"alpha 1$", 1},
    };
    for (const auto& row : rows) {
        list.filterRegExTextChangedHandler(row.text);
        EXPECT_EQ(list.proxy()->rowCount(), row.rows) << row.text;
    }
    list.filterRegExTextChangedHandler("(");
    EXPECT_EQ(list.rowCount(), 3) << "a broken expression loses no record";
    list.filterRegExTextChangedHandler("beta");
    EXPECT_EQ(list.shown(), "Beta (2) ") << "and a good one mends the list";
}

TEST(ObjList, AnEmptyListBlamesTheFilterOnlyWhileThereIsOne) {
    PlainApp app;
    FilledList list;
    list.setEmptyText("no record yet");
    const auto says = [&list] { return list.table()->attributeValue("data-empty"); };
    EXPECT_EQ(says(), "no record yet");
    list.filterRegExTextChangedHandler("alpha");
    EXPECT_EQ(says(), Wt::WString::tr("mirl.list.empty.filtered"));
    list.filterRegExTextChangedHandler("");
    EXPECT_EQ(says(), "no record yet");
}

TEST(ObjList, SelectionByRecordIndex) {
    PlainApp app;
    FilledList list;
    list.table()->setSelectionMode(Wt::ExtendedSelection);
    for (unsigned index : {5u, 7u, 7u, 9u}) list.add(index, "x", "name" + std::to_string(index));
    list.table()->setSelectedZeqIndexes({7, 404, 9, 7});
    EXPECT_EQ(list.selected(), (std::vector<unsigned>{7, 9})) << "first row of each, unknown ones left out";
    list.table()->setSelectedZeqIndexes({});
    EXPECT_EQ(list.selected(), (std::vector<unsigned>{7, 9})) << "no records: nothing is touched";
    list.table()->setSelectedZeqIndexes({5});
    EXPECT_EQ(list.selected(), (std::vector<unsigned>{5}));
    list.table()->clearSelection();
    EXPECT_EQ(list.numSelected(), 0);
}

TEST(ObjList, AFilteredSelectionFindsTheRightKindBehindAnotherOneOfTheSameIndex) {
    PlainApp app;
    FilledList list;
    list.table()->setSelectionMode(Wt::ExtendedSelection);
    list.add(7, "tx", "one");
    list.add(7, "swx", "two");
    list.add(8, "tx", "three");
    list.table()->setSelectedZeqIndexes({8});
    list.table()->setSelectedFilteredZeqIndexes({7}, &list, [](void* context, Wt::WModelIndex index) {
        auto* all = static_cast<FilledList*>(context);
        return boost::any_cast<std::string>(all->proxy()->data(index.row(), 1, Wt::EditRole)) == "swx";
    });
    std::vector<int> rows;
    for (const Wt::WModelIndex& index : list.table()->selectedIndexes()) rows.push_back(index.row());
    EXPECT_EQ(rows, (std::vector<int>{1, 2}));
}

TEST(ObjList, HelpersReadOtherTypesAsNothing) {
    PlainApp app;
    FilledList list;
    list.add(7, "0011aa-ffffff and more", "one");
    list.model()->setData(0, 0, boost::any(std::string("7")));
    Wt::WModelIndex row = list.proxy()->index(0, 0);
    unsigned index = 99;
    MirlUtil_modelIndexToZeqIndex(row, list.model(), list.proxy(), index);
    EXPECT_EQ(index, 0u);
    MirlUtil_modelIndexToZeqIndex(Wt::WModelIndex(), list.model(), list.proxy(), index);
    EXPECT_EQ(index, 0u);
    std::vector<unsigned> indexes{3};
    MirlUtil_modelIndexSetToZeqIndexVect({row}, list.model(), list.proxy(), indexes);
    EXPECT_EQ(indexes, std::vector<unsigned>{3}) << "a row that names no record adds none";
    char eid[kEidBufferSize];
    MirlUtil_modelIndexToEid(row, list.model(), list.proxy(), 1, eid);
    EXPECT_STREQ(eid, "0011aa-ffffff");
}

} // namespace
