#include "frame/FoldedPane.h"
#include "frame/WCollapsingContextPanel.h"
#include "frame/WNavAccordion.h"
#include "frame/WNavAccordionStdCell.h"
#include "tests/frame/PlainApp.h"
#include "tests/frame/WidgetSearch.h"

#include <Wt/WVBoxLayout>

#include <gtest/gtest.h>

namespace {

struct Panel : WCollapsingContextPanel {
    Panel(HeightType type, int height, Wt::WContainerWidget* parent)
        : WCollapsingContextPanel("panel", type, height, parent), content(new Wt::WText("content")) {
        setContent(content, 1, Wt::AlignJustify);
    }
    using WCollapsingContextPanel::layoutSizeChanged;

    double pixels() const { return height().toPixels(); }

    Wt::WText* content;
};

TEST(CollapsingContextPanel, FoldsBelowNinetyPixelsAndUnfoldsFromThere) {
    const struct {
        int before, after;
        bool collapsed;
        double height;
    } rows[] = {
        {200, 90, false, 90}, {200, 89, true, 24}, {200, 0, true, 24},
        {50, 89, true, 24},   {50, 90, false, 90}, {50, 400, false, 400},
    };
    for (const auto& row : rows) {
        PlainApp app;
        Panel panel(WCollapsingContextPanel::ResizableHeight, 260, app.application.root());
        panel.layoutSizeChanged(100, row.before);
        panel.layoutSizeChanged(100, row.after);
        EXPECT_EQ(panel.isCollapsed(), row.collapsed) << row.before << " to " << row.after;
        EXPECT_EQ(panel.pixels(), row.height) << row.before << " to " << row.after;
        EXPECT_EQ(panel.content->isHidden(), row.collapsed) << row.before << " to " << row.after;
    }
}

TEST(CollapsingContextPanel, UnfoldsToTheLastGoodHeightOrToTheFixedOne) {
    PlainApp app;
    Panel resizable(WCollapsingContextPanel::ResizableHeight, 260, app.application.root());
    resizable.layoutSizeChanged(100, 310);
    resizable.layoutSizeChanged(100, 60); // folds
    resizable.titleButtonClicked();
    EXPECT_EQ(resizable.pixels(), 310);

    Panel fixed(WCollapsingContextPanel::FixedHeight, 260, app.application.root());
    fixed.layoutSizeChanged(100, 310);
    fixed.layoutSizeChanged(100, 60);
    EXPECT_FALSE(fixed.isCollapsed()) << "a fixed panel folds by a click alone";
    fixed.setHeight(Wt::WLength(400));
    fixed.titleButtonClicked();
    EXPECT_EQ(fixed.pixels(), 24);
    fixed.titleButtonClicked();
    EXPECT_EQ(fixed.pixels(), 260);
}

TEST(CollapsingContextPanel, ASizeFromBeforeAClickDoesNotUndoIt) {
    PlainApp app;
    Panel panel(WCollapsingContextPanel::ResizableHeight, 260, app.application.root());
    panel.titleButtonClicked();
    panel.titleButtonClicked();
    panel.layoutSizeChanged(100, 24); // of the first click
    EXPECT_FALSE(panel.isCollapsed());
    panel.layoutSizeChanged(100, 260);
    panel.titleButtonClicked();
    panel.layoutSizeChanged(100, 259);
    EXPECT_TRUE(panel.isCollapsed());
    panel.layoutSizeChanged(100, 24);
    panel.layoutSizeChanged(100, 200); // dragged open
    EXPECT_FALSE(panel.isCollapsed());
    panel.layoutSizeChanged(100, 30);
    EXPECT_TRUE(panel.isCollapsed());
}

TEST(CollapsingContextPanel, ContentHiddenByTheViewStaysHiddenThroughAFold) {
    PlainApp app;
    Panel panel(WCollapsingContextPanel::ResizableHeight, 260, app.application.root());
    panel.hideContent();
    panel.titleButtonClicked();
    panel.titleButtonClicked();
    EXPECT_FALSE(panel.isCollapsed());
    EXPECT_TRUE(panel.content->isHidden());
    panel.showContent();
    EXPECT_FALSE(panel.content->isHidden());
}

TEST(CollapsingContextPanel, FoldsWithoutContent) {
    PlainApp app;
    WCollapsingContextPanel panel("panel", WCollapsingContextPanel::FixedHeight, 200, app.application.root());
    panel.hideContent();
    panel.titleButtonClicked();
    panel.titleButtonClicked();
    EXPECT_FALSE(panel.isCollapsed());
}

TEST(CollapsingContextPanel, AListAboveGetsItsHeightBackWhenThePaneUnfolds) {
    PlainApp app;
    auto* column = new Wt::WVBoxLayout;
    auto* list = new Wt::WContainerWidget;
    list->setHeight(Wt::WLength(180));
    auto* pane = new Panel(WCollapsingContextPanel::FixedHeight, 555, nullptr);
    column->addWidget(list);
    column->addWidget(pane, 1);
    app.application.root()->setLayout(column);
    giveRoomWhenFolded(*pane, *column, *list);

    list->setHeight(Wt::WLength(240)); // by the divider
    pane->titleButtonClicked();
    list->setHeight(Wt::WLength(700)); // what the layout gave it meanwhile
    pane->titleButtonClicked();
    EXPECT_EQ(list->height(), Wt::WLength(240));
    EXPECT_EQ(pane->height(), Wt::WLength(555));
}

TEST(NavAccordion, ASectionFoldsByItsTitleAndTheOthersStay) {
    PlainApp app;
    WNavAccordion accordion(app.application.root());
    auto* first = new WNavAccordionStdCell("Go", "goes");
    auto* second = new WNavAccordionStdCell("Stop", "stops");
    accordion.sectionAdd("First", first);
    accordion.sectionAdd("Second", second);
    const auto titles = widgetsIn<WNavAccordionTitleButton>(&accordion);
    ASSERT_EQ(titles.size(), 2u);
    click(titles[0]);
    EXPECT_TRUE(first->isHidden());
    EXPECT_FALSE(second->isHidden());
    click(titles[0]);
    EXPECT_FALSE(first->isHidden());
}

} // namespace
