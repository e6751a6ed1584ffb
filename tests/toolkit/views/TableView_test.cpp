#include "test/TestSession.h"

#include <Wt/Test/WTestEnvironment.h>
#include <Wt/WApplication.h>
#include <Wt/WContainerWidget.h>
#include <Wt/WSortFilterProxyModel.h>
#include <Wt/WStandardItemModel.h>
#include <Wt/WTableView.h>

#include <boost/json/object.hpp>
#include <gtest/gtest.h>

using namespace Wt;
using boost::json::object;

namespace {

/// The table's element is the only one that the page has below its root.
class OpenView : public WTableView {
public:
    using WTableView::implementation;
    using WTableView::WTableView;
};

struct Page {
    Test::WTestEnvironment environment;
    WApplication application{environment};
    Impl::TestSession& session = Impl::TestSession::current();
    WStandardItemModel source{0, 3};
    WSortFilterProxyModel proxy;
    OpenView* view = new OpenView(application.root());
    int selections = 0, clicks = 0;
    std::vector<std::pair<int, double>> resizes;

    Page() {
        proxy.setSourceModel(&source);
        proxy.setDynamicSortFilter(true);
        view->setModel(&proxy);
        view->setColumnHidden(0, true);
        view->setSelectionMode(ExtendedSelection);
        view->sortByColumn(1, AscendingOrder);
        view->selectionChanged().connect(std::bind([this] { ++selections; }));
        view->clicked().connect(std::bind([this] { ++clicks; }));
        view->columnResized().connect(
            [this](int column, const WLength& width) { resizes.emplace_back(column, width.toPixels()); });
    }
    void fill(int rows, const std::string& status = "online") {
        source.removeRows(0, source.rowCount());
        source.insertRows(0, rows);
        for (int row = 0; row < rows; ++row) {
            char name[16];
            std::snprintf(name, sizeof name, "rx%05d", row);
            source.setData(row, 0, boost::any(static_cast<unsigned>(row)));
            source.setData(row, 1, boost::any(std::string(name)));
            source.setData(row, 2, boost::any(row == 3 ? status : std::string("online")));
        }
    }
    void send(const char* kind, object event) {
        session.browserEvent(*dynamic_cast<Impl::RenderNode*>(view->implementation()), kind,
                             std::move(event));
    }
    void click(int row, int modifiers = 0, int drawn = 1'000'000) {
        send("table", {{"a", "click"}, {"r", row}, {"c", 1}, {"n", drawn}, {"b", 0}, {"m", modifiers}});
    }
    void key(const char* name, int modifiers = 0) {
        send("table", {{"a", "key"}, {"key", name}, {"m", modifiers}});
    }
    std::string selected() const {
        std::string all;
        for (const WModelIndex& index : view->selectedIndexes()) {
            EXPECT_EQ(index.column(), 0);
            all += std::to_string(index.row()) + " ";
        }
        return all;
    }
};

constexpr int kShift = ShiftModifier, kCtrl = ControlModifier;

} // namespace

TEST(TableView, anUnchangedRefreshSendsNothing) {
    Page page;
    page.fill(200);
    EXPECT_NE(page.session.takeOperations(), "");
    page.click(5);
    page.session.takeOperations();
    page.fill(200);
    page.view->setSelectedIndexes({page.proxy.index(5, 1)});
    EXPECT_EQ(page.session.takeOperations(), "");
    page.fill(200, "offline");
    page.view->setSelectedIndexes({page.proxy.index(5, 1)});
    const std::string one = page.session.takeOperations();
    EXPECT_NE(one.find(R"("cell":[[3,1,"offline"]])"), std::string::npos) << one;
    EXPECT_EQ(one.find("put"), std::string::npos) << one;
}

