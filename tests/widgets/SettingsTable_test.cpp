// What rows of a settings table can say: each capability on records that the test makes up.

#include "tests/widgets/WidgetTest.h"

#include "widgets/Selectors.h"
#include "widgets/ValidatedFields.h"
#include "widgets/WChangePassword.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WLookupText.h"
#include "widgets/WMgrCommStatus.h"
#include "widgets/WOsdActivateHotkeyCustom.h"
#include "widgets/WPasswordField.h"
#include "widgets/WSettingsTable.h"
#include "widgets/WTextZeq.h"

#include <Wt/WTableCell>

#include <stdexcept>

namespace {

class SettingsTable : public WidgetTest {
protected:
    std::string written(WSettingsTable& table, const Db::Indexes& indexes) {
        store.forget();
        table.writeToDatabase(indexes, errors);
        std::string all;
        for (const std::string& request : store.requests()) all += request + "\n";
        return all;
    }
    static std::string setRequest(const std::string& params, const std::string& resource) {
        return R"({"method":"SET","params":{)" + params + R"(},"resource":")" + resource + "\"}\n";
    }
    static std::string textIn(WSettingsTable& table, int row, int column) {
        auto* text = dynamic_cast<Wt::WText*>(table.elementAt(row, column)->children().at(0));
        return text ? text->text().toUTF8() : "no text";
    }
};

constexpr SettingsTableSpec kSpec{.resource = "r"};
constexpr SettingsChoice kOn = {.key = "e", .is = "enabled"};
constexpr SettingsRow kName = {.label = "[RSnnn]Name", .make = makeSettingsField<WLineEditZeq>, .key = "t"};
constexpr SettingsRow kOfAll = {.label = "[RSnnn]Of all",
                                .make = makeSettingsField<WLineEditZeq>,
                                .key = "t",
                                .resource = "g",
                                .singleton = true};
constexpr SettingsRow kFollowing[] = {
    {.label = "[RSnnn]Enabled", .make = makeSettingsField<WEnableDisable>, .key = "e"},
    {.label = "[RSnnn]Name",
     .make = makeSettingsField<WLineEditZeq>,
     .key = "t",
     .pattern = "^[A-Z]*$",
     .enabledWhen = kOn,
     .neededWhen = kOn},
    {.label = "[RSnnn]Second",
     .make = makeSettingsField<WLineEditZeq>,
     .key = "d",
     .pattern = "^[A-Z]*$",
     .enabledWhen = {.key = "e", .is = "enabled", .follows = SettingsChoice::AtNextRead},
     .judgedForSeveral = false},
    {.label = "[RSnnn]Third",
     .make = makeSettingsField<WLineEditZeq>,
     .key = "x",
     .pattern = "^[A-Z]*$",
     .enabledWhen = {.key = "e", .is = "enabled", .follows = SettingsChoice::JudgedOnly}},
    {.label = "[RSnnn]Fourth",
     .make = makeSettingsField<WLineEditZeq>,
     .key = "y",
     .enabledWhen = {.key = "e", .is = "enabled", .unless = true},
     .emptyUnlessEnabled = true},
};

TEST_F(SettingsTable, RowsFollowAChoice) {
    WSettingsTable table(kSpec, kFollowing, page());
    auto& choice = *table.widget<WEnableDisable>("e");
    const auto enabled = [&] {
        std::string all;
        for (const char* key : {"t", "d", "x", "y"})
            all += table.widget<WLineEditZeq>(key)->isDisabled() ? '.' : 'X';
        return all;
    };
    table.readFromDatabase({1}, false);
    EXPECT_EQ(enabled(), "XXX.");
    type(*table.widget<WLineEditZeq>("t"), "KEPT");
    choose(choice, 1);
    EXPECT_EQ(table.widget<WLineEditZeq>("t")->text().toUTF8(), "KEPT");
    EXPECT_EQ(enabled(), ".XXX") << "the second follows at the next read, the third never";
    type(*table.widget<WLineEditZeq>("y"), "text");
    choose(choice, 0);
    EXPECT_EQ(table.widget<WLineEditZeq>("y")->text().toUTF8(), "");
    table.readFromDatabase({3}, false);
    EXPECT_EQ(enabled(), "..XX");
    table.readFromDatabase({1, 3}, false);
    EXPECT_EQ(enabled(), "..XX") << "records that differ have made no choice";
}

