#include "frame/TwoListMover.h"

#include "frame/WNumericSortFilterProxyModel.h"
#include "tests/frame/PlainApp.h"
#include "tests/frame/WidgetSearch.h"

#include <Wt/WStandardItemModel>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// The rules once more, in words.
bool shouldBeEnabled(Move move, const MoverState& s) {
    if (!s.usable) return false;
    const bool full = s.rightLimit > 0 && s.rightRows >= s.rightLimit;
    switch (move) {
    case Move::AddAll:
        return s.leftRows != 0 && !full;
    case Move::Add:
        return s.leftSelected != 0 && !full;
    case Move::Remove:
        return s.rightSelected != 0;
    case Move::RemoveAll:
        return s.rightRows != 0;
    case Move::Up:
    case Move::Down:
        return s.rightSelected == 1;
    }
    return false;
}

TEST(MoverRules, EveryButtonInEveryState) {
    int states = 0;
    for (const bool usable : {true, false})
        for (const int limit : {0, 1, 2, 32})
            for (const int leftRows : {0, 1, 2})
                for (int leftSelected = 0; leftSelected <= leftRows; ++leftSelected)
                    for (const int rightRows : {0, 1, 2, 31, 32, 33})
                        for (int rightSelected = 0; rightSelected <= std::min(rightRows, 3); ++rightSelected)
                            for (const MoverRule& rule : kMoverRules) {
                                const MoverState state{usable,    leftRows,      leftSelected,
                                                       rightRows, rightSelected, limit};
                                EXPECT_EQ(moveAllowed(rule.move, state), shouldBeEnabled(rule.move, state))
                                    << int(rule.move) << " with " << leftSelected << " of " << leftRows
                                    << " and " << rightSelected << " of " << rightRows << ", limit " << limit;
                                ++states;
                            }
    EXPECT_GT(states, 3000);
}

constexpr MoverButton kButtons[] = {
    {Move::AddAll, "[RSnnn]Add All (right arrow)"},
    {Move::Add, "[RSnnn]Add (right arrow)"},
    {Move::Remove, "[RSnnn](left arrow) Remove"},
    {Move::RemoveAll, "[RSnnn](left arrow) Remove All"},
    {Move::Up, "[RSnnn]Move Up"},
    {Move::Down, "[RSnnn]Move Down"},
};
constexpr std::string_view kNames = "AaRrUD"; // one letter a button

/// Entries 1 to `available` at the left, and whatever is moved at the right, in the order in which it came.
class Page : public TwoListMover::Model {
public:
    explicit Page(unsigned available, int limit = 0) {
        for (unsigned i = 1; i <= available; ++i) left.push_back(i);
        mover = new TwoListMover(*this, new MoverList({.header = "[RSnnn]Available Transmitters"}),
                                 new MoverList({.header = "[RSnnn]Favorites (up to 32)", .sorted = false}),
                                 kButtons, limit, app.application.root());
        mover->moved().connect(std::bind([this] { ++moves; }));
        mover->refresh();
    }

    void move(Move what, const std::vector<unsigned>& indexes) override {
        told = kNames[std::size_t(what)];
        for (const unsigned index : indexes) told += " " + std::to_string(index);
        const auto place = [this](unsigned index) { return std::find(right.begin(), right.end(), index); };
        if (what == Move::Up) std::iter_swap(place(indexes[0]), place(indexes[0]) - 1);
        if (what == Move::Down) std::iter_swap(place(indexes[0]), place(indexes[0]) + 1);
        if (what == Move::Add) shift(left, right, indexes);
        if (what == Move::Remove) shift(right, left, indexes);
        if (what == Move::AddAll) shift(left, right, std::vector(left));
        if (what == Move::RemoveAll) shift(right, left, std::vector(right));
    }
    void show(MoverList& leftList, MoverList& rightList) override {
        leftList.setItems(itemsOf(left));
        rightList.setItems(itemsOf(right));
    }

