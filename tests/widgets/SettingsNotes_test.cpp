// What a settings table says below its fields: errors where they happen, and what is stored beside an edit.

#include "tests/frame/WidgetSearch.h"
#include "tests/widgets/WidgetTest.h"

#include "widgets/Selectors.h"
#include "widgets/ValidatedFields.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WSettingsTable.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "r"};
constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Name",
     .make = makeSettingsField<WLineEditZeq>,
     .key = "t",
     .pattern = "^[A-Z]*$",
     .mandatory = true,
     .tooltip = "tt.periph.mon.attr.nameField"},
    {.label = "[RSnnn]Number",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "n",
     .bottom = 5,
     .top = 9,
     .tooltip = "tt.periph.mon.attr.nameField"},
    {.label = "[RSnnn]Enabled", .make = makeSettingsField<WEnableDisable>, .key = "e"},
    {.label = "[RSnnn]Address", .make = makeSettingsField<WIpV4Addr>, .key = "a"},
};

class SettingsNotes : public WidgetTest {
protected:
    SettingsNotes() { table.readFromDatabase({1}, true); }

    /// Below the field of a row; "none" while nothing ever was to be said.
    std::string note(int row) {
        for (Wt::WText* text : widgetsIn<Wt::WText>(table.elementAt(row + 1, 1)))
            if (text->hasStyleClass("mirl-field-note")) return text->text().toUTF8();
        return "none";
    }
    WLineEditZeq& name() { return *table.widget<WLineEditZeq>("t"); }
    WLineEditUInt32Zeq& number() { return *table.widget<WLineEditUInt32Zeq>("n"); }
    WEnableDisable& box() { return *table.widget<WEnableDisable>("e"); }
    using Tell = WSettingsTable::Tell;

    WSettingsTable& table = *new WSettingsTable(kSpec, kRows, page());
};

TEST_F(SettingsNotes, SayWhatIsWrongWithAFieldUntilItIsNot) {
    EXPECT_EQ(note(0), "none");
    type(name(), "abc");
    const std::string rule = Wt::WString::tr("tt.periph.mon.attr.nameField").toUTF8();
    EXPECT_EQ(note(0), rule);
    EXPECT_EQ(name().attributeValue("aria-describedby").toUTF8(),
              widgetsIn<Wt::WText>(table.elementAt(1, 1)).at(0)->id());
    EXPECT_EQ(note(1), "none");
    type(name(), "");
    EXPECT_EQ(note(0), "Must not be empty");
    type(name(), "ABC");
    EXPECT_EQ(note(0), "");
    type(number(), "4");
    EXPECT_EQ(note(1), "The number must be at least 5") << "a range says more than the row's hint";
    type(*table.widget<WIpV4Addr>("a"), "10.0.0");
    EXPECT_EQ(note(3), "Invalid input");
    table.readFromDatabase({1}, true);
    EXPECT_EQ(note(1) + note(3), "") << "thrown away";
}

TEST_F(SettingsNotes, OfSeveralRecordsOnlyWhatWasTypedIsWrong) {
    table.readFromDatabase({1, 3}, true);
    EXPECT_EQ(name().emptyText().toUTF8(), "(different)");
    EXPECT_EQ(number().emptyText().toUTF8(), "(different)");
    EXPECT_EQ(box().currentText().toUTF8(), "(different)");
    type(number(), "77");
    EXPECT_EQ(note(0), "none") << "empty as the records differ";
    EXPECT_EQ(note(1), "The number must be at most 9");
    type(name(), "X");
    type(name(), "");
    EXPECT_EQ(name().emptyText().toUTF8(), "") << "what is typed is no difference";
    EXPECT_EQ(note(0), "Must not be empty");
    table.readFromDatabase({1}, true);
    EXPECT_EQ(name().emptyText().toUTF8(), "");
    EXPECT_EQ(box().count(), 2);
}

TEST_F(SettingsNotes, TellWhatOthersStoredBesideAnEdit) {
    type(name(), "MINE");
    table.compareWithStored({1}, Tell::WhatChanged);
    EXPECT_EQ(note(0), "none");
    store.put("r", 1, R"("t":"THEIRS","n":8,"e":"disabled")");
    table.compareWithStored({1}, Tell::WhatChanged);
    EXPECT_EQ(note(0), "now: THEIRS, changed since you began");
    EXPECT_EQ(name().text().toUTF8(), "MINE");
    EXPECT_EQ(note(1), "none") << "not edited";
    EXPECT_EQ(number().text().toUTF8(), "7") << "a comparison shows nothing else anew";

    choose(box(), 1 - box().currentIndex());
    type(number(), "9");
    table.compareWithStored({1}, Tell::WhatChanged);
    EXPECT_EQ(note(1), "now: 8, changed since you began");
    EXPECT_EQ(note(2), "now: Disabled, changed since you began") << "in the words of the choice";
    type(name(), "");
    EXPECT_EQ(note(0), "Must not be empty\nnow: THEIRS, changed since you began");
    store.forget();
    table.readFromDatabase({1}, true);
    table.compareWithStored({1}, Tell::Everything);
    EXPECT_EQ(store.requests().size(), 1u) << "without edits there is nothing to compare";
    EXPECT_EQ(note(0) + note(1) + note(2), "");
}

TEST_F(SettingsNotes, ARefusedSaveKeepsTheEditsAndTellsWhatIsStored) {
    table.readFromDatabase({5, 1}, true);
    store.refuse("set", "r", 1);
    type(name(), "B");
    type(number(), "9");
    EXPECT_EQ(table.writeToDatabase({2, 1}, errors), 1u);
    EXPECT_TRUE(table.tableChanged());
    table.compareWithStored({1}, Tell::Everything);
    EXPECT_EQ(note(0), "stored: A");
    EXPECT_EQ(note(1), "stored: 7");
    EXPECT_EQ(note(2), "none");
    store.accept("set", "r", 1);
    errors.clear();
    EXPECT_EQ(table.writeToDatabase({1}, errors), 0u);
    EXPECT_EQ(store.field("r", 1, "t"), "\"B\"");
    EXPECT_EQ(note(0) + note(1), "");
    EXPECT_FALSE(table.tableChanged());
}

} // namespace