TEST_F(SettingsTable, WhatAChoiceRulesOutIsNotJudged) {
    WSettingsTable table(kSpec, kFollowing, page());
    const struct {
        int choice;
        const char *first, *second, *third;
        bool all, any;
    } rows[] = {
        {0, "A", "A", "A", true, true},  {0, "a", "A", "A", false, true},  {0, "", "A", "A", false, true},
        {0, "A", "a", "A", false, true}, {0, "a", "A", "a", false, false}, // the second has no say
        {1, "a", "a", "a", true, true},  {0, "A", "A", "a", false, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.first) + row.second + row.third);
        table.readFromDatabase({1}, true);
        type(*table.widget<WLineEditZeq>("t"), row.first);
        type(*table.widget<WLineEditZeq>("d"), row.second);
        type(*table.widget<WLineEditZeq>("x"), row.third);
        choose(*table.widget<WEnableDisable>("e"), row.choice);
        EXPECT_EQ(table.isAllValid(), row.all);
        EXPECT_EQ(table.isAnyValid(), row.any);
    }
}

TEST_F(SettingsTable, WhatFollowsAtTheNextReadIsJudgedByTheChoiceAlready) {
    static constexpr SettingsRow kRows[] = {
        kFollowing[0],
        kFollowing[2],
        {.label = "[RSnnn]Locked",
         .make = makeSettingsField<WLineEditZeq>,
         .key = "t",
         .pattern = "^[a-z]*$",
         .enabledWhen = {.key = "e", .is = "enabled", .follows = SettingsChoice::AtNextRead},
         .editable = neverEditable}};
    WSettingsTable table(kSpec, kRows, page());
    table.readFromDatabase({3}, false);
    typeOnly(*table.widget<WLineEditZeq>("d"), "bad one");
    EXPECT_TRUE(table.isAllValid()) << "the choice is not made";
    choose(*table.widget<WEnableDisable>("e"), 0);
    EXPECT_TRUE(table.widget<WLineEditZeq>("d")->isDisabled());
    EXPECT_FALSE(table.isAllValid());
    typeOnly(*table.widget<WLineEditZeq>("d"), "GOOD");
    EXPECT_TRUE(table.isAllValid()) << "what the records lock is not judged";
}

TEST_F(SettingsTable, AFieldIsNeededWithOrWithoutAPattern) {
    static constexpr SettingsRow kRows[] = {
        kFollowing[0],
        {.label = "[RSnnn]Free", .make = makeSettingsField<WLineEditZeq>, .key = "y", .neededWhen = kOn},
        {.label = "[RSnnn]Bound",
         .make = makeSettingsField<WLineEditZeq>,
         .key = "d",
         .pattern = "^[A-Z]*$",
         .neededWhen = kOn}};
    WSettingsTable table(kSpec, kRows, page());
    const struct {
        int choice;
        const char *free, *bound;
        bool valid;
    } rows[] = {{0, "a", "A", true}, {0, "", "A", false}, {0, "a", "", false}, {1, "", "", true}};
    for (const auto& row : rows) {
        table.readFromDatabase({1}, true);
        type(*table.widget<WLineEditZeq>("y"), row.free);
        type(*table.widget<WLineEditZeq>("d"), row.bound);
        choose(*table.widget<WEnableDisable>("e"), row.choice);
        EXPECT_EQ(table.isAllValid(), row.valid) << row.choice << row.free << row.bound;
        EXPECT_EQ(table.widget<WLineEditZeq>("d")->validator()->isMandatory(), row.choice == 0);
    }
}

