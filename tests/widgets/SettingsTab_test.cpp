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
     .tooltip = "tt.dev.rx.attr.notes"},
    {.label = "[RSnnn]EID", .make = makeSettingsField<WTextZeq>, .key = "t"},
};

constexpr SettingsTableSpec kNumbers{.resource = "r", .refusalFails = false};
constexpr SettingsRow kNumberRows[] = {
    {.label = "[RSnnn]Timeout",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "n",
     .bottom = 0,
     .top = 1440,
     .mandatory = true},
    {.label = "[RSnnn]Enabled", .make = makeSettingsField<WEnableDisable>, .key = "e"},
};

enum Row { kGroup, kName, kNotes, kEid };

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

    WLineEditZeq& name() { return *tab.texts->widget<WLineEditZeq>(kName); }
    WTextAreaZeq& notes() { return *tab.texts->widget<WTextAreaZeq>(kNotes); }
    WLineEditUInt32Zeq& number() { return *tab.numbers->widget<WLineEditUInt32Zeq>(0); }
    std::size_t requestsOfRead(bool ignoreChangeStatus, const Db::Indexes& indexes, bool force) {
        store.forget();
        tab.readFromDatabase(ignoreChangeStatus, indexes, force);
        return store.requests().size();
    }

    Tab tab{page()};
};

// Five bound fields, each with an exchange of its own; one small read for each kind of data.
TEST_F(SettingsTab, ARefreshCostsWhatItMust) {
    EXPECT_EQ(requestsOfRead(true, {1}, false), 5U);
    EXPECT_EQ(requestsOfRead(false, {1}, false), 6U) << "news of the first kind is enough";
    EXPECT_EQ(requestsOfRead(false, {1}, false), 7U) << "and the second is news as well, once";
    EXPECT_EQ(requestsOfRead(false, {1}, false), 2U) << "nothing new: nothing read";
    EXPECT_EQ(requestsOfRead(false, {1}, true), 7U);
    name().setFocus();
    EXPECT_EQ(requestsOfRead(true, {3}, true), 0U) << "a field is in use";
    EXPECT_EQ(name().text().toUTF8(), "A");
    name().setFocus(false);
    EXPECT_EQ(requestsOfRead(true, {3}, true), 5U);
    EXPECT_EQ(name().text().toUTF8(), "B");
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
    EXPECT_EQ(tab.writeToDatabase({}, errors), 0U);
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
    EXPECT_FALSE(name().hasChangedContent());
    // A table may be told that refusals only go to the log.
    type(number(), "5");
    EXPECT_EQ(tab.writeToDatabase({5}, errors), 0U);
    EXPECT_EQ(errors.size(), 2U);
}

TEST_F(SettingsTab, ASilentServiceEndsTheSaveAndLeavesNoMarks) {
    tab.readFromDatabase(true, {1}, false);
    type(name(), "NEW");
    type(number(), "5");
    store.hangUp();
    EXPECT_EQ(tab.writeToDatabase({1, 3}, errors), 1U);
    EXPECT_TRUE(errors.empty());
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

constexpr SettingsTableSpec kNested{
    .resource = "swx", .rowResource = "swx/network/ipv4", .path = {"network", "ipv4"}};
constexpr SettingsRow kNestedRows[] = {
    {.label = "[RSnnn]IPv4 Address", .make = makeSettingsField<WLineEditZeq>, .key = "ipAddress"},
    {.label = "[RSnnn]Subnet Mask", .make = makeSettingsField<WLineEditZeq>, .key = "subnetMask"},
};

TEST_F(SettingsTab, NestedFieldsAreReadWithOneRequestAndWrittenInPlace) {
    store.put("swx", 1, R"("network":{"ipv4":{"ipAddress":"10.0.0.1","subnetMask":"255.0.0.0"}})");
    store.put("swx", 2, R"("network":{"ipv4":{"ipAddress":"10.0.0.2","subnetMask":"255.0.0.0"}})");
    store.put("swx", 3, R"("network":{})");
    WSettingsTable table(kNested, kNestedRows, page());
    auto& address = *table.widget<WLineEditZeq>(0);
    auto& mask = *table.widget<WLineEditZeq>(1);
    store.forget();
    table.readFromDatabase({1, 2}, false);
    EXPECT_EQ(store.requests().size(), 1U);
    EXPECT_EQ(address.text().toUTF8(), "");
    EXPECT_EQ(mask.text().toUTF8(), "255.0.0.0");
    table.readFromDatabase({2}, false);
    EXPECT_EQ(address.text().toUTF8(), "10.0.0.2");
    table.readFromDatabase({99}, true);
    table.readFromDatabase({}, true);
    EXPECT_EQ(address.text().toUTF8(), "10.0.0.2") << "a failed read leaves the fields";
    type(mask, "255.255.0.0");
    store.forget();
    EXPECT_EQ(table.writeToDatabase({2}, errors), 0U);
    EXPECT_EQ(
        store.requests().back(),
        R"({"method":"SET","params":{"index":2,"network":{"ipv4":{"subnetMask":"255.255.0.0"}}},"resource":"swx"})");
}

} // namespace
