// A page as a newcomer would write it: a list, two actions, a tab that edits and one that shows. On records that the
// test makes up.

#include "db/ZeqExchange.h"
#include "frame/ActionColumn.h"
#include "frame/DetailsTabs.h"
#include "frame/ListPage.h"
#include "frame/RowsInOrder.h"
#include "frame/StatusTab.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "frame/WObjListContextPanel.h"
#include "test/TestSession.h"
#include "tests/frame/WidgetSearch.h"
#include "tests/widgets/WidgetTest.h"
#include "widgets/WLineEditPlus.h"
#include "widgets/WLineEditZeq.h"
#include "widgets/WSettingsTable.h"

#include <Wt/WDialog>
#include <Wt/WHBoxLayout>
#include <Wt/WLayoutItem>
#include <Wt/WStandardItemModel>
#include <Wt/WVBoxLayout>

#include <algorithm>
#include <chrono>

namespace {

constexpr SettingsTableSpec kSpec{.resource = "r"};
constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Name", .make = makeSettingsField<WLineEditZeq>, .key = "t", .pattern = "^[A-Z]*$"},
    {.label = "[RSnnn]Notes", .make = makeSettingsField<WLineEditZeq>, .key = "c", .pattern = "^[a-z]*$"}};

class NameTab : public WSettingsTab {
public:
    NameTab()
        : WSettingsTab(nullptr, ChangeTracker::SUBSECTION_RX_ATTRIBS, {}),
          table(new WSettingsTable(kSpec, kRows)) {
        setTables({table});
    }
    void readTables(const std::vector<unsigned>& indexes, bool force) override {
        forced = force;
        WSettingsTab::readTables(indexes, force);
    }
    unsigned writeToDatabase(const std::vector<unsigned>& indexes,
                             std::vector<std::string>& errors) override {
        if (!remark.empty()) errors.push_back(remark);
        return WSettingsTab::writeToDatabase(indexes, errors);
    }
    WSettingsTable* table;
    bool forced = false;
    std::string remark; // told by a save that does not fail
};

class ShownTab : public Wt::WContainerWidget, public StatusTab {
public:
    void readFromDatabase(const std::vector<unsigned>& indexes) override { shown = indexes; }
    std::vector<unsigned> shown;
};

class Things : public WObjListContextPanel {
public:
    Things() : WObjListContextPanel("things", 2, true) { mTable->setSelectionMode(Wt::ExtendedSelection); }
    void readFromDatabase() override {
        removeAllRows();
        for (const unsigned index : records) {
            mModel->insertRows(0, 1);
            setCell(0, 0, index);
            setCell(0, 1, "thing " + std::to_string(index));
        }
    }
    std::vector<unsigned> records{1, 2, 3, 5};
};

enum class Doing { Make, Drop, Open, Ring, Turn, Wait };
enum class Tab { Name, Shown, Own };

class Page : public ListPage {
public:
    explicit Page(Wt::WContainerWidget* parent);

    void done() { ++doings; }
    void showSelection(bool forceDetails) override {
        ++selectionsShown;
        forcedLast = forceDetails;
        actions()->enableFor(selection().count());
        details->readFromDatabase(forceDetails, chosenRecords(), false);
    }
    bool editsSingletons() const override { return singletons; }
    bool listIsDue() const override { return due; }
    void ownSave() { heard += "save "; }
    void ownCancel() { heard += "cancel "; }
    void ownChanged() { heard += "changed "; }
    void userSelected() { ++userSelections; }
    using EditingPage::save;
    using ListPage::selection;
    void words(RecordWords words) { setWords(std::move(words)); }

    Things* list = new Things;
    DetailsTabs* details = new DetailsTabs("details", WCollapsingContextPanel::FixedHeight, 200, 1);
    int doings = 0, selectionsShown = 0, userSelections = 0;
    bool singletons = false, due = false, forcedLast = false;
    std::string heard; // by handlers of a tab's own
};