TEST_F(SettingsTable, RecordsLockATable) {
    static constexpr SettingsTableSpec kAlone{.resource = "r", .editable = editableAlone};
    static constexpr SettingsRow kRows[] = {kFollowing[0],
                                            kFollowing[3],
                                            {.label = "[RSnnn]Never",
                                             .make = makeSettingsField<WLineEditZeq>,
                                             .key = "t",
                                             .editable = neverEditable}};
    WSettingsTable table(kAlone, kRows, page());
    for (const bool alone : {false, true}) {
        table.readFromDatabase(alone ? Db::Indexes{1} : Db::Indexes{1, 2}, false);
        for (const char* key : {"e", "x", "t"})
            EXPECT_EQ(!table.widget<Wt::WFormWidget>(key)->isDisabled(), alone && *key != 't') << key;
    }
}

TEST_F(SettingsTable, WhatTheTableReadsItselfIsLeftToIt) {
    static constexpr SettingsRow kRows[] = {
        {.label = "[RSnnn]Name", .make = makeSettingsField<WLineEditZeq>, .key = "t", .byOwner = true},
        kFollowing[0]};
    WSettingsTable table(kSpec, kRows, page());
    table.readFromDatabase({1}, false);
    EXPECT_EQ(table.widget<WLineEditZeq>("t")->text().toUTF8(), "");
    type(*table.widget<WLineEditZeq>("t"), "X");
    EXPECT_EQ(written(table, {1}), "");
}

TEST_F(SettingsTable, OneRefusalAmongSeveralResourcesIsAFailure) {
    for (const auto save :
         {SettingsTableSpec::Save::OneRequestPerRecord, SettingsTableSpec::Save::OneExchangePerField}) {
        const SettingsTableSpec spec{.resource = "r", .save = save};
        static constexpr SettingsRow kRows[] = {kName, kOfAll};
        WSettingsTable table(spec, kRows, page());
        table.readFromDatabase({5}, false);
        type(*table.widgetAt<WLineEditZeq>(0), "X");
        type(*table.widgetAt<WLineEditZeq>(1), save == SettingsTableSpec::Save{} ? "Y" : "Z");
        errors.clear();
        EXPECT_EQ(table.writeToDatabase({5}, errors), 1U) << "though the last one was stored";
        EXPECT_EQ(errors.size(), 1U);
        EXPECT_EQ(store.field("g", 0, "t"), save == SettingsTableSpec::Save{} ? "\"Y\"" : "\"Z\"");
    }
}

TEST_F(SettingsTable, DisabledOrInvalidFieldsAreLeftOutOfASave) {
    WSettingsTable table(kSpec, kFollowing, page());
    table.readFromDatabase({1}, false);
    type(*table.widget<WLineEditZeq>("t"), "bad one");
    choose(*table.widget<WEnableDisable>("e"), 1);
    EXPECT_EQ(written(table, {1}), setRequest(R"("e":"disabled","index":1)", "r"));
    store.put("r", 1, R"("t":"A","e":"enabled")");
    table.readFromDatabase({1}, true);
    type(*table.widget<WLineEditZeq>("t"), "GOOD");
    choose(*table.widget<WEnableDisable>("e"), 1);
    EXPECT_EQ(written(table, {1}), setRequest(R"("e":"disabled","index":1)", "r")) << "valid, yet ruled out";
    table.readFromDatabase({1, 2}, true);
    type(*table.widget<WLineEditZeq>("x"), "bad one");
    EXPECT_EQ(written(table, {1, 2}), "") << "nothing is left to write";
    EXPECT_FALSE(table.widget<WLineEditZeq>("x")->hasChangedContent());
    type(*table.widget<WLineEditZeq>("x"), "GOOD");
    EXPECT_EQ(written(table, {1}), setRequest(R"("index":1,"x":"GOOD")", "r"));
}