    static std::vector<MoverItem> itemsOf(const std::vector<unsigned>& indexes) {
        std::vector<MoverItem> items;
        for (const unsigned index : indexes) items.push_back({index, "target " + std::to_string(index)});
        return items;
    }
    static std::string rowsOf(const MoverList& list) {
        std::string rows;
        for (int row = 0; row < list.proxy()->rowCount(); ++row) {
            const Wt::WModelIndex index = list.proxy()->index(row, 0);
            rows += (row ? " " : "") + std::to_string(list.zeqIndexAt(index));
            EXPECT_EQ(list.textAt(index, 1), "target " + std::to_string(list.zeqIndexAt(index)));
        }
        return rows;
    }
    std::string shown() const { return rowsOf(*mover->left()) + " | " + rowsOf(*mover->right()); }
    std::string enabled() const {
        std::string letters;
        for (const MoverButton& button : kButtons)
            letters += mover->button(button.move)->isEnabled() ? kNames[std::size_t(button.move)] : '.';
        return letters;
    }
    void press(Move what) { click(mover->button(what)); }
    void select(MoverList* list, const std::vector<unsigned>& indexes) {
        list->setSelectedZeqIndexes(indexes);
    }

    PlainApp app;
    std::vector<unsigned> left, right;
    std::string told;
    int moves = 0;
    TwoListMover* mover;

private:
    static void shift(std::vector<unsigned>& from, std::vector<unsigned>& to,
                      const std::vector<unsigned>& what) {
        for (const unsigned index : what) {
            std::erase(from, index);
            to.push_back(index);
        }
        if (&to != &from) std::sort(to.begin(), to.end() - std::ptrdiff_t(what.size()));
    }
};

TEST(TwoListMover, MovesWhatIsSelected) {
    Page page(4);
    EXPECT_EQ(page.shown(), "1 2 3 4 | ");
    EXPECT_EQ(page.enabled(), "A.....");
    page.press(Move::Add);
    EXPECT_EQ(page.moves, 0) << "nothing selected";
    EXPECT_EQ(page.mover->left()->columnWidth(1).toPixels(), 320);

    page.select(page.mover->left(), {4, 2});
    EXPECT_EQ(page.enabled(), "Aa....");
    EXPECT_TRUE(page.mover->hasSelection());
    page.press(Move::Add);
    EXPECT_EQ(page.told, "a 2 4") << "in the list's order";
    EXPECT_EQ(page.shown(), "1 3 | 2 4");
    EXPECT_FALSE(page.mover->hasSelection());
    EXPECT_EQ(page.enabled(), "A..r..");

    page.select(page.mover->right(), {2});
    EXPECT_TRUE(page.mover->hasSelection()) << "of either list";
    EXPECT_EQ(page.enabled(), "A.RrUD");
    page.press(Move::Remove);
    EXPECT_EQ(page.told, "R 2");
    page.press(Move::AddAll);
    EXPECT_EQ(page.told, "A");
    EXPECT_EQ(page.enabled(), "...r..");
    page.press(Move::RemoveAll);
    EXPECT_EQ(page.shown(), "1 2 3 4 | ");
    EXPECT_EQ(page.enabled(), "A.....");
    EXPECT_EQ(page.moves, 4);
}

TEST(TwoListMover, OneListHasASelectionAtATime) {
    Page page(6);
    page.select(page.mover->left(), {1, 2, 3});
    page.press(Move::Add);
    page.select(page.mover->left(), {5});
    page.select(page.mover->right(), {1, 2});
    EXPECT_EQ(page.mover->left()->numSelected(), 0);
    EXPECT_EQ(page.enabled(), "A.Rr..");
    page.select(page.mover->left(), {5, 6});
    EXPECT_EQ(page.mover->right()->numSelected(), 0);
    EXPECT_EQ(page.mover->left()->numSelected(), 2);
    EXPECT_EQ(page.enabled(), "Aa.r..");
    page.mover->clearSelection();
    EXPECT_EQ(page.enabled(), "A..r..");
}