TEST(TableView, onlyRowsNearTheViewportAreSent) {
    Page page;
    page.fill(10'000);
    const std::string first = page.session.takeOperations();
    EXPECT_NE(first.find("rx00000"), std::string::npos);
    EXPECT_EQ(first.find("rx00200"), std::string::npos);
    EXPECT_LT(first.size(), 10'000u);
    page.send("range", {{"first", 5000}, {"page", 20}});
    const std::string middle = page.session.takeOperations();
    EXPECT_NE(middle.find("rx05010"), std::string::npos);
    EXPECT_LT(middle.size(), 5'000u);
    page.send("range", {{"first", 5002}, {"page", 20}});
    EXPECT_LT(page.session.takeOperations().size(), 300u) << "two rows more";
    page.view->scrollTo(page.proxy.index(9000, 1), WAbstractItemView::PositionAtBottom);
    const std::string scrolled = page.session.takeOperations();
    EXPECT_NE(scrolled.find("rx09000"), std::string::npos);
    EXPECT_NE(scrolled.find(R"("scroll",[9000,2])"), std::string::npos) << scrolled;
    page.fill(10); // shorter than the scroll position
    EXPECT_NE(page.session.takeOperations().find("rx00009"), std::string::npos);
}

TEST(TableView, mouseAndKeyboardSelect) {
    Page page;
    page.fill(50);
    page.send("range", {{"first", 0}, {"page", 11}});
    page.click(5);
    page.click(8, kShift);
    page.click(6, kCtrl);
    EXPECT_EQ(page.selected(), "5 7 8 ");
    EXPECT_EQ(page.selections, 3);
    EXPECT_EQ(page.clicks, 3);
    page.key("ArrowDown");
    EXPECT_EQ(page.selected(), "7 ");
    page.key("PageDown", kShift);
    EXPECT_EQ(page.selected(), "7 8 9 10 11 12 13 14 15 16 17 ");
    page.key("End");
    page.key("Home", kCtrl);
    page.key(" ", kCtrl);
    EXPECT_EQ(page.selected(), "0 49 ");
    page.key("a", kCtrl);
    EXPECT_EQ(page.view->selectedIndexes().size(), 50u);
    page.key("ArrowUp");
    EXPECT_EQ(page.selected(), "0 ");
    page.key("x");
    page.key("a");
    EXPECT_EQ(page.selected(), "0 ");
}

TEST(TableView, headersSortAndResize) {
    Page page;
    page.fill(5);
    page.send("table", {{"a", "header"}, {"c", 1}});
    EXPECT_EQ(page.view->sortOrder(), DescendingOrder);
    EXPECT_EQ(asString(page.proxy.data(0, 1)), WString("rx00004"));
    page.send("table", {{"a", "header"}, {"c", 2}});
    EXPECT_EQ(page.view->sortColumn(), 2);
    EXPECT_EQ(page.view->sortOrder(), AscendingOrder);
    page.view->setSortingEnabled(1, false);
    page.send("table", {{"a", "header"}, {"c", 1}});
    EXPECT_EQ(page.view->sortColumn(), 2);

    page.send("table", {{"a", "width"}, {"c", 1}, {"w", 222}});
    EXPECT_EQ(page.view->columnWidth(1).toPixels(), 222);
    page.send("table", {{"a", "width"}, {"c", 2}, {"w", -5}});
    const std::vector<std::pair<int, double>> wanted{{1, 222}, {2, 8}};
    EXPECT_EQ(page.resizes, wanted);
    page.view->setColumnResizeEnabled(false);
    page.send("table", {{"a", "width"}, {"c", 1}, {"w", 100}});
    EXPECT_EQ(page.resizes, wanted);
}

TEST(TableView, hostileReportsDoNothing) {
    Page page;
    page.fill(5);
    page.session.takeOperations();
    for (const char* action : {"click", "dbl", "down", "up", "header", "width", "key", "", "nonsense"})
        for (const boost::json::value& bad :
             {boost::json::value(-1), boost::json::value(1e300), boost::json::value("x"),
              boost::json::value(), boost::json::value(boost::json::array{1}), boost::json::value(5)})
            page.send(
                "table",
                {{"a", action}, {"r", bad}, {"c", bad}, {"w", bad}, {"n", bad}, {"key", bad}, {"m", bad}});
    page.send("range", {{"first", -7}, {"page", 1e9}});
    page.send("range", {{"first", 1e9}, {"page", -1}});
    page.send("range", {});
    EXPECT_EQ(page.selected(), "");
    EXPECT_EQ(page.clicks, 0);
    EXPECT_TRUE(page.resizes.empty());
    page.fill(2000);
    EXPECT_LT(page.session.takeOperations().size(), 60'000u) << "a viewport is not believed beyond a limit";
}

TEST(TableView, aClickOnARowThatHasJustChangedIsNotTaken) {
    Page page;
    page.fill(5);
    page.session.takeOperations();
    page.click(3, 0, 1);
    EXPECT_EQ(page.selected(), "3 ");
    page.source.setData(4, 1, boost::any(std::string("a"))); // is the first row now
    page.session.takeOperations();
    page.click(0, 0, 1);
    EXPECT_EQ(page.selected(), "4 ") << "still the same record, one row further down";
}

TEST(TableView, selectionIsTold) {
    Page page;
    page.fill(5);
    page.view->setSelectedIndexes({page.proxy.index(1, 1), page.proxy.index(2, 0), page.source.index(3, 0)});
    EXPECT_EQ(page.selected(), "1 2 ") << "indexes of another model are not taken";
    EXPECT_EQ(page.selections, 1);
    page.view->setSelectedIndexes({page.proxy.index(1, 2), page.proxy.index(2, 1)});
    EXPECT_EQ(page.selections, 1) << "the same again";
    page.source.removeRows(1, 1);
    EXPECT_EQ(page.selected(), "1 ");
    EXPECT_EQ(page.selections, 2);
    page.source.removeRows(3, 1);
    EXPECT_EQ(page.selections, 2) << "not one of the selected";
    page.view->clearSelection();
    EXPECT_EQ(page.selections, 3);
    page.view->select(page.proxy.index(2, 0), ToggleSelect);
    EXPECT_EQ(page.selected(), "2 ");
    page.view->setSelectionMode(SingleSelection);
    EXPECT_EQ(page.selected(), "");
}

TEST(TableView, aDisabledTableScrollsAndTakesNoClick) {
    Page page;
    page.fill(500);
    page.view->disable();
    page.session.takeOperations();
    page.click(1);
    page.key("ArrowDown");
    page.send("table", {{"a", "header"}, {"c", 1}});
    EXPECT_EQ(page.selected(), "");
    EXPECT_EQ(page.view->sortOrder(), AscendingOrder);
    page.send("range", {{"first", 300}, {"page", 20}});
    EXPECT_NE(page.session.takeOperations().find("rx00310"), std::string::npos);
}

TEST(TableView, aHandlerMayDeleteTheView) {
    Page page;
    page.fill(5);
    page.view->selectionChanged().connect(std::bind([&page] {
        delete page.view;
        page.view = nullptr;
    }));
    page.click(1);
    EXPECT_EQ(page.view, nullptr);
    page.source.setData(0, 1, boost::any(std::string("z"))); // nobody listens any more
    EXPECT_EQ(page.clicks, 0);
}