TEST_F(SettingsTable, AnEmptiedNumberOfSeveralRecordsIsNotChanged) {
    constexpr SettingsRow kRows[] = {
        {.label = "[RSnnn]Limit", .make = makeSettingsField<WLineEditUInt32Zeq>, .key = "n", .top = 99},
        {.label = "[RSnnn]Enabled", .make = makeSettingsField<WEnableDisable>, .key = "e"}};
    WSettingsTable table(kSpec, kRows, page());
    table.readFromDatabase({1, 2}, false);
    type(*table.widget<WLineEditUInt32Zeq>("n"), "");
    choose(*table.widget<WEnableDisable>("e"), 1);
    EXPECT_EQ(written(table, {1}), setRequest(R"("e":"disabled","index":1,"n":0)", "r"));
    table.readFromDatabase({1, 2}, true);
    type(*table.widget<WLineEditUInt32Zeq>("n"), "5");
    type(*table.widget<WLineEditUInt32Zeq>("n"), "");
    choose(*table.widget<WEnableDisable>("e"), 1);
    EXPECT_EQ(written(table, {1, 2}), setRequest(R"("e":"disabled","index":1)", "r") +
                                          setRequest(R"("e":"disabled","index":2)", "r"));
}

TEST_F(SettingsTable, ARowThatFollowsNoRowIsRefusedAtOnce) {
    static constexpr SettingsRow kRows[] = {
        {.label = "[RSnnn]Name", .make = makeSettingsField<WLineEditZeq>, .key = "t", .enabledWhen = kOn}};
    EXPECT_THROW(WSettingsTable(kSpec, kRows), std::logic_error);
}

TEST_F(SettingsTable, SeveralResourcesEachWithItsOwnRequest) {
    static constexpr SettingsRow kRows[] = {
        kName,
        kOfAll,
        {.label = "[RSnnn]Number", .make = makeSettingsField<WLineEditUInt32Zeq>, .key = "n"},
    };
    WSettingsTable table(kSpec, kRows, page());
    store.forget();
    table.readFromDatabase({1, 2}, false);
    EXPECT_EQ(store.requests().size(), 2U);
    EXPECT_EQ(table.widgetAt<WLineEditZeq>(0)->text().toUTF8(), "A");
    EXPECT_EQ(table.widgetAt<WLineEditZeq>(1)->text().toUTF8(), "S");
    type(*table.widgetAt<WLineEditZeq>(1), "T");
    EXPECT_EQ(written(table, {1, 2}), setRequest(R"("t":"T")", "g")) << "once, and no other resource";
    type(*table.widgetAt<WLineEditZeq>(0), "X");
    type(*table.widgetAt<WLineEditZeq>(1), "Y");
    type(*table.widgetAt<WLineEditUInt32Zeq>(2), "3");
    EXPECT_EQ(written(table, {2}),
              setRequest(R"("index":2,"n":3,"t":"X")", "r") + setRequest(R"("t":"Y")", "g"));
}