constexpr ActionRow<Page, Doing> kActions[] = {
    {Doing::Make, "make", "Make", "makes one", &Page::done, Needs::Nothing},
    {Doing::Drop, "drop", "Drop", "drops some", &Page::done, Needs::Records},
    {Doing::Open, "open", "Open", "opens one", &Page::done, Needs::OneRecord},
    {Doing::Ring, "ring", "Ring", "rings", &Page::done, Needs::Nothing, WhileEditing::LeftAlone},
    {Doing::Turn, "turn", "Turn", "turns", &Page::done, Needs::Page, WhileEditing::LeftAlone, true},
    {Doing::Wait, "wait", "Wait", "waits", &Page::done, Needs::Page, WhileEditing::LeftAlone, false},
};
static_assert(rowsInOrder(kActions));
constexpr DetailsTabRow<Page, Tab> kTabs[] = {
    {Tab::Name, 0, "Name", makeTab<NameTab>},
    {Tab::Shown, 0, "Shown", makeTab<ShownTab>},
    {Tab::Own, 0, "Own", makeTab<NameTab>, &Page::ownSave, &Page::ownCancel, &Page::ownChanged}};
static_assert(rowsInOrder(kTabs));
constexpr ActionRow<Page, Doing> kTwisted[] = {kActions[1], kActions[0]};
static_assert(!rowsInOrder(kTwisted));

Page::Page(Wt::WContainerWidget* parent)
    : ListPage(parent, {InfoMgr_InfoID::Users, InfoMgr_InfoID::Receivers}) {
    auto* column = new ActionColumn;
    column->addActions(this, kActions);
    details->addTabs(this, kTabs, list);
    setDetails(details);
    setList(
        *list, [this] { list->readFromDatabase(); }, [this] { userSelected(); });
    place(column, {{list, 100}, {details}});
}

class Pages : public WidgetTest {
protected:
    Pages() {
        for (const unsigned kind : {6u, 7u}) store.put("changeStatus", kind, R"("lastChange":1)");
        session.environment().dialogExecuted().connect(
            boost::function<void(Wt::WDialog*)>([this](Wt::WDialog* dialog) {
                if (Wt::WPushButton* button = buttonIn(dialog, "Discard changes")) {
                    questions.push_back(textIn(dialog));
                    return discard ? click(button) : dialog->reject();
                }
                told.push_back(textIn(dialog));
                dialog->accept();
            }));
        view.readFromDatabase(false, false);
    }

    void select(const std::vector<unsigned>& records) {
        if (records.empty())
            view.list->table()->clearSelection();
        else
            view.list->table()->setSelectedZeqIndexes(records);
        view.readFromDatabase(true, false);
    }
    std::string enabled() {
        std::string letters;
        for (std::size_t i = 0; i < std::size(kActions); ++i)
            letters += view.actions()->cell(i)->actionButton()->isDisabled() ? '.' : 'X';
        return letters;
    }
    WLineEditZeq& name() { return *tab.table->widget<WLineEditZeq>("t"); }
    std::string stored(unsigned index) { return store.field("r", index, "t"); }

    Page& view = *new Page(page());
    NameTab& tab = static_cast<NameTab&>(*view.details->settingsTab(0));
    std::vector<std::string> told;
    std::vector<std::string> questions; // whether edits are to be thrown away
    bool discard = false;
};

TEST_F(Pages, ActionsFollowTheirNeedsAndWaitForEdits) {
    const struct {
        std::vector<unsigned> records;
        const char *idle, *editing;
    } rows[] = {{{}, "X..XX.", "...XX."}, {{1}, "XXXXX.", "...XX."}, {{1, 2}, "XX.XX.", "...XX."}};
    for (const auto& row : rows) {
        select(row.records);
        EXPECT_EQ(enabled(), row.idle) << row.records.size();
        view.contentChangedHandler();
        EXPECT_EQ(enabled(), row.editing) << row.records.size();
        EXPECT_EQ(view.details->hasChanged(), !row.records.empty()) << row.records.size();
        if (!row.records.empty()) click(tab.cancelButton());
    }
    click(view.actions()->cell(1)->actionButton());
    EXPECT_EQ(view.doings, 1);
}

