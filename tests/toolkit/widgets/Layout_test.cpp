#include "tests/toolkit/support/PageSession.h"

#include <Wt/WGridLayout>
#include <Wt/WHBoxLayout>
#include <Wt/WText>
#include <Wt/WVBoxLayout>

#include <gtest/gtest.h>

namespace {

using namespace toolkit_test;

/// Takes the size that the layout gives, as the product's panels do.
struct Panel : Wt::WContainerWidget {
    Panel() { setLayoutSizeAware(true); }
    void layoutSizeChanged(int, int height) override {
        ++reports;
        setLayoutSizeAware(false);
        setHeight(Wt::WLength(height));
        setLayoutSizeAware(true);
    }
    int reports = 0;
};

std::string style(PageSession& s, const Wt::WWebWidget& widget, const char* name) {
    return s.sink.page.value(static_cast<int>(widget.nodeId()), std::string("s.") + name);
}

TEST(Layout, a_size_that_a_panel_gives_back_does_not_fix_it) {
    PageSession s;
    auto* column = new Wt::WVBoxLayout;
    auto* panel = new Panel;
    column->addWidget(panel, 1);
    s.root()->setLayout(column);
    s.flush();
    s.event(*panel, "size", R"("w":100,"h":300)");
    EXPECT_EQ(s.flush(), "") << "the panel has that height already";
    EXPECT_EQ(panel->height(), Wt::WLength(300));
    s.event(*panel, "size", R"("w":100,"h":300)");
    EXPECT_EQ(panel->reports, 1) << "nothing new was told";
    panel->setHeight(Wt::WLength(24));
    s.flush();
    EXPECT_EQ(style(s, *panel, "height"), "\"24px\"") << "a wish of its own holds";
}

TEST(Layout, dragging_a_divider_sizes_the_item_in_front) {
    PageSession s;
    auto* column = new Wt::WVBoxLayout;
    auto* upper = new Panel;
    upper->setHeight(Wt::WLength(180));
    auto* inner = new Wt::WHBoxLayout;
    auto* text = new Wt::WText("x");
    inner->addWidget(text);
    column->addWidget(upper);
    column->addLayout(inner);
    column->addWidget(new Wt::WText("y"), 1);
    column->setResizable(0);
    column->setResizable(1);
    s.root()->setLayout(column);
    s.flush();
    const auto* root = s.sink.page.find(static_cast<int>(s.root()->nodeId()));
    ASSERT_EQ(root->children.size(), 5U); // three items, two dividers
    const auto drag = [&](int index, const char* size) {
        s.browser("[{\"t\":" + std::to_string(root->children[static_cast<std::size_t>(index)]->id) +
                  ",\"k\":\"resized\",\"px\":" + size + "}]");
        s.flush();
    };
    drag(1, "250");
    EXPECT_EQ(upper->height(), Wt::WLength(250));
    EXPECT_EQ(style(s, *upper, "flex"), "\"0 0 auto\"");
    s.event(*upper, "size", R"("w":100,"h":250)");
    s.flush();
    EXPECT_EQ(style(s, *upper, "height"), "\"250px\"") << "the user's size stays";
    drag(3, "90");
    EXPECT_EQ(s.sink.page.value(root->children[2]->id, "s.flex"), "\"0 0 90px\"");
    for (const char* bad : {"-1", "1e9", "\"x\"", "null"}) drag(1, bad);
    EXPECT_EQ(upper->height(), Wt::WLength(250));
}

TEST(Layout, widgets_and_layouts_can_leave_and_come_back) {
    PageSession s;
    auto* box = new Wt::WContainerWidget(s.root());
    auto* row = new Wt::WHBoxLayout;
    auto* inner = new Wt::WVBoxLayout;
    auto* a = new Wt::WText("a");
    auto* b = new Wt::WText("b");
    row->addWidget(a, 1, Wt::AlignTop);
    row->addLayout(inner);
    box->setLayout(row);
    inner->addWidget(b); // into a layout that is in the page already
    row->addStretch(2);
    s.flush();
    EXPECT_EQ(a->parent(), box);
    EXPECT_EQ(b->parent(), box);
    EXPECT_EQ(style(s, *a, "align-self"), "\"start\"");
    delete b;
    EXPECT_EQ(inner->count(), 0);
    row->removeWidget(a);
    EXPECT_EQ(a->parent(), nullptr);
    s.root()->addWidget(a);
    s.flush();
    EXPECT_EQ(style(s, *a, "align-self"), "") << "it is in no layout any more";
    box->setLayout(nullptr);
    box->addWidget(new Wt::WText("c"));
    EXPECT_NO_THROW(s.flush());
    EXPECT_EQ(s.flush(), "");
    delete box;
    EXPECT_NO_THROW(s.flush());
}

TEST(Layout, a_grid_places_spans_and_stretches) {
    PageSession s;
    auto* grid = new Wt::WGridLayout;
    auto* wide = new Wt::WText("w");
    auto* list = new Wt::WContainerWidget;
    list->setHeight(Wt::WLength(260));
    grid->addWidget(wide, 0, 0, 1, 2, Wt::AlignRight | Wt::AlignMiddle);
    grid->addWidget(list, 1, 1);
    grid->setColumnStretch(1, 3);
    grid->setRowResizable(1);
    s.root()->setLayout(grid);
    s.flush();
    EXPECT_EQ(style(s, *wide, "grid-column"), "\"1 / span 2\"");
    EXPECT_EQ(style(s, *wide, "justify-self"), "\"end\"");
    EXPECT_EQ(style(s, *wide, "align-self"), "\"center\"");
    EXPECT_EQ(style(s, *s.root(), "grid-template-columns"), "\"auto minmax(0,3fr)\"");
    EXPECT_EQ(style(s, *list, "height"), "\"260px\"");
    const auto* root = s.sink.page.find(static_cast<int>(s.root()->nodeId()));
    s.browser("[{\"t\":" + std::to_string(root->children.back()->id) + R"(,"k":"resized","px":70}])");
    s.flush();
    EXPECT_EQ(style(s, *list, "height"), "\"70px\"");
}

} // namespace