TEST_F(SettingsTable, NestedFieldsBesidePlainOnes) {
    static constexpr SettingsTableSpec kUser{.resource = "user"};
    static constexpr SettingsRow kRows[] = {
        {.label = "[RSnnn]OSD Hotkey",
         .make = makeSettingsField<WOsdActivateHotkey>,
         .key = "hotKey",
         .resource = "user/keySettings/osdHotKey"},
        {.label = "[RSnnn]Custom Sequence",
         .make = makeSettingsField<WOsdActivateHotkeyCustom>,
         .key = "customKeys",
         .resource = "user/keySettings/osdHotKey/customKeys",
         .width = 120,
         .enabledWhen = {.key = "hotKey", .is = "custom"}},
        {.label = "[RSnnn]Timeout", .make = makeSettingsField<WLineEditUInt32Zeq>, .key = "timeout"},
    };
    const auto put = [this](unsigned index, const char* hotKey) {
        store.put("user", index,
                  R"("timeout":5,"keySettings":{"osdHotKey":{"hotKey":")" + std::string(hotKey) +
                      R"(","customKeys":{"length":1,"sequence":{"$binary":"BAA="}}}})");
    };
    put(1, "custom");
    put(2, "none");
    WSettingsTable table(kUser, kRows, page());
    auto& custom = *table.widget<WOsdActivateHotkeyCustom>("customKeys");
    const auto boxes = [&] {
        std::vector<Wt::WComboBox*> found;
        for (Wt::WWidget* child : custom.children())
            if (auto* box = dynamic_cast<Wt::WComboBox*>(child)) found.push_back(box);
        return found;
    }();
    ASSERT_EQ(boxes.size(), 2U);
    for (const Wt::WComboBox* box : boxes) EXPECT_EQ(box->width().toPixels(), 120);

    store.forget();
    table.readFromDatabase({1}, false);
    ASSERT_EQ(store.requests().size(), 1U);
    EXPECT_NE(store.requests()[0].find("\"keySettings\""), std::string::npos) << "what holds the nested keys";
    EXPECT_EQ(store.requests()[0].find("customKeys"), std::string::npos);
    EXPECT_EQ(boxes[0]->currentText().toUTF8(), "4 - A");
    EXPECT_FALSE(custom.isDisabled());
    choose(*table.widget<WOsdActivateHotkey>("hotKey"), 0);
    EXPECT_TRUE(custom.isDisabled());
    type(*table.widget<WLineEditUInt32Zeq>("timeout"), "7");
    EXPECT_EQ(
        written(table, {1}),
        setRequest(R"("index":1,"keySettings":{"osdHotKey":{"hotKey":"print_screen"}},"timeout":7)", "user"));
    put(1, "custom");
    table.readFromDatabase({1, 2}, false);
    EXPECT_EQ(table.widget<WOsdActivateHotkey>("hotKey")->currentText().toUTF8(), "(different)");
    EXPECT_EQ(boxes[0]->currentText().toUTF8(), "4 - A");
    EXPECT_EQ(table.widget<WLineEditUInt32Zeq>("timeout")->text().toUTF8(), "5");
    type(*table.widget<WLineEditUInt32Zeq>("timeout"), "7");
    EXPECT_EQ(written(table, {2}), setRequest(R"("index":2,"timeout":7)", "user")) << "no empty objects";

    put(1, "none");
    table.readFromDatabase({1}, true);
    choose(*table.widget<WOsdActivateHotkey>("hotKey"), 11);
    choose(*boxes[1], 5);
    EXPECT_EQ(written(table, {1}),
              setRequest(R"("index":1,"keySettings":{"osdHotKey":{"customKeys":{"length":2,)"
                         R"("sequence":{"$binary":"BAU="}},"hotKey":"custom"}})",
                         "user"))
        << "both in the same object";
}

TEST_F(SettingsTable, ANestedReadThatFailsLeavesTheFields) {
    static constexpr SettingsTableSpec kNested{.resource = "swx/network/ipv4"};
    static constexpr SettingsRow kRows[] = {
        {.label = "[RSnnn]IPv4 Address", .make = makeSettingsField<WIpV4Addr>, .key = "ipAddress"}};
    store.put("swx", 2, R"("network":{"ipv4":{"ipAddress":"10.0.0.2"}})");
    store.put("swx", 3, R"("network":{})");
    class Telling : public WSettingsTable {
    public:
        using WSettingsTable::WSettingsTable;
        void nestedReadFailed() override { ++failures; }
        int failures = 0;
    } table(kNested, kRows, page());
    table.readFromDatabase({2}, false);
    EXPECT_EQ(table.failures, 0);
    for (const Db::Indexes& none : {Db::Indexes{3}, {99}, {}}) table.readFromDatabase(none, true);
    EXPECT_EQ(table.widgetAt<WIpV4Addr>(0)->text().toUTF8(), "10.0.0.2");
    EXPECT_EQ(table.failures, 2) << "no record is no failure";
}

