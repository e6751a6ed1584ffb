#include "test/TestSession.h"

#include <Wt/Test/WTestEnvironment.h>
#include <Wt/WApplication.h>
#include <Wt/WMenu.h>
#include <Wt/WStackedWidget.h>
#include <Wt/WTabWidget.h>
#include <Wt/WText.h>

#include <gtest/gtest.h>

using namespace Wt;

namespace {

struct Page {
    Test::WTestEnvironment environment;
    WApplication application{environment};
    Impl::TestSession& session = Impl::TestSession::current();
};

struct Tabs : Page {
    WTabWidget* tabs = new WTabWidget(application.root());
    WText* pages[3];
    std::vector<int> told;

    Tabs() {
        for (int i = 0; i < 3; ++i) {
            pages[i] = new WText("page" + std::to_string(i));
            tabs->addTab(pages[i], "tab" + std::to_string(i));
        }
        tabs->currentChanged().connect([this](int index) { told.push_back(index); });
    }
    void click(int index) { session.browserEvent(*tabs->itemAt(index), "click"); }
};

} // namespace

TEST(TabWidget, preloadedContentsAreInThePageFromTheStartAndOthersWhenShown) {
    Page page;
    auto* tabs = new WTabWidget(page.application.root());
    tabs->addTab(new WText("first"), "1");
    auto* lazy = new WContainerWidget;
    new WText("lazy", lazy);
    tabs->addTab(lazy, "2", WTabWidget::LazyLoading);
    auto* eager = new WContainerWidget;
    auto* text = new WText("eager", eager);
    tabs->addTab(eager, "3", WTabWidget::PreLoading);
    std::string sent = page.session.takeOperations();
    EXPECT_EQ(sent.find("\"lazy\""), sent.npos);
    EXPECT_NE(sent.find("\"eager\""), sent.npos);
    text->setText("later"); // nobody sees it yet
    EXPECT_EQ(page.session.takeOperations(), "");
    tabs->setCurrentIndex(2);
    sent = page.session.takeOperations();
    EXPECT_NE(sent.find("\"later\""), sent.npos);
    EXPECT_EQ(sent.find("[\"c\""), sent.npos) << "nothing is made when it is shown";
}

TEST(StackedWidget, oneChildShows) {
    Page page;
    auto* stack = new WStackedWidget(page.application.root());
    EXPECT_EQ(stack->currentIndex(), -1);
    EXPECT_EQ(stack->currentWidget(), nullptr);
    WText* texts[4];
    for (auto& text : texts) stack->addWidget(text = new WText("x"));
    const auto shown = [&] {
        std::string which;
        for (int i = 0; i < stack->count(); ++i)
            if (!stack->widget(i)->isHidden()) which += std::to_string(i);
        return which;
    };
    EXPECT_EQ(shown(), "0");
    stack->setCurrentIndex(2);
    EXPECT_EQ(shown(), "2");
    stack->setCurrentIndex(7);
    EXPECT_EQ(shown(), "2");
    stack->insertWidget(0, new WText("new"));
    EXPECT_EQ(stack->currentWidget(), texts[2]);
    EXPECT_EQ(shown(), "3");
    delete texts[0];
    EXPECT_EQ(shown(), "2");
    delete texts[2]; // the one that shows
    EXPECT_EQ(stack->currentWidget(), texts[3]);
    EXPECT_EQ(shown(), "2");
    delete texts[3];
    EXPECT_EQ(shown(), "1");
}

TEST(TabWidget, contentsAreSentWhenFirstShown) {
    Tabs page;
    std::string sent = page.session.takeOperations();
    EXPECT_NE(sent.find("page0"), std::string::npos);
    EXPECT_NE(sent.find("tab2"), std::string::npos);
    page.click(2);
    EXPECT_EQ(page.tabs->currentIndex(), 2);
    EXPECT_EQ(page.told, std::vector<int>{2});
    page.click(2);
    page.tabs->setCurrentIndex(2);
    EXPECT_EQ(page.told, std::vector<int>{2}) << "no change";
    page.tabs->setCurrentWidget(page.pages[1]);
    EXPECT_EQ(page.told, (std::vector<int>{2, 1}));
    page.session.takeOperations();
    page.click(2);
    sent = page.session.takeOperations();
    EXPECT_EQ(sent.find("page2"), std::string::npos) << "it is in the page already: " << sent;
}

TEST(TabWidget, disabledHiddenAndRemovedTabs) {
    Tabs page;
    page.tabs->setTabEnabled(1, false);
    page.session.takeOperations();
    page.click(1);
    EXPECT_EQ(page.tabs->currentIndex(), 0);
    page.tabs->setTabHidden(2, true);
    page.session.takeOperations();
    page.click(2);
    EXPECT_EQ(page.tabs->currentIndex(), 0);
    page.tabs->setTabHidden(2, false);
    page.tabs->removeTab(page.pages[0]);
    EXPECT_EQ(page.tabs->currentWidget(), page.pages[2]) << "the next one that can be used";
    EXPECT_EQ(page.told, std::vector<int>{1});
    EXPECT_EQ(page.pages[0]->parent(), nullptr);
    delete page.pages[0];
    EXPECT_EQ(page.tabs->count(), 2);
    page.tabs->setTabCloseable(1, true);
    page.tabs->closeTab(1);
    EXPECT_TRUE(page.tabs->isTabHidden(1));
    page.tabs->removeTab(page.pages[1]);
    page.tabs->removeTab(page.pages[1]);
    delete page.pages[1];
    EXPECT_EQ(page.tabs->count(), 1);
}

TEST(TabWidget, textOfATabChangesAlone) {
    Tabs page;
    page.session.takeOperations();
    page.tabs->itemAt(1)->setText("tab1*");
    EXPECT_EQ(page.tabs->tabText(1), WString("tab1*"));
    const std::string sent = page.session.takeOperations();
    EXPECT_NE(sent.find("tab1*"), std::string::npos);
    EXPECT_EQ(sent.find("tab0"), std::string::npos) << sent;
}

TEST(TabWidget, aHandlerMayDeleteIt) {
    Tabs page;
    page.session.takeOperations();
    page.tabs->currentChanged().connect(std::bind([&page] { delete page.tabs; }));
    page.click(1);
    page.session.takeOperations();
}

TEST(Menu, selectsWithoutAStack) {
    Page page;
    auto* menu = new WMenu(page.application.root());
    WMenuItem* first = menu->addItem("first");
    WMenuItem* second = menu->addItem("second");
    std::vector<WMenuItem*> told;
    menu->itemSelected().connect([&](WMenuItem* item) { told.push_back(item); });
    EXPECT_EQ(menu->currentIndex(), -1);
    page.session.browserEvent(*second, "click");
    EXPECT_TRUE(second->isSelected());
    first->select();
    EXPECT_EQ(told, (std::vector<WMenuItem*>{second, first}));
    delete first;
    EXPECT_EQ(menu->count(), 1);
    EXPECT_EQ(menu->currentItem(), second);
}
