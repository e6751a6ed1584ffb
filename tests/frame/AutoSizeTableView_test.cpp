#include "frame/WAutoSizeTableView.h"
#include "tests/frame/PlainApp.h"

#include <Wt/WStandardItemModel>

#include <gtest/gtest.h>

namespace {

struct Fixture {
    PlainApp app;
    Wt::WStandardItemModel model{0, 6};
    WAutoSizeTableView view{6, app.application.root()};

    explicit Fixture(std::initializer_list<int> hidden) {
        view.setModel(&model);
        for (const int column : hidden) view.setColumnHidden(column, true);
    }
    double width(int column) const { return view.columnWidth(column).toPixels(); }
};

TEST(AutoSizeTableView, VisibleColumnsShareTheWidth) {
    const struct {
        std::initializer_list<int> hidden;
        int width;
        int column;
        double pixels;
    } rows[] = {
        {{0}, 520, 1, 93},              // (520 - 20) / 5 - 7
        {{0}, 523, 3, 93},              // 93.6 is cut
        {{0, 2, 3, 4, 5}, 300, 1, 273}, // all but 27
        {{}, 626, 0, 94},
        {{0}, 10, 1, 0}, // no room: no negative width
    };
    for (const auto& row : rows) {
        Fixture f(row.hidden);
        f.view.adaptToWidth(row.width);
        EXPECT_EQ(f.width(row.column), row.pixels) << "at " << row.width;
    }
}

TEST(AutoSizeTableView, ADraggedColumnStaysAndTheOthersShareTheRest) {
    Fixture f({0});
    f.view.adaptToWidth(520);
    f.view.columnResizedHandler(2, Wt::WLength(200));
    EXPECT_EQ(f.width(2), 200);
    EXPECT_EQ(f.width(1), 66); // (520 - 20 - 7 - 200) / 4 - 7
    f.view.adaptToWidth(920);
    EXPECT_EQ(f.width(2), 200);
    EXPECT_EQ(f.width(5), 166);
}

TEST(AutoSizeTableView, WithEveryColumnDraggedAWidthChangesNothing) {
    Fixture f({0});
    f.view.adaptToWidth(520);
    for (int column = 1; column < 6; ++column) f.view.columnResizedHandler(column, Wt::WLength(50 + column));
    f.view.adaptToWidth(2000);
    for (int column = 1; column < 6; ++column) EXPECT_EQ(f.width(column), 50 + column);
}

TEST(AutoSizeTableView, AFixedColumnKeepsItsWidthFromTheFirst) {
    Fixture f({0});
    f.view.fixColumn(2, 200);
    EXPECT_EQ(f.width(2), 200);
    for (const int width : {520, 920, 520}) {
        f.view.adaptToWidth(width);
        EXPECT_EQ(f.width(2), 200);
        EXPECT_EQ(f.width(1), (width - 20 - 200 - 7) / 4 - 7);
    }
}

TEST(AutoSizeTableView, ADragBeforeTheLayoutIsKnownLeavesTheOthers) {
    Fixture f({0});
    f.view.columnResizedHandler(2, Wt::WLength(200));
    EXPECT_EQ(f.width(2), 200);
    EXPECT_EQ(f.width(1), 150) << "as it was made";
}

TEST(AutoSizeTableView, AResizeOfNoSuchColumnIsIgnored) {
    Fixture f({0});
    f.view.adaptToWidth(520);
    for (const int column : {-1, 6, 1000000}) f.view.columnResizedHandler(column, Wt::WLength(9));
    EXPECT_EQ(f.width(1), 93);
}

TEST(AutoSizeTableView, AllColumnsHiddenDividesByNothing) {
    Fixture f({0, 1, 2, 3, 4, 5});
    f.view.adaptToWidth(500);
    f.view.adaptToWidth(600);
}

} // namespace
