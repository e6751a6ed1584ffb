#include "tests/toolkit/support/PageSession.h"

#include <Wt/WAnimation>
#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WTableRow>
#include <Wt/WText>

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace toolkit_test;

TEST(Renderer, sends_what_differs_from_the_page_and_nothing_else) {
    PageSession s;
    auto* text = new Wt::WText("a", s.root());
    EXPECT_FALSE(s.flush().empty());
    EXPECT_EQ(s.flush(), "");

    text->setText("b");
    text->setStyleClass("k");
    text->setStyleClass("");
    text->setText("a");
    text->setHidden(true);
    text->setHidden(false);
    EXPECT_EQ(s.flush(), "") << "A, B, A within one event";

    const std::string id = std::to_string(text->nodeId());
    text->setText("c");
    EXPECT_EQ(s.flush(), R"([["u",)" + id + R"(,{"x":"c"}]])");
    text->setToolTip("t");
    text->resize(Wt::WLength(5), Wt::WLength::Auto);
    EXPECT_EQ(s.flush(), R"([["u",)" + id + R"(,{"a":{"title":"t"},"s":{"width":"5px"}}]])");
    text->setToolTip("");
    text->resize(Wt::WLength::Auto, Wt::WLength::Auto);
    EXPECT_EQ(s.flush(), R"([["u",)" + id + R"(,{"a":{"title":null},"s":{"width":null}}]])");
}

TEST(Renderer, what_is_hidden_from_the_start_comes_when_it_is_shown) {
    PageSession s;
    auto* box = new Wt::WContainerWidget(s.root());
    auto* text = new Wt::WText("secret", box);
    box->hide();
    EXPECT_EQ(s.flush().find("secret"), std::string::npos);
    text->setText("changed");
    EXPECT_EQ(s.flush(), "");
    box->show();
    EXPECT_NE(s.flush().find("changed"), std::string::npos);
    box->hide();
    text->setText("later");
    EXPECT_EQ(s.flush().find("later"), std::string::npos);
    box->show();
    EXPECT_NE(s.flush().find("later"), std::string::npos);
}

TEST(Renderer, a_new_tag_makes_a_new_element_in_the_same_place) {
    PageSession s;
    auto* first = new Wt::WText("a", s.root());
    auto* second = new Wt::WText("b", s.root());
    s.flush();
    const std::string before = s.sink.page.outline();
    first->setInline(false);
    s.flush();
    std::string want = before;
    const std::string name = "span" + std::to_string(first->nodeId());
    want.replace(want.find(name), 4, "div");
    EXPECT_EQ(s.sink.page.outline(), want);
    EXPECT_TRUE(second->isRendered());
}

TEST(Renderer, table_cells_that_are_covered_are_not_shown) {
    PageSession s;
    auto* table = new Wt::WTable(s.root());
    table->elementAt(1, 2);
    table->elementAt(0, 0)->setColumnSpan(2);
    table->elementAt(0, 2)->setRowSpan(2);
    s.flush();
    EXPECT_EQ(s.sink.page.find(static_cast<int>(table->rowAt(0)->nodeId()))->children.size(), 2U);
    EXPECT_EQ(s.sink.page.find(static_cast<int>(table->rowAt(1)->nodeId()))->children.size(), 2U);
    table->insertRow(0);
    table->deleteColumn(1);
    table->rowAt(2)->hide();
    s.flush();
    EXPECT_EQ(s.sink.page.find(static_cast<int>(table->nodeId()))->children.size(), 3U);
}

/// The tree as the widgets stand, in the form of PageModel::outline().
void outlineOf(const Wt::WContainerWidget& box, std::string& out) {
    out += "div" + std::to_string(box.nodeId());
    if (box.isHidden() || box.count() == 0) return;
    out += '(';
    for (int i = 0; i < box.count(); ++i) {
        if (i) out += ' ';
        outlineOf(*dynamic_cast<Wt::WContainerWidget*>(box.widget(i)), out);
    }
    out += ')';
}

// Boxes come, go and move at random; the page must follow, and never be told of an element
// that it does not have.
TEST(Renderer, the_page_follows_whatever_happens_to_the_tree) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        PageSession s;
        std::mt19937 random(seed);
        std::vector<Wt::WContainerWidget*> boxes = {new Wt::WContainerWidget(s.root())};
        const auto pick = [&] { return boxes[random() % boxes.size()]; };
        for (int step = 0; step < 60; ++step) {
            Wt::WContainerWidget* box = pick();
            switch (random() % 5) {
            case 0:
            case 1:
                boxes.push_back(new Wt::WContainerWidget);
                box->insertWidget(static_cast<int>(random() % 4), boxes.back());
                break;
            case 2: { // move, but not into itself
                Wt::WWidget* target = pick();
                for (Wt::WWidget* at = target; at && target; at = at->parent())
                    if (at == box) target = nullptr;
                if (target && box != boxes[0])
                    dynamic_cast<Wt::WContainerWidget*>(target)->insertWidget(static_cast<int>(random() % 4),
                                                                              box);
                break;
            }
            case 3:
                if (box != boxes[0] && box->count() == 0) {
                    std::erase(boxes, box);
                    delete box;
                }
                break;
            case 4:
                box->setStyleClass(random() % 2 ? "x" : "y");
                break;
            }
            if (random() % 3 == 0) {
                ASSERT_NO_THROW(s.flush()) << "seed " << seed << " step " << step;
            }
        }
        ASSERT_NO_THROW(s.flush()) << "seed " << seed;
        std::string want;
        outlineOf(*boxes[0], want);
        EXPECT_NE(s.sink.page.outline().find(want), std::string::npos) << "seed " << seed << "\n"
                                                                       << want << "\n"
                                                                       << s.sink.page.outline();
        EXPECT_EQ(s.flush(), "") << "seed " << seed;
    }
}

TEST(Renderer, thousands_of_names_of_attributes_keep_apart) {
    PageSession s;
    std::vector<Wt::WContainerWidget*> boxes;
    for (int i = 0; i < 100; ++i) {
        boxes.push_back(new Wt::WContainerWidget(s.root()));
        for (int k = 0; k < 60; ++k)
            boxes.back()->setAttributeValue("data-" + std::to_string(i * 60 + k), std::to_string(k));
    }
    s.flush();
    for (int i : {0, 68, 99})
        for (int k : {0, 59})
            EXPECT_EQ(s.sink.page.value(static_cast<int>(boxes[i]->nodeId()),
                                        "a.data-" + std::to_string(i * 60 + k)),
                      "\"" + std::to_string(k) + "\"");
}

} // namespace
