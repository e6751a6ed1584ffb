#include "Gallery.h"

#include "FileSection.h"
#include "ListSections.h"

#include <Wt/WAnchor>
#include <Wt/WAnimation>
#include <Wt/WCheckBox>
#include <Wt/WComboBox>
#include <Wt/WContainerWidget>
#include <Wt/WDialog>
#include <Wt/WEnvironment>
#include <Wt/WGridLayout>
#include <Wt/WHBoxLayout>
#include <Wt/WIconPair>
#include <Wt/WImage>
#include <Wt/WLabel>
#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WRegExpValidator>
#include <Wt/WTabWidget>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>
#include <Wt/WTextArea>
#include <Wt/WTimer>
#include <Wt/WVBoxLayout>

#include <boost/bind/bind.hpp>

#include <atomic>

namespace {

std::atomic<int> living = 0; // applications of this process

/// Follows the layout's height, as panels of the product do.
class SizedPanel : public Wt::WContainerWidget {
public:
    explicit SizedPanel(const char* id) {
        setId(id);
        setLayoutSizeAware(true);
        mText = new Wt::WText("0", this);
    }

    void layoutSizeChanged(int width, int height) override {
        setLayoutSizeAware(false);
        setHeight(Wt::WLength(height));
        setLayoutSizeAware(true);
        mText->setText(Wt::WString("{1} x {2}, report {3}").arg(width).arg(height).arg(++mReports));
    }

private:
    Wt::WText* mText;
    int mReports = 0;
};

} // namespace

Gallery::Gallery(const Wt::WEnvironment& environment) : Wt::WApplication(environment) {
    setTitle("Gallery");
    mLog = new Wt::WText("ready", root());
    mLog->setId("log");
    mLog->setInline(false);
    mSections = new Wt::WContainerWidget(root());
    const std::string* wanted = environment.getParameter("show");
    const auto shows = [&](const char* name) { return !wanted || wanted->find(name) != wanted->npos; };
    if (shows("forms")) buildForms();
    if (shows("timers")) buildTimers();
    if (shows("dialogs")) buildDialogs();
    if (shows("text")) buildText();
    if (shows("layouts")) buildLayouts();
    if (shows("tabs")) buildTabs();
    if (shows("table")) new TableSection(section("Table"));
    if (shows("refresh")) new RefreshSection(section("Refresh"));
    if (shows("files")) new FileSection(section("Files"));
    if (shows("ends")) buildEnds();
    if (shows("counter")) buildCounter();
    ++living;
}

Gallery::~Gallery() {
    --living;
}

Wt::WContainerWidget* Gallery::section(const char* title) {
    auto* box = new Wt::WContainerWidget(mSections);
    box->setStyleClass("section");
    box->setPadding(Wt::WLength(6));
    auto* heading = new Wt::WText(Wt::WString("<b>{1}</b>").arg(title), box);
    heading->setInline(false);
    return box;
}

