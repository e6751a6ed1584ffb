// Events of a browser: what they reach, and what is dropped.
#include "tests/toolkit/support/PageSession.h"
#include "web/PageNode.h"

#include <Wt/WCheckBox>
#include <Wt/WComboBox>
#include <Wt/WDialog>
#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WText>
#include <Wt/WTextArea>
#include <Wt/WTimer>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace toolkit_test;

std::string idOf(const Wt::Impl::RenderNode& node) {
    return "\"o" + std::to_string(node.nodeId()) + "\"";
}

std::string valueOf(const Wt::Impl::RenderNode& node, const std::string& json) {
    return "\"v\":{" + idOf(node) + ":" + json + "}";
}

TEST(Session, values_are_there_before_handlers_and_are_not_sent_back) {
    PageSession s;
    auto* field = new Wt::WLineEdit(s.root());
    field->setMaxLength(5);
    auto* area = new Wt::WTextArea(s.root());
    auto* button = new Wt::WPushButton("b", s.root());
    std::string seen;
    button->clicked().connect([&] { seen = field->text().toUTF8() + "|" + area->text().toUTF8(); });
    s.flush();
    s.event(*button, "click",
            "\"v\":{" + idOf(*field) + ":\"abc\"," + idOf(*area) +
                ":\"x\\r\\ny\"},\"f\":" + std::to_string(field->nodeId()));
    EXPECT_EQ(seen, "abc|x\ny");
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(s.flush().find("abc"), std::string::npos);

    field->setText("abc");
    EXPECT_EQ(s.flush(), "") << "the browser shows that already";
    s.event(*button, "click", valueOf(*field, "\"toolong\\n\""));
    EXPECT_EQ(field->text().toUTF8(), "toolo");
    EXPECT_NE(s.flush().find("\"toolo\""), std::string::npos) << "the browser shows something else";
}

TEST(Session, what_is_selected_in_a_field_is_known_while_it_has_the_focus) {
    PageSession s;
    auto* area = new Wt::WTextArea("a\nm\xC3\xBCnze", s.root());
    area->setReadOnly(true);
    auto* line = new Wt::WLineEdit("m\xC3\xBCnze", s.root());
    auto* button = new Wt::WPushButton("b", s.root());
    std::string seen;
    const auto tell = [&seen](const auto& field) {
        seen += std::to_string(field.selectionStart()) + "'" + field.selectedText().toUTF8() + "'" +
                std::to_string(field.cursorPosition()) + (field.hasSelectedText() ? "! " : " ");
    };
    button->clicked().connect([&] {
        tell(*area);
        tell(*line);
    });
    s.flush();
    const std::string inArea = "\"f\":" + std::to_string(area->nodeId());
    const std::string inLine = "\"f\":" + std::to_string(line->nodeId());
    const std::string none = "-1''-1 ";
    const struct {
        std::string event, seen;
    } rows[] = {
        {inArea + ",\"s\":[2,5]", "2'm\xC3\xBCn'5! " + none},
        {"\"x\":0", "2'm\xC3\xBCn'5! " + none}, // tells nothing of the focus
        {inArea + ",\"s\":[4,4]", "-1''4 " + none},
        {inArea, none + none},
        {inLine + ",\"s\":[0,2]", none + "0'm\xC3\xBC'2! "},
        {inLine + ",\"s\":[4,900]", none + "4'e'900! "},
        {inLine + ",\"s\":[700,900]", none + "700''900! "},
        {inLine + ",\"s\":[3,2]", none + none},
        {inLine + ",\"s\":[-3,2]", none + none},
        {inLine + ",\"s\":[1]", none + none},
        {inLine + ",\"s\":[1,2,3]", none + none},
        {inLine + ",\"s\":[\"a\",2]", none + none},
        {inLine + ",\"s\":{}", none + none},
        {"\"f\":0,\"s\":[1,2]", none + none},
    };
    for (const auto& row : rows) {
        seen.clear();
        s.event(*button, "click", row.event);
        EXPECT_EQ(seen, row.seen) << row.event;
    }
    s.event(*button, "click", inArea + ",\"s\":[0,5]");
    line->setFocus();
    EXPECT_FALSE(line->hasSelectedText()) << "what was selected elsewhere";
}