TEST_F(Pages, ARebuildKeepsRecordsAndTellsNobody) {
    select({1, 3});
    const int before = view.userSelections;
    view.list->records = {3, 9, 2};
    view.readFromDatabase(false, true);
    EXPECT_EQ(view.selection().indexes(), std::vector<unsigned>{3}) << "1 is gone, 3 stands elsewhere";
    EXPECT_TRUE(view.forcedLast) << "and the details are read";
    view.selection().clear();
    EXPECT_EQ(view.selection().count(), 0u);
    EXPECT_EQ(view.userSelections, before);
    select({2});
    EXPECT_EQ(view.userSelections, before + 1) << "and listens again";
}

TEST_F(Pages, ARecordThatARebuildMovesStaysInView) {
    view.list->records.clear();
    for (unsigned record = 1; record <= 200; ++record) view.list->records.push_back(record);
    view.readFromDatabase(false, true);
    select({150});
    for (const bool moves : {false, true}) {
        if (moves) std::reverse(view.list->records.begin(), view.list->records.end());
        Wt::Impl::TestSession::current().takeOperations();
        view.readFromDatabase(false, true);
        const std::string sent = Wt::Impl::TestSession::current().takeOperations();
        EXPECT_EQ(sent.find(R"("scroll")") != std::string::npos, moves);
    }
}

TEST_F(Pages, AnEditedRecordIsBroughtIntoViewBySaving) {
    for (const auto& records : {std::vector<unsigned>{1}, std::vector<unsigned>{1, 2}}) {
        select(records);
        type(name(), records.size() == 1 ? "F" : "G");
        Wt::Impl::TestSession::current().takeOperations();
        EXPECT_TRUE(view.save(tab));
        const std::string sent = Wt::Impl::TestSession::current().takeOperations();
        EXPECT_EQ(sent.find(R"("scroll")") != std::string::npos, records.size() == 1)
            << "wherever the list stands";
    }
}

TEST_F(Pages, TheAddressSaysWhereOneIsAndLeadsThere) {
    EXPECT_EQ(view.placeInAddress(), "");
    const struct {
        const char *to, *there;
        std::vector<unsigned> records;
    } rows[] = {
        {"/2", "/2/name", {2}},
        {"/5,2/shown", "/2,5/shown", {2, 5}},
        {"/5/nonsense", "/5/shown", {5}},
        {"/77/name", "", {}},
        {"/3/name/more", "/3/name", {3}},
        {"/~40/shown", "/3/name", {3}}, // of so many nobody knows which
        {"", "", {}},
        {"/%,x\xc3/name", "", {}},
    };
    for (const auto& row : rows) {
        const int before = view.userSelections;
        const auto chosen = [this] {
            std::vector<unsigned> records = view.selection().indexes();
            std::sort(records.begin(), records.end());
            return records;
        };
        const bool others = chosen() != row.records;
        view.goTo(row.to);
        EXPECT_EQ(chosen(), row.records) << row.to;
        EXPECT_EQ(view.placeInAddress(), row.there) << row.to;
        EXPECT_EQ(view.userSelections - before, others ? 1 : 0) << row.to;
    }
    for (unsigned record = 10; record < 50; ++record) view.list->records.push_back(record);
    view.readFromDatabase(false, true);
    select(std::vector<unsigned>(view.list->records.begin() + 4, view.list->records.begin() + 36));
    EXPECT_EQ(view.placeInAddress().substr(0, 7), "/10,11,");
    select(view.list->records);
    EXPECT_EQ(view.placeInAddress(), "/~44/name");
}

TEST_F(Pages, UnsavedEditsHoldTheUserAtTheirRecords) {
    view.goTo("/2/name");
    type(name(), "X");
    view.contentChangedHandler();
    view.goTo("/3/shown");
    EXPECT_EQ(view.placeInAddress(), "/2/name");
    EXPECT_EQ(name().text().toUTF8(), "X");
    view.goTo("/2/shown");
    EXPECT_EQ(view.placeInAddress(), "/2/shown") << "another tab of the same record";
}