TEST_F(SettingsTable, NestedFieldsOfASingleton) {
    static constexpr SettingsTableSpec kRap{.resource = "systemGlobals/rapParameters", .indexed = false};
    static constexpr SettingsRow kRows[] = {
        {.label = "[RSnnn]Port", .make = makeSettingsField<WLineEditUInt32Zeq>, .key = "sshPort"},
        {.label = "[RSnnn]Primary",
         .make = makeSettingsField<WMgrCommStatus, WMgrCommStatus::MgrInstance::Primary>},
    };
    store.put("systemGlobals", 0,
              R"("managedSetting":"verified","commStatusRestClientPrimary":"up",)"
              R"("commStatusRestServerPrimary":"up","rapParameters":{"sshPort":2222})");
    WSettingsTable table(kRap, kRows, page());
    store.forget();
    table.readFromDatabase({}, false);
    EXPECT_EQ(store.requests().size(), 1U);
    EXPECT_EQ(table.widgetAt<WLineEditUInt32Zeq>(0)->text().toUTF8(), "2222");
    EXPECT_EQ(textIn(table, 2, 1), "Normal") << "bound to no field, and read with the others";
    type(*table.widgetAt<WLineEditUInt32Zeq>(0), "2022");
    EXPECT_EQ(written(table, {}), setRequest(R"("rapParameters":{"sshPort":2022})", "systemGlobals"));
}

TEST_F(SettingsTable, ValueColumnsAndFieldsBesideEachOther) {
    static constexpr const char* kSides[] = {"r/left", "r/right"};
    static constexpr SettingsTableSpec kColumns{
        .resource = "r", .headings = {"", "Left", "Right"}, .columns = kSides};
    static constexpr SettingsRow kRows[] = {
        {.label = "[RSnnn]General"},
        {.label = "[RSnnn]Name", .make = makeSettingsField<WTextZeq>, .key = "t"}};
    store.put("r", 1, R"("left":{"t":"L"},"right":{"t":"R"})");
    WSettingsTable columns(kColumns, kRows, page());
    columns.readFromDatabase({1}, false);
    EXPECT_EQ(textIn(columns, 2, 1) + textIn(columns, 2, 2), "LR");
    EXPECT_EQ(columns.widget<WTextZeq>("t", 1)->text().toUTF8(), "R");
    const auto isGroup = [&](int row) {
        return columns.elementAt(row, 0)->children().at(0)->hasStyleClass("mirl-attribute-table-group-label");
    };
    EXPECT_TRUE(isGroup(1));
    EXPECT_FALSE(isGroup(2));
    columns.setRowEnabled("t", false);
    for (const std::size_t column : {0U, 1U})
        EXPECT_TRUE(columns.widget<WTextZeq>("t", column)->isDisabled());
    columns.clearValues();
    EXPECT_EQ(textIn(columns, 2, 1) + textIn(columns, 2, 2), "");
    EXPECT_NE(textIn(columns, 2, 0), "") << "labels stay";

    static constexpr SettingsTableSpec kKeys{.resource = "r", .headings = {"Key", "Action", "Target"}};
    static constexpr SettingsRow kPairs[] = {
        {.label = "[RSnnn]F1", .make = makeSettingsField<WEnableDisable>, .key = "e"},
        {.make = makeSettingsField<WLineEditZeq>, .key = "t", .enabledWhen = kOn, .column = 2},
        {.label = "[RSnnn]F2", .make = makeSettingsField<WEnableDisable>, .key = "e"},
        {.make = makeSettingsField<WLineEditZeq>, .key = "t", .enabledWhen = kOn, .column = 2},
    };
    WSettingsTable pairs(kKeys, kPairs, page());
    EXPECT_EQ(pairs.rowCount(), 3);
    store.put("r", 1, R"("e":"enabled","t":"A")");
    pairs.readFromDatabase({1}, false);
    choose(*pairs.widgetAt<WEnableDisable>(2), 1);
    EXPECT_FALSE(pairs.widgetAt<WLineEditZeq>(1)->isDisabled());
    EXPECT_TRUE(pairs.widgetAt<WLineEditZeq>(3)->isDisabled()) << "each follows the one beside it";
    EXPECT_NE(pairs.widgetAt<WLineEditZeq>(3)->attributeValue("aria-labelledby").toUTF8(), "");
}

class Groups : public WSettingsTable {
public:
    Groups(std::span<const SettingsRow> rows, Wt::WContainerWidget* parent)
        : WSettingsTable(kSpec, rows, parent) {}
    unsigned peer = 3; // 0 = none

protected:
    Indexes recordsOf(unsigned group, const Indexes& chosen) override {
        if (group == 0) return chosen;
        return peer ? Indexes{peer} : Indexes{};
    }
};