TEST(Session, hostile_events_do_nothing) {
    PageSession s;
    auto* field = new Wt::WLineEdit("keep", s.root());
    auto* check = new Wt::WCheckBox("c", s.root());
    auto* combo = new Wt::WComboBox(s.root());
    combo->addItem("one");
    auto* button = new Wt::WPushButton("b", s.root());
    auto* disabled = new Wt::WPushButton("d", s.root());
    auto* hidden = new Wt::WPushButton("h", s.root());
    int calls = 0;
    for (auto* one : {button, disabled, hidden}) one->clicked().connect([&] { ++calls; });
    disabled->disable();
    s.flush();
    hidden->hide();
    s.flush();
    const std::string b = std::to_string(button->nodeId());
    const std::string rows[] = {
        "{}",
        "[]",
        "null",
        "7",
        "[1,\"x\",null,[[]]]",
        R"([{"t":"x","k":"click"}])",
        R"([{"t":-1,"k":"click"}])",
        R"([{"t":1e300,"k":"click"}])",
        R"([{"t":)" + b + R"(}])",
        R"([{"t":)" + b + R"(,"k":7}])",
        R"([{"t":)" + b + R"(,"k":"dblclick"}])",
        R"([{"t":)" + b + R"(,"k":"keyup","c":"x"}])",
        R"([{"k":"timer","t":1}])",
        R"([{"k":"size","t":)" + b + R"(,"w":-5,"h":"a"}])",
        R"([{"t":)" + std::to_string(disabled->nodeId()) + R"(,"k":"click"}])",
        R"([{"t":)" + std::to_string(hidden->nodeId()) + R"(,"k":"click"}])",
        R"([{"v":{"o1":7,"":"x","o99999999999999":"y","p":null}}])",
        "[{\"v\":{" + idOf(*field) + ":{\"a\":1}}}]",
        "[{\"v\":" + idOf(*field) + "}]",
        "[{\"v\":{" + idOf(*combo) + ":5}}]",
        "[{\"v\":{" + idOf(*combo) + ":-7}}]",
        "[{\"v\":{" + idOf(*combo) + ":1e9}}]",
        "[{\"f\":\"x\"}]",
        "[{\"f\":-3}]",
    };
    for (const std::string& row : rows) EXPECT_NO_THROW(s.browser(row)) << row;
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(field->text().toUTF8(), "keep");
    EXPECT_EQ(combo->currentIndex(), 0);
    EXPECT_EQ(check->checkState(), Wt::Unchecked);
    s.event(*button, "click", R"("x":1e99,"m":-1,"b":77)");
    EXPECT_EQ(calls, 1);
}

TEST(Session, a_timer_is_told_as_it_stands_at_the_end_and_late_timeouts_are_dropped) {
    PageSession s;
    s.flush();
    int fired = 0;
    auto timer = std::make_unique<Wt::WTimer>();
    timer->setInterval(500);
    timer->timeout().connect([&] { ++fired; });
    timer->start();
    timer->stop();
    EXPECT_EQ(s.flush(), "");
    timer->start();
    timer->start();
    EXPECT_EQ(s.flush(), R"([["timer",3,500,0]])");
    s.browser(R"([{"k":"timer","t":3},{"k":"timer","t":3},{"k":"timer","t":2}])");
    EXPECT_EQ(fired, 2);
    timer->setSingleShot(true);
    timer->start();
    EXPECT_EQ(s.flush(), R"([["stop",3],["timer",4,500,1]])");
    s.browser(R"([{"k":"timer","t":4},{"k":"timer","t":4},{"k":"timer","t":3}])");
    EXPECT_EQ(fired, 3);
    EXPECT_FALSE(timer->isActive());
    timer->start();
    s.flush();
    timer.reset();
    s.browser(R"([{"k":"timer","t":5}])");
    EXPECT_EQ(fired, 3);
    EXPECT_EQ(s.flush(), R"([["stop",5]])");
}

TEST(Session, a_handler_may_delete_its_own_widget) {
    PageSession s;
    auto* button = new Wt::WPushButton("b", s.root());
    auto* check = new Wt::WCheckBox("c", s.root());
    auto* combo = new Wt::WComboBox(s.root());
    combo->addItem("x");
    button->clicked().connect([&] { delete button; });
    check->checked().connect([&] { delete check; });
    check->changed().connect([] { FAIL() << "the box is gone"; });
    combo->activated().connect([&](int) { delete combo; });
    combo->changed().connect([] { FAIL() << "the box is gone"; });
    s.flush();
    const Wt::Impl::RenderNode* input = s.session.renderer().find(check->nodeId() + 1);
    ASSERT_NE(input, nullptr);
    s.event(*button, "click");
    s.event(*input, "change", valueOf(*input, "true"));
    s.event(*combo, "change");
    EXPECT_EQ(s.root()->count(), 0);
    EXPECT_NO_THROW(s.flush());
}