TEST_F(Pages, TicksComeOnlyWhileThePageIsOnShow) {
    const auto ticksIn = [this](std::chrono::milliseconds time) {
        const int before = view.selectionsShown;
        Wt::Impl::TestSession::current().advance(time);
        return view.selectionsShown - before;
    };
    using namespace std::chrono_literals;
    EXPECT_EQ(ticksIn(20s), 0);
    view.enableAutoRefresh();
    EXPECT_EQ(ticksIn(4999ms), 0);
    EXPECT_EQ(ticksIn(1ms), 1);
    view.disableAutoRefresh();
    EXPECT_EQ(ticksIn(20s), 0);
}

TEST_F(Pages, PanesHaveTheirHeightAndDividersBetweenThem) {
    EXPECT_EQ(view.list->height().toPixels(), 100);
    const auto* row = dynamic_cast<Wt::WHBoxLayout*>(view.layout());
    ASSERT_NE(row, nullptr);
    EXPECT_TRUE(row->isResizable(0)) << "between the actions and the panes";
    const auto* panes = dynamic_cast<Wt::WVBoxLayout*>(row->itemAt(1)->layout());
    ASSERT_NE(panes, nullptr);
    EXPECT_TRUE(panes->isResizable(0));
    EXPECT_FALSE(panes->isResizable(1));
}

TEST_F(Pages, AnEditIsMarkedAndLocksTheList) {
    select({1});
    for (const bool edited : {true, false}) {
        if (edited)
            type(name(), "B");
        else
            click(tab.cancelButton());
        EXPECT_EQ(view.details->tabWidget(0)->tabText(0).toUTF8().ends_with("*"), edited);
        EXPECT_EQ(view.list->table()->isDisabled(), edited);
        EXPECT_EQ(view.list->filterField()->isDisabled(), edited);
        EXPECT_EQ(session.app().parentSectionChanged(ChangeTracker::SUBSECTION_RX_ATTRIBS), edited);
    }
    EXPECT_EQ(stored(1), "\"A\"") << "thrown away, not saved";
}

TEST_F(Pages, ALockedListAndWhatIsDisabledSayWhy) {
    const auto why = [this](std::size_t action) {
        return view.actions()->cell(action)->actionButton()->toolTip().toUTF8();
    };
    const std::string first = "Save or cancel first";
    select({});
    EXPECT_EQ(why(0) + why(3), "") << "enabled";
    EXPECT_EQ(why(1), "Select at least one row of the list first");
    EXPECT_EQ(why(2), "Select one row of the list first");
    select({1});
    EXPECT_EQ(why(1) + why(2), "");
    for (const bool edited : {true, false}) {
        if (edited)
            type(name(), "B");
        else
            click(tab.cancelButton());
        EXPECT_EQ(why(0), edited ? first : "");
        EXPECT_EQ(why(3), "") << "left alone";
        EXPECT_EQ(view.list->lockNote()->text().toUTF8(), edited ? first : "");
        EXPECT_EQ(view.list->table()->toolTip().toUTF8(), edited ? first : "");
    }
}

TEST_F(Pages, TheDetailsSayWhomTheyShowAndASaveWhomItReached) {
    const auto says = [](Wt::WWidget* widget, const char* text) {
        return ("\n" + textIn(widget)).find(std::string("\n") + text + "\n") != std::string::npos;
    };
    select({2});
    EXPECT_TRUE(says(view.details, "thing 2"));
    view.words({"page.count.records", {1, 1}});
    select({3});
    EXPECT_TRUE(says(view.details, "thing 3 · thing 3")) << textIn(view.details);
    type(name(), "N");
    EXPECT_TRUE(view.save(tab));
    EXPECT_TRUE(says(&tab, "Saved: thing 3")) << textIn(&tab);
    type(name(), "O");
    EXPECT_FALSE(says(&tab, "Saved: thing 3")) << "there is something to save again";
    click(tab.saveButton());
    select({1, 2});
    EXPECT_TRUE(says(view.details, "2 selected"));
    EXPECT_FALSE(says(&tab, "Saved: thing 3")) << "it was about another record";
    type(name(), "P");
    click(tab.saveButton());
    EXPECT_TRUE(says(&tab, "Saved for 2 selected"));
    type(name(), "Q");
    click(tab.cancelButton());
    EXPECT_FALSE(says(&tab, "Saved for 2 selected"));
    select({1, 5}); // 5 is refused
    type(name(), "R");
    click(tab.saveButton());
    EXPECT_FALSE(says(&tab, "Saved for 2 selected"));
    click(tab.cancelButton());
    select({});
    EXPECT_FALSE(says(view.details, "2 selected"));
}