TEST_F(SettingsTable, GroupsOfRowsWithRecordsOfTheirOwn) {
    static constexpr SettingsRow kRows[] = {
        {.label = "[RSnnn]Master"},
        {.label = "[RSnnn]Name", .make = makeSettingsField<WTextZeq>, .key = "t"},
        {.label = "[RSnnn]Peer"},
        {.label = "[RSnnn]Name", .make = makeSettingsField<WTextZeq>, .key = "t", .group = 1},
        {.label = "[RSnnn]Nested",
         .make = makeSettingsField<WTextZeq>,
         .key = "v",
         .resource = "r/o",
         .group = 1},
    };
    store.put("r", 3, R"("t":"B","o":{"v":"C"})");
    Groups table(kRows, page());
    table.readFromDatabase({1}, false);
    EXPECT_EQ(textIn(table, 2, 1) + textIn(table, 4, 1) + textIn(table, 5, 1), "ABC");
    table.peer = 0;
    table.readFromDatabase({1}, false);
    EXPECT_EQ(textIn(table, 2, 1) + textIn(table, 4, 1) + textIn(table, 5, 1), "A");
}

unsigned lookUp(unsigned index, std::string& text, Db::Errors&) {
    text = std::to_string(index / 3);
    return 0;
}
class LookedUp : public WLookupText {
public:
    explicit LookedUp(Wt::WContainerWidget* parent) : WLookupText(lookUp, parent) {}
};

TEST_F(SettingsTable, LookupsThatDiffer) {
    static constexpr SettingsRow kRows[] = {
        {.label = "[RSnnn]Mode", .make = makeSettingsField<LookedUp>, .differs = "---"},
        {.label = "[RSnnn]Mode", .make = makeSettingsField<LookedUp>}};
    WSettingsTable table(kSpec, kRows, page());
    const struct {
        Db::Indexes indexes;
        const char *marked, *plain;
    } rows[] = {{{1, 2}, "0", "0"}, {{1, 3}, "---", ""}, {{3}, "1", "1"}, {{}, "", ""}};
    for (const auto& row : rows) {
        table.readFromDatabase(row.indexes, false);
        EXPECT_EQ(textIn(table, 1, 1), row.marked);
        EXPECT_EQ(textIn(table, 2, 1), row.plain);
    }
    static constexpr SettingsRow kOfPeer[] = {
        {.label = "[RSnnn]Mode", .make = makeSettingsField<LookedUp>, .group = 1}};
    Groups peers(kOfPeer, page());
    peers.readFromDatabase({1}, false);
    EXPECT_EQ(textIn(peers, 1, 1), "1") << "of the group's record, not of the chosen one";
}

constexpr SettingsRow kPasswords[] = {
    {.label = "[RSnnn]Allow Blank Password", .make = makeSettingsField<WEnableDisable>, .key = "e"},
    {.label = "[RSnnn]Change Password", .make = makeSettingsField<WChangePassword>, .key = "change"},
    {.label = "[RSnnn]Password",
     .make = makePasswordField,
     .key = "password",
     .maxLength = 20,
     .pattern = "^([!-~]*)$",
     .enabledWhen = {.key = "change", .item = 1},
     .neededWhen = {.key = "e", .is = "enabled", .unless = true},
     .editable = editableAlone},
    {.label = "[RSnnn]Confirm Password",
     .make = makePasswordField,
     .key = "password",
     .pattern = "^([!-~]*)$",
     .repeats = "password"},
};