void Gallery::buildForms() {
    Wt::WContainerWidget* box = section("Forms");
    auto* table = new Wt::WTable(box);
    auto* label = new Wt::WLabel("Name", table->elementAt(0, 0));
    auto* name = new Wt::WLineEdit(table->elementAt(0, 1));
    name->setId("name");
    name->setMaxLength(10);
    name->setValidator(new Wt::WRegExpValidator("^[a-z]*$"));
    label->setBuddy(name);
    name->enterPressed().connect(boost::bind(&Wt::WText::setText, mLog, Wt::WString("enter")));
    name->changed().connect(std::bind([=, this] {
        const bool valid = name->validate() == Wt::WValidator::Valid;
        mLog->setText(Wt::WString("changed {1} {2}").arg(name->text()).arg(valid ? "valid" : "invalid"));
    }));

    new Wt::WLabel("Notes", table->elementAt(1, 0));
    auto* notes = new Wt::WTextArea("one\ntwo", table->elementAt(1, 1));
    notes->setId("notes");
    notes->setToolTip("Any text");

    auto* check = new Wt::WCheckBox("Three states", table->elementAt(2, 1));
    check->setId("check");
    check->setCheckState(Wt::PartiallyChecked);
    check->changed().connect(std::bind(
        [=, this] { mLog->setText(Wt::WString("check {1}").arg(static_cast<int>(check->checkState()))); }));

    auto* combo = new Wt::WComboBox(table->elementAt(3, 1));
    combo->setId("combo");
    combo->setAttributeValue("aria-label", "Colour");
    for (const char* text : {"red", "green", "blue"}) combo->addItem(text);
    combo->activated().connect(std::bind([=, this] { mLog->setText("combo " + combo->currentText()); }));

    auto* button = new Wt::WPushButton("Click", table->elementAt(4, 1));
    button->setId("button");
    button->clicked().connect(std::bind(
        [=, this] { mLog->setText(Wt::WString("clicked {1}|{2}").arg(name->text()).arg(notes->text())); }));
    auto* clear = new Wt::WPushButton("Clear", table->elementAt(4, 1));
    clear->setId("clear");
    clear->clicked().connect(std::bind([=] {
        name->setText("");
        combo->setCurrentIndex(2);
        check->setCheckState(Wt::PartiallyChecked);
    }));
    auto* disabled = new Wt::WPushButton("Disabled", table->elementAt(4, 1));
    disabled->disable();
}

void Gallery::tick() {
    auto* count = dynamic_cast<Wt::WText*>(root()->find("ticks"));
    count->setText(Wt::WString("tick {1}").arg(++mTicks));
    if (mTicks == 3) mTimer->stop();
}

void Gallery::buildTimers() {
    Wt::WContainerWidget* box = section("Timers");
    auto* count = new Wt::WText("tick 0", box);
    count->setObjectName("ticks");
    count->setId("ticks");
    mTimer = new Wt::WTimer(this);
    mTimer->setInterval(100);
    mTimer->timeout().connect(this, &Gallery::tick);
    auto* start = new Wt::WPushButton("Start", box);
    start->setId("start");
    start->clicked().connect(mTimer, &Wt::WTimer::start);
}

void Gallery::nestedDialog() {
    Wt::WDialog inner("Inner");
    inner.rejectWhenEscapePressed();
    auto* close = new Wt::WPushButton("Close inner", inner.footer());
    close->setId("close-inner");
    close->clicked().connect(&inner, &Wt::WDialog::accept);
    mLog->setText(inner.exec() == Wt::WDialog::Accepted ? "inner accepted" : "inner rejected");
}

void Gallery::askWithDialog() {
    Wt::WDialog dialog("A question");
    dialog.setId("dialog");
    dialog.rejectWhenEscapePressed();
    new Wt::WText("Go on?", dialog.contents());
    auto* field = new Wt::WLineEdit(dialog.contents());
    field->setId("answer");
    field->setAttributeValue("aria-label", "Answer");
    auto* yes = new Wt::WPushButton("Yes", dialog.footer());
    yes->setId("yes");
    yes->setDefault(true);
    yes->clicked().connect(&dialog, &Wt::WDialog::accept);
    auto* more = new Wt::WPushButton("More", dialog.footer());
    more->setId("more");
    more->clicked().connect(this, &Gallery::nestedDialog);
    const bool accepted = dialog.exec() == Wt::WDialog::Accepted;
    mLog->setText(Wt::WString("dialog {1} {2}").arg(accepted ? "accepted" : "rejected").arg(field->text()));
}

void Gallery::buildDialogs() {
    Wt::WContainerWidget* box = section("Dialogs");
    auto* open = new Wt::WPushButton("Ask", box);
    open->setId("ask");
    open->clicked().connect(this, &Gallery::askWithDialog);
    auto* leave = new Wt::WPushButton("Quit", box);
    leave->setId("quit");
    leave->clicked().connect(std::bind([this] { quit(); }));
}