TEST_F(Pages, EnterSavesWhatSaveWouldAndEscapeAsksBeforeEditsGo) {
    select({1});
    typeOnly(name(), "b"); // not valid
    name().enterPressed().emit();
    EXPECT_TRUE(tab.hasChanged());
    typeOnly(name(), "K"); // not reported yet
    name().enterPressed().emit();
    EXPECT_EQ(stored(1), "\"K\"");
    EXPECT_FALSE(tab.hasChanged());
    name().enterPressed().emit();
    EXPECT_TRUE(questions.empty());

    tab.escapePressed().emit();
    EXPECT_TRUE(questions.empty()) << "there is nothing to lose";
    for (const bool discards : {false, true}) {
        discard = discards;
        type(name(), "L");
        tab.escapePressed().emit();
        EXPECT_EQ(questions.size(), discards ? 2u : 1u);
        EXPECT_EQ(tab.hasChanged(), !discards);
    }
    EXPECT_EQ(name().text(), "K");
}

TEST_F(Pages, HandlersOfATabsOwn) {
    auto& own = static_cast<NameTab&>(*view.details->settingsTab(2));
    select({1});
    type(*own.table->widget<WLineEditZeq>("t"), "B");
    click(own.saveButton());
    click(own.cancelButton());
    EXPECT_EQ(view.heard, "changed save cancel ");
    EXPECT_FALSE(own.hasChanged());
}

TEST_F(Pages, SaveIsForAllThatIsValidOfOneAndAnyThatIsValidOfSeveral) {
    select({1});
    type(name(), "b");
    EXPECT_TRUE(tab.saveButton()->isDisabled());
    EXPECT_FALSE(tab.cancelButton()->isDisabled());
    click(tab.cancelButton());
    EXPECT_EQ(name().text(), "A");
    EXPECT_FALSE(tab.hasChanged());

    select({1, 2});
    type(name(), "b");
    EXPECT_FALSE(tab.saveButton()->isDisabled()) << "the notes are valid";
    click(tab.cancelButton());

    view.singletons = true; // such a page chooses no records
    select({});
    type(name(), "B");
    EXPECT_FALSE(tab.saveButton()->isDisabled());
    type(name(), "b");
    EXPECT_TRUE(tab.saveButton()->isDisabled()) << "judged as one record";
}

TEST_F(Pages, AFailedSaveIsToldAndKeepsWhatWasTyped) {
    select({1, 5}); // 5 is refused
    type(name(), "C");
    for (const std::size_t times : {1u, 2u}) {
        click(tab.saveButton()); // a row without a handler of its own
        EXPECT_EQ(told.size(), times);
        EXPECT_TRUE(tab.hasChanged());
        EXPECT_FALSE(tab.saveButton()->isDisabled()) << "it can be tried again";
        EXPECT_EQ(name().text(), "C");
        EXPECT_EQ(stored(1), "\"C\"") << "the other record is stored";
        store.put("r", 1, R"("t":"A")");
    }
    click(tab.cancelButton());
    EXPECT_FALSE(tab.hasChanged());
    EXPECT_TRUE(tab.saveButton()->isDisabled());

    select({2});
    type(name(), "E");
    EXPECT_TRUE(view.save(tab));
    EXPECT_EQ(told.size(), 2u);
    EXPECT_EQ(stored(2), "\"E\"");
    EXPECT_FALSE(view.forcedLast);

    type(name(), "F");
    tab.remark = "Refused.";
    EXPECT_FALSE(view.save(tab)) << "told by its words alone";
    EXPECT_EQ(told.size(), 3u);
    EXPECT_TRUE(tab.hasChanged());
    const int before = view.selectionsShown;
    click(tab.cancelButton());
    EXPECT_EQ(view.selectionsShown, before + 1) << "what came meanwhile is shown";
}