TEST_F(SettingsTable, APasswordIsChangedWhenItIsRepeated) {
    WSettingsTable table(kSpec, kPasswords, page());
    auto* first = table.widgetAt<WPasswordField>(2);
    auto* second = table.widgetAt<WPasswordField>(3);
    const struct {
        int blankAllowed, change; // items: enabled, disabled; disabled, enabled
        const char *first, *second;
        bool secondEnabled, invalid, valid;
        const char* stored;
    } rows[] = {
        {1, 0, "", "", false, false, true, ""},
        {1, 1, "", "", false, false, false, ""},
        {0, 1, "", "", true, false, true, ""},
        {1, 1, "secret", "", true, true, false, ""},
        {1, 1, "secret", "secreT", true, true, false, ""},
        {1, 1, "secret", "secret", true, false, true, "secret"},
        {1, 1, "with blank", "with blank", false, true, false, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.first) + " " + row.second);
        store.put("r", 1, R"("e":"disabled","password":"")");
        table.readFromDatabase({1}, true);
        choose(*table.widget<WEnableDisable>("e"), row.blankAllowed);
        choose(*table.widget<WChangePassword>("change"), row.change);
        EXPECT_EQ(first->isDisabled(), row.change == 0);
        type(first->field(), row.first);
        type(second->field(), row.second);
        EXPECT_EQ(second->isDisabled(), !row.secondEnabled);
        EXPECT_EQ(table.isAllValid(), row.valid);
        EXPECT_EQ(second->field().hasStyleClass("Wt-invalid"), row.invalid);
        const std::string request = written(table, {1});
        EXPECT_EQ(request.find("secret") != std::string::npos, *row.stored != '\0') << request;
    }
    EXPECT_EQ(first->field().echoMode(), Wt::WLineEdit::Password);
    EXPECT_EQ(first->field().maxLength(), 20);
}

TEST_F(SettingsTable, APasswordIsOfOneRecord) {
    WSettingsTable table(kSpec, kPasswords, page());
    auto* first = table.widgetAt<WPasswordField>(2);
    table.readFromDatabase({1}, false);
    choose(*table.widget<WChangePassword>("change"), 1);
    type(first->field(), "secret");
    table.readFromDatabase({1, 2}, false);
    for (std::size_t row : {2U, 3U}) {
        auto* field = table.widgetAt<WPasswordField>(row);
        EXPECT_EQ(field->currentIndex(), 1);
        EXPECT_TRUE(field->isDisabled());
        EXPECT_EQ(field->field().text().toUTF8(), "");
    }
    table.readFromDatabase({1}, false);
    EXPECT_EQ(first->currentIndex(), 0);
    EXPECT_FALSE(first->isDisabled());
    EXPECT_FALSE(table.anyWidgetHasFocus());
    first->field().setFocus();
    EXPECT_TRUE(table.anyWidgetHasFocus()) << "though the row's widget is the stack around it";
}

TEST_F(SettingsTable, APasswordFieldIsAPairOfPages) {
    WPasswordField password("r", "password", true, page());
    auto* empty = dynamic_cast<Wt::WLineEdit*>(password.widget(1));
    ASSERT_NE(empty, nullptr);
    EXPECT_TRUE(empty->isDisabled()) << "nothing can be typed for several";
    EXPECT_FALSE(password.field().autoComplete());
    password.resize(120, Wt::WLength::Auto);
    EXPECT_EQ(password.field().width().toPixels(), 120);
    EXPECT_EQ(empty->width().toPixels(), 120);
    password.setDisabled(true);
    EXPECT_TRUE(password.field().isDisabled());
    password.setDisabled(false);
    EXPECT_FALSE(password.field().isDisabled());
    for (const std::size_t records : {1U, 2U}) {
        type(password.field(), "secret");
        password.showFor(records);
        EXPECT_EQ(password.field().text().toUTF8(), records == 1 ? "secret" : "");
        EXPECT_EQ(password.field().hasChangedContent(), records == 1);
    }
}

TEST_F(SettingsTable, AButtonThatShowsAValueIsNamedByBoth) {
    static constexpr SettingsRow kRows[] = {
        {.label = "[RSnnn]Icon", .make = makeSettingsField<WPasswordField>, .key = "password"}};
    WSettingsTable table(kSpec, kRows, page());
    const auto* shown = table.widgetAt<WPasswordField>(0);
    EXPECT_TRUE(shown->attributeValue("aria-labelledby").toUTF8().ends_with(" " + shown->id()));
}

} // namespace
