// A page that is loaded anew, and the internal path in its address.
#include "tests/toolkit/support/PageSession.h"

#include <Wt/WCssTheme>
#include <Wt/WDialog>
#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WStandardItemModel>
#include <Wt/WTableView>
#include <Wt/WTimer>

#include <gtest/gtest.h>

#include <regex>

namespace {

using namespace toolkit_test;

std::size_t times(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += part.size()) ++count;
    return count;
}

TEST(Reload, shows_everything_once_more_with_what_was_typed) {
    PageSession s;
    s.application->setTitle("title");
    s.application->useStyleSheet(std::string("a.css"));
    s.application->setConfirmCloseMessage("sure?");
    auto* field = new Wt::WLineEdit(s.root());
    auto* button = new Wt::WPushButton("b", s.root());
    auto* running = new Wt::WTimer(s.application);
    running->setInterval(5000);
    running->start();
    auto* stopped = new Wt::WTimer(s.application);
    stopped->setInterval(7000);
    stopped->start();
    int clicks = 0;
    button->clicked().connect([&] { ++clicks; });
    s.flush();
    stopped->stop();
    const std::string id = std::to_string(field->nodeId());
    s.browser(R"([{"k":"values","f":)" + id + R"(,"v":{"o)" + id + R"(":"typed"}}])");
    EXPECT_EQ(field->text().toUTF8(), "typed");
    s.flush();

    s.reload(2);
    EXPECT_EQ(s.sink.loaded, 2u);
    const std::string shown = s.sink.last;
    for (const char* part : {R"("typed")", R"(["title","title"])", R"(["css","a.css"])",
                             R"(["confirm","sure?"])", R"(,5000,0])"})
        EXPECT_EQ(times(shown, part), 1u) << part << " in " << shown;
    EXPECT_EQ(times(shown, "7000"), 0u) << "of a timer that does not run";
    EXPECT_NE(shown.find("[\"focus\"," + id + "]"), std::string::npos);
    EXPECT_EQ(s.flush(), "") << "and nothing twice";
    s.event(*button, "click");
    EXPECT_EQ(clicks, 1) << "elements have the names they had";
    s.reload(3);
    EXPECT_EQ(times(s.sink.last, R"("typed")"), 1u);
}

TEST(Reload, a_list_stands_where_it_stood) {
    PageSession s;
    Wt::WStandardItemModel model(500, 1);
    auto* view = new Wt::WTableView(s.root());
    view->setModel(&model);
    const std::string shown = s.flush();
    std::smatch table;
    ASSERT_TRUE(std::regex_search(shown, table, std::regex(R"("i":(\d+),"t":"div","b":\["table")"))) << shown;
    for (const int first : {0, 300}) {
        s.browser(R"([{"k":"range","page":10,"t":)" + table[1].str() + R"(,"first":)" +
                  std::to_string(first) + "}]");
        s.flush();
        s.reload(static_cast<std::uint64_t>(first) + 2);
        EXPECT_EQ(s.sink.last.find(R"("scroll",[300,1])") != std::string::npos, first > 0);
    }
}

TEST(InternalPath, goes_to_the_address_and_comes_from_it) {
    PageSession s;
    std::string changed;
    s.application->internalPathChanged().connect([&](const std::string& path) { changed += path + " "; });
    s.flush();
    EXPECT_EQ(s.application->internalPath(), "/");
    s.application->setInternalPath("/a");
    s.application->setInternalPath("b/\xc3\xa9", true);
    EXPECT_EQ(s.flush(), "[[\"path\",\"/b/\xc3\xa9\"]]") << "the last one counts";
    EXPECT_EQ(changed, "/b/\xc3\xa9 ");
    EXPECT_EQ(s.application->bookmarkUrl(), "/?_=/b/%C3%A9");
    s.application->setInternalPath("/a");
    s.application->setInternalPath("/b/\xc3\xa9");
    EXPECT_EQ(s.flush(), "");

    changed.clear();
    s.browser(R"([{"k":"path","p":"/a"}])"); // Back
    EXPECT_EQ(changed, "/a ");
    EXPECT_EQ(s.application->internalPath(), "/a");
    EXPECT_EQ(s.flush(), "") << "the browser is there already";
    for (const std::string& hostile : {std::string(""), std::string("a"), std::string(3000, '/')})
        s.browser(R"([{"k":"path","p":")" + hostile + R"("},{"k":"path"},{"k":"path","p":7}])");
    s.browser(R"([{"k":"path","p":"/a"}])");
    EXPECT_EQ(changed, "/a ");

    s.reload(2, "/from/the/address");
    EXPECT_EQ(changed, "/a /from/the/address ");
    s.reload(3);
    EXPECT_EQ(changed, "/a /from/the/address ") << "a page without a path says nothing";
}

TEST(InternalPath, a_modal_dialog_holds_the_user_where_he_is) {
    PageSession s;
    s.application->setInternalPath("/a");
    s.flush();
    Wt::WDialog dialog("d");
    dialog.show();
    s.flush();
    s.browser(R"([{"k":"path","p":"/b"}])");
    EXPECT_EQ(s.application->internalPath(), "/a");
    EXPECT_EQ(s.flush(), R"([["path","/a"]])") << "and the address goes back";
    dialog.hide();
    s.flush();
    s.browser(R"([{"k":"path","p":"/b"}])");
    EXPECT_EQ(s.application->internalPath(), "/b");
}

} // namespace