TEST(Session, a_check_box_leaves_the_middle_state_by_the_user) {
    PageSession s;
    auto* check = new Wt::WCheckBox("c", s.root());
    check->setCheckState(Wt::PartiallyChecked);
    std::string log;
    check->changed().connect([&] { log += std::to_string(check->checkState()); });
    s.flush();
    const Wt::Impl::RenderNode* input = s.session.renderer().find(check->nodeId() + 1);
    s.event(*input, "change", valueOf(*input, "true"));
    s.event(*input, "change", valueOf(*input, "false"));
    EXPECT_EQ(log, "20");
    check->setCheckState(Wt::PartiallyChecked);
    EXPECT_NE(s.flush().find("\"indeterminate\":true"), std::string::npos);
}

Wt::Impl::SessionEvent callOf(std::function<void()> call) {
    Wt::Impl::SessionEvent event;
    event.call = std::move(call);
    return event;
}

Wt::Impl::SessionEvent endOf() {
    Wt::Impl::SessionEvent event;
    event.kind = Wt::Impl::SessionEvent::Kind::End;
    return event;
}

struct Noted : Wt::WDialog {
    Noted(std::string& log_, const char* name_) : log(log_), name(name_) {}
    ~Noted() override { log += name; }
    std::string& log;
    const char* name;
};

// `last` comes when two dialogs wait, one inside the handler of the other.
void nestTwo(PageSession& s, std::string& log, const std::function<void()>& last) {
    Noted outer(log, "outer ");
    s.mailbox.post(callOf([&] {
        Noted inner(log, "inner ");
        s.mailbox.post(callOf(last));
        inner.exec();
        log += "inner went on ";
    }));
    outer.exec();
    log += "outer went on ";
}

TEST(Session, one_that_ends_inside_of_dialogs_unwinds_in_order) {
    const struct {
        const char* what;
        void (*end)(PageSession& s);
    } rows[] = {
        {"the browser is gone", [](PageSession& s) { s.mailbox.post(endOf()); }},
        {"quit", [](PageSession& s) { s.application->quit(); }},
        {"quit and go on",
         [](PageSession& s) {
             s.application->redirect("/");
             s.application->quit();
             s.application->processEvents();
         }},
    };
    for (const auto& row : rows) {
        PageSession s;
        std::string log;
        EXPECT_THROW(nestTwo(s, log, [&] { row.end(s); }), Wt::Impl::SessionEnded) << row.what;
        EXPECT_EQ(log, "inner outer ") << row.what;
    }
}

TEST(Session, dialogs_end_by_their_buttons_escape_and_death) {
    PageSession s;
    Wt::WDialog dialog("d");
    dialog.rejectWhenEscapePressed();
    auto* yes = new Wt::WPushButton("y", dialog.footer());
    yes->clicked().connect(&dialog, &Wt::WDialog::accept);
    auto* below = new Wt::WPushButton("b", s.root());
    int reached = 0, finished = 0;
    below->clicked().connect([&] { ++reached; });
    dialog.finished().connect([&] { ++finished; });
    s.flush();

    s.mailbox.post(callOf([&] {
        s.event(*below, "click"); // behind the dialog
        s.event(*yes, "click");
    }));
    EXPECT_EQ(dialog.exec(), Wt::WDialog::Accepted);
    s.event(*below, "click");
    EXPECT_EQ(reached, 1);

    const auto* frame = dynamic_cast<Wt::Impl::RenderNode*>(dialog.contents()->nodeParent());
    s.mailbox.post(callOf([&] { s.event(*frame, "escape"); }));
    EXPECT_EQ(dialog.exec(), Wt::WDialog::Rejected);
    EXPECT_EQ(finished, 2);

    auto* doomed = new Wt::WDialog("x");
    s.mailbox.post(callOf([&] { delete doomed; }));
    EXPECT_EQ(doomed->exec(), Wt::WDialog::Rejected);

    auto* selfish = new Wt::WDialog("z");
    selfish->finished().connect([&] { delete selfish; });
    s.mailbox.post(callOf([&] { selfish->accept(); }));
    EXPECT_EQ(selfish->exec(), Wt::WDialog::Accepted);
    s.flush();
    EXPECT_EQ(s.session.page().modal(), nullptr);
}

