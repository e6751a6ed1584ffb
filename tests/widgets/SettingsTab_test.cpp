// A tab of two settings tables, as a page has them, on records that the test makes up.

#include "tests/widgets/WidgetTest.h"

#include "widgets/WEnableDisable.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WLineEditZeq.h"
#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"
#include "widgets/WTextAreaZeq.h"
#include "widgets/WTextZeq.h"

#include <Wt/WMenuItem>
#include <Wt/WPushButton>
#include <Wt/WTableView>

#include <functional>

namespace {

constexpr SettingsTableSpec kTexts{.resource = "r", .width = 250};
constexpr SettingsRow kTextRows[] = {
    {.label = "[RSnnn]General"},
    {.label = "[RSnnn]Name",
     .make = makeSettingsField<WLineEditZeq>,
     .key = "t",
     .maxLength = 4,
     .pattern = "^[A-Z]*$"},
    {.label = "[RSnnn]Notes",
     .make = makeSettingsField<WTextAreaZeq>,
     .key = "d",
     .pattern = "[ -~\n]{0,8}",
     .tooltip = "tt.dev.rx.attr.notes",
     .height = 80},
    {.label = "[RSnnn]EID",
     .make = makeSettingsField<WTextZeq>,
     .key = "t",
     .cellStyle = kReadWriteNonTextCell,
     .style = kComboBoxStyle},
};

constexpr SettingsTableSpec kNumbers{.resource = "r"};
constexpr SettingsRow kNumberRows[] = {
    {.label = "[RSnnn]Timeout",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "n",
     .bottom = 0,
     .top = 1440,
     .mandatory = true},
    {.label = "[RSnnn]Enabled", .make = makeSettingsField<WEnableDisable>, .key = "e"},
};

class Tab : public WSettingsTab {
public:
    explicit Tab(Wt::WContainerWidget* parent)
        : WSettingsTab(parent, ChangeTracker::SUBSECTION_RX_ATTRIBS,
                       {InfoMgr_InfoID::Receivers, InfoMgr_InfoID::Users}),
          texts(new WSettingsTable(kTexts, kTextRows)), numbers(new WSettingsTable(kNumbers, kNumberRows)) {
        setTables({texts, numbers});
    }

    WSettingsTable* texts;
    WSettingsTable* numbers;
};

class SettingsTab : public WidgetTest {
protected:
    SettingsTab() {
        store.put("changeStatus", 7, R"("lastChange":1)");
        store.put("changeStatus", 6, R"("lastChange":1)");
    }

    WLineEditZeq& name() { return *tab.texts->widget<WLineEditZeq>("t"); }
    WTextAreaZeq& notes() { return *tab.texts->widget<WTextAreaZeq>("d"); }
    WLineEditUInt32Zeq& number() { return *tab.numbers->widget<WLineEditUInt32Zeq>("n"); }
    std::size_t requestsOfRead(bool ignoreChangeStatus, const Db::Indexes& indexes, bool force) {
        store.forget();
        tab.readFromDatabase(ignoreChangeStatus, indexes, force);
        return store.requests().size();
    }