TEST(TwoListMover, AnEntryMovesUpAndDownAndStaysSelected) {
    Page page(3);
    page.press(Move::AddAll);
    page.select(page.mover->right(), {2});
    const struct {
        Move move;
        const char* order;
        int moves; // behind the first, which filled the list
    } rows[] = {
        {Move::Up, "2 1 3", 1},   {Move::Up, "2 1 3", 1},   {Move::Down, "1 2 3", 2},
        {Move::Down, "1 3 2", 3}, {Move::Down, "1 3 2", 3},
    };
    for (const auto& row : rows) {
        page.press(row.move);
        EXPECT_EQ(Page::rowsOf(*page.mover->right()), row.order);
        EXPECT_EQ(page.mover->right()->selectedZeqIndexes(), std::vector<unsigned>{2}) << row.order;
        EXPECT_EQ(page.moves - 1, row.moves) << row.order;
    }
}

TEST(TwoListMover, AFullListTakesNoMore) {
    Page page(4, 2);
    page.select(page.mover->left(), {1, 2});
    page.press(Move::Add);
    page.select(page.mover->left(), {3});
    EXPECT_EQ(page.enabled(), "...r..");
    page.mover->apply(Move::Add);
    EXPECT_EQ(page.shown(), "3 4 | 1 2");
}

TEST(TwoListMover, NotUsableIsNothingToClickOrSelect) {
    Page page(4);
    page.select(page.mover->left(), {1});
    page.mover->setUsable(false);
    EXPECT_FALSE(page.mover->hasSelection());
    EXPECT_EQ(page.enabled(), "......");
    for (MoverList* list : {page.mover->left(), page.mover->right()}) {
        EXPECT_TRUE(list->isDisabled());
        EXPECT_TRUE(list->hasStyleClass("mirl-wtableview-disabled"));
    }
    page.select(page.mover->left(), {1});
    page.mover->refresh();
    page.mover->apply(Move::Add);
    EXPECT_EQ(page.moves, 0);
    page.mover->setUsable(true);
    EXPECT_FALSE(page.mover->left()->isDisabled());
    EXPECT_FALSE(page.mover->left()->hasStyleClass("mirl-wtableview-disabled"));
    EXPECT_EQ(page.enabled(), "Aa....");
}

TEST(MoverList, ShowsWhatItWasGivenAndTouchesNothingForTheSame) {
    PlainApp app;
    const struct {
        std::vector<unsigned> given;
        const char* sorted;
        const char* inOrder;
        int touched; // removals and insertions in each list
    } rows[] = {
        {{10, 9, 2}, "2 9 10", "10 9 2", 1},
        {{10, 9, 2}, "2 9 10", "10 9 2", 0},
        {{9, 10, 2}, "2 9 10", "9 10 2", 2},
        {{7}, "7", "7", 2},
        {{8}, "8", "8", 2},
        {{}, "", "", 1},
        {{}, "", "", 0},
    };
    auto* sorted = new MoverList({.header = "[RSnnn]Name"}, app.application.root());
    auto* inOrder = new MoverList({.header = "[RSnnn]Name", .sorted = false}, app.application.root());
    int touched = 0;
    for (MoverList* list : {sorted, inOrder}) {
        list->records()->rowsInserted().connect(std::bind([&] { ++touched; }));
        list->records()->rowsRemoved().connect(std::bind([&] { ++touched; }));
        for (const auto& row : rows) {
            touched = 0;
            list->setItems(Page::itemsOf(row.given));
            EXPECT_EQ(Page::rowsOf(*list), list == sorted ? row.sorted : row.inOrder);
            EXPECT_EQ(touched, row.touched) << row.sorted;
        }
    }
    inOrder->setItems({{3, "target 3 [conflict]"}});
    inOrder->setItems({{3, "target 3"}});
    EXPECT_EQ(Page::rowsOf(*inOrder), "3") << "a new text is a change too";
}

} // namespace