TEST(Session, runs_from_start_to_quit_and_tells_the_browser_last) {
    Recorder sink;
    Wt::Impl::Mailbox mailbox;
    Wt::Impl::StartRequest start = startRequest();
    struct App : Wt::WApplication {
        explicit App(const Wt::WEnvironment& environment, std::string& log_)
            : WApplication(environment), log(log_) {
            new Wt::WTimer(this);
            new Wt::WText("hello", root());
        }
        ~App() override { log += "gone"; }
        void notify(const Wt::WEvent& event) override {
            log += std::to_string(event.eventType()) + " ";
            WApplication::notify(event);
        }
        std::string& log;
    };
    std::string log;
    start.create = [&](const Wt::WEnvironment& environment) { return new App(environment, log); };
    mailbox.post(callOf([] {
        Wt::WApplication::instance()->redirect("/again");
        Wt::WApplication::instance()->quit();
    }));
    mailbox.post(callOf([&] { log += "too late "; }));
    Wt::Impl::makeSessionHost(start, mailbox, sink, "/r")->run();
    EXPECT_EQ(log, "0 gone");
    EXPECT_NE(sink.last.find("hello"), std::string::npos);
    EXPECT_EQ(sink.finished, R"([["go","/again"]])");
}

TEST(Session, what_was_typed_is_a_users_doing_whatever_brings_it) {
    struct {
        const char* event;
        Wt::EventType type;
    } rows[] = {{R"({"k":"click","t":9})", Wt::UserEvent},
                {R"({"k":"timer","t":9})", Wt::TimerEvent},
                {R"({"k":"size","t":9})", Wt::OtherEvent},
                {R"({"k":"timer","t":9,"v":{}})", Wt::TimerEvent},
                {R"({"k":"timer","t":9,"v":"x"})", Wt::TimerEvent},
                {R"({"k":"timer","t":9,"v":{"o3":"a"}})", Wt::UserEvent},
                {R"({"k":"size","t":9,"v":{"o3":"a"}})", Wt::UserEvent}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.event);
        Recorder sink;
        Wt::Impl::Mailbox mailbox;
        Wt::Impl::StartRequest start = startRequest();
        struct App : Wt::WApplication {
            App(const Wt::WEnvironment& environment, Wt::EventType& last_)
                : WApplication(environment), last(last_) {}
            void notify(const Wt::WEvent& event) override {
                if (event.eventType() != Wt::OtherEvent) last = event.eventType(); // start and end are Other
                WApplication::notify(event);
            }
            Wt::EventType& last;
        };
        Wt::EventType last = Wt::OtherEvent;
        start.create = [&](const Wt::WEnvironment& environment) { return new App(environment, last); };
        Wt::Impl::SessionEvent event;
        event.kind = Wt::Impl::SessionEvent::Kind::Page;
        event.page = boost::json::array{boost::json::parse(row.event)};
        mailbox.post(std::move(event));
        mailbox.post(callOf([] { Wt::WApplication::instance()->quit(); }));
        Wt::Impl::makeSessionHost(start, mailbox, sink, "/r")->run();
        EXPECT_EQ(last, row.type);
    }
}

TEST(Session, timeouts_that_came_while_one_was_handled_count_as_one) {
    PageSession s;
    Wt::WTimer timer, other;
    int fired = 0, others = 0;
    timer.timeout().connect([&] { ++fired; });
    other.timeout().connect([&] { ++others; });
    timer.setInterval(10);
    timer.start();
    other.start();
    s.flush();
    const auto tick = [&](int run) {
        Wt::Impl::SessionEvent event;
        event.kind = Wt::Impl::SessionEvent::Kind::Page;
        event.page = boost::json::array{boost::json::object{{"k", "timer"}, {"t", run}}};
        s.mailbox.post(std::move(event));
    };
    for (int i = 0; i < 5; ++i) tick(1); // a handler was slow, say
    tick(2);
    s.application->processEvents();
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(others, 1);
    tick(1);
    s.application->processEvents();
    EXPECT_EQ(fired, 2);
}

} // namespace