void Gallery::buildTabs() {
    auto* tabs = new Wt::WTabWidget(section("Tabs"));
    tabs->setId("tabs");
    for (const char* name : {"first", "second", "third"}) {
        auto* pane = new Wt::WContainerWidget;
        auto* field = new Wt::WLineEdit(pane);
        field->setId(std::string(name) + "-field");
        field->setAttributeValue("aria-label", name);
        tabs->addTab(pane, name);
    }
    tabs->setTabEnabled(1, false);
    tabs->currentChanged().connect([this](int index) { mLog->setText(Wt::WString("tab {1}").arg(index)); });
}

/// Every press counts once: #counted says how many came.
void Gallery::buildCounter() {
    Wt::WContainerWidget* box = section("Counter");
    auto* more = new Wt::WPushButton("More", box);
    more->setId("more-by-one");
    auto* counted = new Wt::WText("0", box);
    counted->setId("counted");
    more->clicked().connect(std::bind([=, this] { counted->setText(Wt::WString("{1}").arg(++mCounted)); }));
}

/// What ends sessions, and how many of them there are.
void Gallery::buildEnds() {
    Wt::WContainerWidget* box = section("Ends");
    auto* count = new Wt::WPushButton("Count", box);
    count->setId("count");
    count->clicked().connect(
        std::bind([this] { mLog->setText(Wt::WString("living {1}").arg(living.load())); }));
    auto* soon = new Wt::WPushButton("End soon", box);
    soon->setId("soon");
    auto* timer = new Wt::WTimer(this);
    timer->setInterval(300);
    timer->setSingleShot(true);
    timer->timeout().connect(std::bind([this] { quit(); }));
    soon->clicked().connect(timer, &Wt::WTimer::start);
}

void Gallery::buildText() {
    Wt::WContainerWidget* box = section("Text");
    auto* rich =
        new Wt::WText("<i class=\"x\" onclick=\"alert(1)\">italic</i><script>alert(2)</script>", box);
    rich->setId("rich");
    auto* plain = new Wt::WText("<b>as it stands</b>", Wt::PlainText, box);
    plain->setId("plain");
    auto* link = new Wt::WAnchor(Wt::WLink("javascript:alert(3)"), "harmless", box);
    link->setId("link");
    auto* act = new Wt::WAnchor(box);
    act->setText("acts");
    act->setId("act");
    act->clicked().connect(boost::bind(&Wt::WText::setText, mLog, Wt::WString("acted")));
    auto* icons = new Wt::WIconPair("one.png", "two.png", true, box);
    icons->icon1()->setAlternateText("one");
    icons->icon2()->setAlternateText("two");
    auto* fade = new Wt::WPushButton("Fade", box);
    fade->setId("fade");
    fade->clicked().connect(std::bind([=] {
        const Wt::WAnimation animation(Wt::WAnimation::Fade, Wt::WAnimation::Linear, 100);
        if (rich->isHidden())
            rich->animateShow(animation);
        else
            rich->animateHide(animation);
    }));
}

void Gallery::buildLayouts() {
    Wt::WContainerWidget* box = section("Layouts");
    auto* frame = new Wt::WContainerWidget(box);
    frame->setHeight(Wt::WLength(300));
    auto* row = new Wt::WHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    auto* left = new Wt::WContainerWidget;
    left->setId("left");
    left->resize(Wt::WLength(160), Wt::WLength::Auto);
    left->setMinimumSize(Wt::WLength(100), Wt::WLength::Auto);
    new Wt::WText("left", left);
    row->addWidget(left);
    auto* column = new Wt::WVBoxLayout;
    auto* upper = new SizedPanel("upper");
    upper->setHeight(Wt::WLength(100));
    column->addWidget(upper);
    column->addWidget(new SizedPanel("lower"), 1);
    column->setResizable(0);
    row->addLayout(column, 1);
    row->setResizable(0);
    frame->setLayout(row);

    auto* cells = new Wt::WContainerWidget(box);
    auto* grid = new Wt::WGridLayout;
    for (int i = 0; i < 4; ++i) grid->addWidget(new Wt::WText(Wt::WString("cell {1}").arg(i)), i / 2, i % 2);
    grid->setColumnStretch(1, 1);
    grid->setRowResizable(0);
    cells->setLayout(grid);
}