TEST_F(Pages, OnlyTheTabOnShowIsRead) {
    for (const bool cancelled : {true, false}) {
        view.details->readFromDatabase(!cancelled, {2}, cancelled);
        EXPECT_EQ(tab.forced, cancelled) << "edits are lost only when they are thrown away";
    }
    auto* shown = widgetsIn<ShownTab>(view.details).at(0);
    select({2});
    EXPECT_EQ(shown->shown, std::vector<unsigned>{});
    view.details->tabWidget(0)->setCurrentIndex(1);
    EXPECT_EQ(view.details->shownSettingsTab(), nullptr);
    view.readFromDatabase(true, false);
    EXPECT_EQ(shown->shown, std::vector<unsigned>{2});
}

TEST_F(Pages, ATickAsksForEveryKindAndRefreshesUnlessEdited) {
    const auto tick = [this] {
        const int before = view.selectionsShown;
        store.forget();
        view.refreshTimerTimeout();
        return std::pair(store.requests().size(), view.selectionsShown - before);
    };
    view.details->tabWidget(0)->setCurrentIndex(1); // a tab that asks for nothing
    EXPECT_EQ(tick(), (std::pair<std::size_t, int>(1, 1)));
    store.put("changeStatus", 6, R"("lastChange":2)");
    store.put("changeStatus", 7, R"("lastChange":2)");
    view.list->records = {1};
    EXPECT_EQ(tick().first, 1u);
    EXPECT_EQ(view.list->rowCount(), 1);
    view.list->records = {1, 2};
    tick();
    EXPECT_EQ(view.list->rowCount(), 1) << "no kind is new twice";
    view.due = true;
    tick();
    EXPECT_EQ(view.list->rowCount(), 2) << "due though nothing is new";
    view.due = false;
    view.list->records = {1};
    tab.indicateChangedContent(true);
    store.put("changeStatus", 6, R"("lastChange":3)");
    EXPECT_EQ(tick(), (std::pair<std::size_t, int>(0, 0)));
    view.readFromDatabase(false, true);
    EXPECT_EQ(view.list->rowCount(), 1) << "forced, over unsaved edits";
}

TEST_F(Pages, WatchedKinds) {
    WatchedKinds kinds{InfoMgr_InfoID::Users, InfoMgr_InfoID::Receivers};
    WatchedKinds none{};
    store.forget();
    EXPECT_TRUE(kinds.haveNews());
    EXPECT_FALSE(kinds.haveNews());
    EXPECT_EQ(store.requests().size(), 2u) << "one for both kinds";
    store.put("changeStatus", 6, R"("lastChange":2)");
    store.put("changeStatus", 7, R"("lastChange":2)");
    EXPECT_TRUE(kinds.haveNews());
    EXPECT_FALSE(kinds.haveNews()) << "no kind is new twice";
    store.put("changeStatus", 7, R"("lastChange":1)");
    EXPECT_TRUE(kinds.haveNews()) << "a service that started anew counts anew";
    EXPECT_FALSE(kinds.haveNews());
    {
        const WatchedKinds::Reading reading(kinds);
        zeqCountUnanswered();
    }
    EXPECT_TRUE(kinds.haveNews()) << "what was read was not all";
    { const WatchedKinds::Reading reading(kinds); }
    EXPECT_FALSE(kinds.haveNews());
    store.hangUp();
    EXPECT_TRUE(kinds.haveNews()) << "a doubt leads to a reading";
    EXPECT_TRUE(none.haveNews()) << "nobody tells such a reader what is new";
}

} // namespace