    Tab tab{page()};
};

// One request for each table, one for the change counters of all kinds.
TEST_F(SettingsTab, ARefreshCostsWhatItMust) {
    EXPECT_EQ(requestsOfRead(true, {1}, false), 2U);
    EXPECT_EQ(requestsOfRead(false, {1}, false), 3U) << "both kinds are news, once";
    EXPECT_EQ(requestsOfRead(false, {1}, false), 1U) << "nothing new: nothing read";
    store.put("changeStatus", 6, R"("lastChange":2)");
    EXPECT_EQ(requestsOfRead(false, {1}, false), 3U) << "any kind is enough";
    EXPECT_EQ(requestsOfRead(false, {1}, true), 2U);
    EXPECT_EQ(requestsOfRead(false, {1, 3}, false), 2U) << "other records are read whatever is new";
    EXPECT_EQ(requestsOfRead(true, {1}, false), 2U);
    name().setFocus();
    EXPECT_EQ(requestsOfRead(true, {3}, true), 0U) << "a field is in use";
    EXPECT_EQ(name().text().toUTF8(), "A");
    name().setFocus(false);
    EXPECT_EQ(requestsOfRead(true, {3}, true), 2U);
    EXPECT_EQ(name().text().toUTF8(), "B");
}

TEST_F(SettingsTab, AFailedReadIsMadeUpForWithoutNews) {
    tab.readFromDatabase(true, {1}, false);
    tab.readFromDatabase(false, {1}, false); // no more news
    store.refuse("get", "r", 1);
    tab.readFromDatabase(false, {1}, true);
    store.put("r", 1, R"("t":"Z")");
    store.accept("get", "r", 1);
    tab.readFromDatabase(false, {1}, false);
    EXPECT_EQ(name().text().toUTF8(), "Z");
}

TEST_F(SettingsTab, WithoutWatchedKindsEveryRefreshReads) {
    class Unwatched : public WSettingsTab {
    public:
        explicit Unwatched(Wt::WContainerWidget* parent)
            : WSettingsTab(parent, ChangeTracker::SUBSECTION_RX_ATTRIBS, {}) {
            setTables({new WSettingsTable(kTexts, kTextRows)});
        }
    } unwatched(page());
    for (int refresh = 0; refresh < 2; ++refresh) {
        store.forget();
        unwatched.readFromDatabase(false, {1}, false);
        EXPECT_EQ(store.requests().size(), 1U);
    }
}

// With unsaved edits the page may come to save no record, or to show another one.
TEST_F(SettingsTab, AMarkNeverOutlivesItsRecord) {
    const struct {
        const char* what;
        std::function<void()> happens;
    } rows[] = {
        {"saved without a record", [this] { EXPECT_EQ(tab.writeToDatabase({}, errors), 0U); }},
        {"another record is read", [this] { tab.readFromDatabase(false, {3}, false); }},
        {"another record, and a field is in use",
         [this] {
             notes().setFocus();
             tab.readFromDatabase(true, {3}, true);
             notes().setFocus(false);
         }},
        {"no record is read", [this] { tab.readFromDatabase(true, {}, false); }},
        {"cancelled while the service refuses",
         [this] {
             store.refuse("get", "r", 1);
             tab.readFromDatabase(false, {1}, true);
             store.accept("get", "r", 1);
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        tab.readFromDatabase(true, {1}, true);
        type(name(), "EDIT");
        type(number(), "77");
        row.happens();
        EXPECT_FALSE(name().hasChangedContent());
        EXPECT_FALSE(number().hasChangedContent());
        EXPECT_FALSE(tab.texts->tableChanged());
        tab.readFromDatabase(true, {3}, false);
        EXPECT_EQ(name().text().toUTF8(), "B");
        type(notes(), "why");
        tab.writeToDatabase({3}, errors);
        EXPECT_EQ(store.field("r", 3, "t"), "\"B\"");
        EXPECT_EQ(store.field("r", 3, "n"), "8");
    }
    tab.readFromDatabase(true, {1}, true);
    type(name(), "EDIT");
    tab.readFromDatabase(true, {1}, false);
    EXPECT_EQ(name().text().toUTF8(), "EDIT") << "the same record keeps its edits";
    EXPECT_TRUE(name().hasChangedContent());
}

TEST_F(SettingsTab, OnlyWhatWasChangedIsWrittenToEveryRecord) {
    tab.readFromDatabase(true, {1, 3}, false);
    EXPECT_EQ(name().text().toUTF8(), "");
    store.forget();
    EXPECT_EQ(tab.writeToDatabase({1, 3}, errors), 0U);
    EXPECT_TRUE(store.requests().empty());
    int changes = 0;
    tab.contentChanged().connect([&] { ++changes; });
    type(notes(), "why");
    EXPECT_EQ(changes, 1);
    type(number(), "8");
    type(number(), "");
    EXPECT_EQ(changes, 3) << "of every table";
    EXPECT_EQ(tab.writeToDatabase({1, 3}, errors), 0U);
    EXPECT_EQ(store.requests(), (std::vector<std::string>{
                                    R"({"method":"SET","params":{"d":"why","index":1},"resource":"r"})",
                                    R"({"method":"SET","params":{"d":"why","index":3},"resource":"r"})"}));
    EXPECT_FALSE(notes().hasChangedContent());
    store.forget();
    tab.writeToDatabase({1, 3}, errors);
    EXPECT_TRUE(store.requests().empty()) << "clean again";
}

TEST_F(SettingsTab, ARefusedRecordDoesNotKeepTheOthers) {
    tab.readFromDatabase(true, {1, 3}, false);
    type(name(), "NEW");
    EXPECT_EQ(tab.writeToDatabase({1, 5, 3}, errors), 1U);
    EXPECT_EQ(store.field("r", 3, "t"), "\"NEW\"");
    EXPECT_EQ(store.field("r", 5, "t"), "\"A\"");
    EXPECT_EQ(errors.size(), 1U);
    EXPECT_TRUE(name().hasChangedContent()) << "to be saved again";
    type(number(), "5");
    EXPECT_EQ(tab.writeToDatabase({5}, errors), 1U);
    EXPECT_EQ(errors.size(), 3U) << "a table that is refused does not keep the other";
    tab.readFromDatabase(false, {2}, false);
    EXPECT_FALSE(name().hasChangedContent()) << "not for other records";
}

TEST_F(SettingsTab, ASilentServiceEndsTheSaveAndKeepsTheEdits) {
    tab.readFromDatabase(true, {1}, false);
    type(name(), "NEW");
    type(number(), "5");
    store.hangUp();
    EXPECT_EQ(tab.writeToDatabase({1, 3}, errors), 1U);
    EXPECT_TRUE(errors.empty());
    EXPECT_TRUE(name().hasChangedContent() && number().hasChangedContent());
    tab.readFromDatabase(false, {2}, false);
    EXPECT_FALSE(name().hasChangedContent()) << "or the text would stay over the next record's";
}

TEST_F(SettingsTab, ValidityOfAllAndOfAny) {
    const struct {
        const char *name, *number;
        bool textsAll, textsAny, all, any;
    } rows[] = {
        {"ABC", "7", true, true, true, true},  {"abc", "7", false, true, false, true}, // the notes are valid
        {"ABC", "", true, true, false, true},  {"ABC", "1441", true, true, false, true},
        {"ABC", "x", true, true, false, true},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(std::string(r.name) + " " + r.number);
        type(name(), r.name);
        type(number(), r.number);
        EXPECT_EQ(tab.texts->isAllValid(), r.textsAll);
        EXPECT_EQ(tab.texts->isAnyValid(), r.textsAny);
        EXPECT_EQ(tab.isAllValid(), r.all);
        EXPECT_EQ(tab.isAnyValid(), r.any);
    }
    type(name(), "abc");
    type(notes(), "far too long a note");
    type(number(), "");
    EXPECT_FALSE(tab.isAnyValid());
    type(notes(), "a\nb\nc\nd.");
    EXPECT_TRUE(tab.texts->isAnyValid()) << "newlines count as characters";
}

TEST_F(SettingsTab, FieldsCarryTheirNameLimitAndDescription) {
    EXPECT_EQ(name().maxLength(), 4);
    EXPECT_EQ(number().maxLength(), 4);
    EXPECT_EQ(notes().toolTip(), Wt::WString::tr("tt.dev.rx.attr.notes"));
    EXPECT_EQ(notes().width().toPixels(), 250);
    EXPECT_EQ(notes().height().toPixels(), 80);
    const auto* shown = tab.texts->widgetAt<WTextZeq>(3);
    EXPECT_TRUE(shown->hasStyleClass(kComboBoxStyle));
    EXPECT_TRUE(shown->parent()->hasStyleClass(kReadWriteNonTextCell));
    EXPECT_TRUE(name().hasStyleClass(kLineEditStyle));
    const std::string labelled = name().attributeValue("aria-labelledby").toUTF8();
    EXPECT_FALSE(labelled.empty());
    EXPECT_NE(labelled, notes().attributeValue("aria-labelledby").toUTF8());
    EXPECT_FALSE(tab.saveButton()->isEnabled());
    EXPECT_FALSE(tab.cancelButton()->isEnabled());
}

TEST_F(SettingsTab, TheMarkOfUnsavedEdits) {
    const struct {
        const char *before, *marked, *unmarked;
    } rows[] = {
        {"Attributes", "Attributes*", "Attributes"}, {"", "*", ""}, {"A*", "A*", "A"}, {"A**", "A**", "A*"}};
    for (const auto& r : rows) {
        Wt::WMenuItem item(r.before);
        tab.changed(&item, true);
        tab.changed(&item, true);
        EXPECT_EQ(item.text().toUTF8(), r.marked);
        tab.changed(&item, false);
        EXPECT_EQ(item.text().toUTF8(), r.unmarked);
    }
    tab.changed(nullptr, true);
}

TEST_F(SettingsTab, TheListStaysLockedWhileItsSectionHasEdits) {
    auto* list = new Wt::WTableView(page());
    Tab other(page());
    tab.registerTableView(list);
    tab.indicateChangedContent(true);
    EXPECT_TRUE(list->isDisabled());
    EXPECT_TRUE(list->hasStyleClass("mirl-wtableview-disabled"));
    session.app().subsectionChanged(ChangeTracker::SUBSECTION_TX_ATTRIBS, true);
    tab.indicateChangedContent(false);
    EXPECT_FALSE(tab.hasChanged());
    EXPECT_TRUE(list->isDisabled()) << "another tab of the section has edits";
    session.app().subsectionChanged(ChangeTracker::SUBSECTION_TX_ATTRIBS, false);
    tab.indicateChangedContent(false);
    EXPECT_FALSE(list->isDisabled());
    EXPECT_FALSE(list->hasStyleClass("mirl-wtableview-disabled"));
}

} // namespace
