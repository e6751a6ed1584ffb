// Combo boxes over constant tables, and the check box.

#include "tests/widgets/WidgetTest.h"

#include "widgets/Selectors.h"
#include "widgets/WChangePassword.h"
#include "widgets/WCheckBoxZeq.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WKeyCodeSelector.h"
#include "widgets/WOsdActivateHotkeyCustom.h"
#include "widgets/WOsdHotkeyFunc.h"
#include "widgets/WWakeOnConnectKeyCode.h"

namespace {

constexpr WComboBoxPlus::Triplet kChoices[] = {
    {"zero", "[RSnnn]None", 10},
    {"one", "[RSnnn]USB", 11},
    {"two", "[RSnnn]Video", 12},
};
constexpr int kBlank = 3;

class Choices : public WidgetTest {
protected:
    WComboBoxZeq box{"r", "c", kChoices, true, page()};
};

TEST_F(Choices, ReadAndExtractShowTheSharedChoiceOrABlankItem) {
    const struct {
        Db::Indexes indexes;
        unsigned result;
        int item, items;
    } rows[] = {
        {{1}, 0, 2, 3},    {{1, 2}, 0, 2, 3},         {{1, 3}, 0, kBlank, 4}, {{3, 1, 2}, 0, kBlank, 4},
        {{1, 2}, 0, 2, 3}, {{1, 3, 5}, 0, kBlank, 4}, {{3}, 0, 1, 3},         {{}, 1, 0, 3},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(testing::PrintToString(r.indexes));
        EXPECT_EQ(box.readFromDatabase(r.indexes, errors, false), r.result);
        EXPECT_EQ(box.currentIndex(), r.item);
        EXPECT_EQ(box.count(), r.items);
        EXPECT_EQ(box.value(), r.item == kBlank ? 0 : 10 + r.item);
        if (!r.indexes.empty() && r.indexes.back() == 5) continue;
        box.getZeqParam(table(r.indexes).get(), r.indexes, false);
        EXPECT_EQ(box.currentIndex(), r.item);
        EXPECT_EQ(box.count(), r.items);
    }
    EXPECT_EQ(box.readFromDatabase({5}, errors, false), 1U);
    EXPECT_EQ(box.currentIndex(), 0) << "as it was";
    EXPECT_TRUE(log.messages(2).empty());
}

TEST_F(Choices, AValueOutsideTheTableShowsTheFirstItemAndIsNotWritten) {
    store.put("r", 6, R"("c":"new %s")");
    EXPECT_EQ(box.readFromDatabase({6}, errors, false), 0U);
    EXPECT_EQ(box.currentIndex(), 0);
    EXPECT_EQ(log.messages(2), std::vector<std::string>{"Unknown value for r/c: new %s. Using default."});
    EXPECT_EQ(paramsOf(box), "{}");
    EXPECT_EQ(box.writeToDatabase({6}, errors), 0U);
    EXPECT_EQ(store.field("r", 6, "c"), "\"new %s\"");
    EXPECT_EQ(box.readFromDatabase({4, 4}, errors, false), 0U) << "a missing key reads as an empty text";
    EXPECT_EQ(box.currentIndex(), 0);
    box.getZeqParam(table({4}).get(), {4}, false);
    EXPECT_EQ(box.currentIndex(), kBlank) << "a failed extract shows the blank item";
}

TEST_F(Choices, AWriteGoesOnBehindAFailureAndTheLastOneDecides) {
    choose(box, 1);
    EXPECT_EQ(paramsOf(box), R"({"c":"one"})");
    EXPECT_EQ(box.writeToDatabase({}, errors), 0U);
    EXPECT_TRUE(box.hasChangedContent());
    EXPECT_EQ(box.writeToDatabase({5, 1}, errors), 0U);
    EXPECT_EQ(store.field("r", 1, "c"), "\"one\"");
    choose(box, 2);
    EXPECT_EQ(box.writeToDatabase({1, 5}, errors), 1U);
    EXPECT_FALSE(box.hasChangedContent());
    EXPECT_EQ(store.field("r", 1, "c"), "\"two\"");
}

TEST_F(Choices, TheBlankItemIsNeverWritten) {
    box.readFromDatabase({1, 3}, errors, false);
    choose(box, kBlank);
    EXPECT_EQ(paramsOf(box), "{}");
    store.forget();
    EXPECT_EQ(box.writeToDatabase({1, 3}, errors), 1U);
    EXPECT_TRUE(store.requests().empty());
}

TEST_F(Choices, ABoxInUseIsLeftAloneEvenByForce) {
    box.readFromDatabase({1}, errors, false);
    box.setFocus();
    store.forget();
    EXPECT_EQ(box.readFromDatabase({3}, errors, true), 0U);
    EXPECT_EQ(box.currentIndex(), 2);
    EXPECT_TRUE(store.requests().empty());
    box.setFocus(false);
    choose(box, 0);
    box.readFromDatabase({3}, errors, false);
    EXPECT_EQ(box.currentIndex(), 0);
    box.readFromDatabase({3}, errors, true);
    EXPECT_EQ(box.currentIndex(), 1);
    EXPECT_FALSE(box.hasChangedContent());
}

TEST_F(Choices, ChoiceByNumber) {
    EXPECT_EQ(box.setCurrentIndexByValue(12), 0U);
    EXPECT_EQ(box.selection(), "two");
    EXPECT_EQ(box.setCurrentIndexByValue(99), 1U);
    EXPECT_EQ(box.currentIndex(), 2);
}

TEST_F(Choices, EnabledStandsFirstAndReadsByName) {
    WEnableDisable onOff("r", "e", true, page());
    onOff.readFromDatabase({1}, errors, false);
    EXPECT_TRUE(onOff.isChosenEnabled());
    EXPECT_EQ(onOff.value(), 2);
    onOff.readFromDatabase({3}, errors, false);
    EXPECT_TRUE(onOff.isChosenDisabled());
    onOff.readFromDatabase({1, 3}, errors, false);
    EXPECT_FALSE(onOff.isChosenEnabled() || onOff.isChosenDisabled());
    choose(onOff, 1);
    EXPECT_EQ(paramsOf(onOff), R"({"e":"disabled"})");
}

TEST_F(Choices, FunctionsOfAKeyShowAConflictAndLoseItAgain) {
    WOsdHotkeyFunc func("user", "action", true, page());
    func.showConflict();
    func.showConflict();
    EXPECT_TRUE(func.isShowingConflict());
    EXPECT_EQ(func.count(), 11);
    func.showValue("no such action");
    EXPECT_FALSE(func.isShowingConflict());
    EXPECT_EQ(func.count(), 10);
    func.showValue("connect_to_target_x");
    EXPECT_EQ(func.value(), 5);
    func.showValue("no such action");
    EXPECT_EQ(func.value(), 5) << "the selection stays";
}

TEST_F(Choices, WakeKeysByTheirOwnPairing) {
    WWakeOnConnectKeyCode key("r", "n", true, page());
    const struct {
        unsigned code;
        int item;
    } rows[] = {{224, 0}, {225, 1}, {226, 2}, {130, 3}, {4, 4}, {0, 4}, {227, 4}};
    for (const auto& r : rows) {
        key.showConflict();
        key.showValue(r.code);
        EXPECT_EQ(key.currentIndex(), r.item) << r.code;
        EXPECT_EQ(key.customIsSelected(), r.item == 4);
        EXPECT_EQ(key.count(), 5);
    }
}

TEST_F(Choices, AChoiceWithoutADatabaseStringStoresNothing) {
    WWakeOnConnectKeyCode key("r", "t", true, page());
    choose(key, 2);
    EXPECT_EQ(paramsOf(key), "{}");
    EXPECT_EQ(key.writeToDatabase({1}, errors), 1U);
    EXPECT_EQ(store.field("r", 1, "t"), "\"A\"");
}

TEST_F(Choices, KeyCodesWithoutTheFourThatEndAnEntry) {
    WKeyCodeSelector keys(page());
    EXPECT_EQ(keys.count(), 252);
    for (int code = 0; code < 256; ++code) {
        const bool missing = code == 40 || code == 41 || code == 43 || code == 88;
        EXPECT_EQ(keys.setCurrentIndexByValue(code), missing ? 1U : 0U) << code;
        if (missing) continue;
        EXPECT_EQ(keys.value(), code);
        EXPECT_EQ(keys.currentText().toUTF8().find("??"), std::string::npos) << keys.currentText();
    }
    EXPECT_EQ(keys.currentText().toUTF8(), "255 - Reserved");
}

TEST_F(Choices, APasswordBoxGetsItsBlankItemOnce) {
    WChangePassword box2(page());
    box2.includeBlankItem(true);
    box2.includeBlankItem(true);
    EXPECT_EQ(box2.count(), 3);
    box2.showBlankItem();
    EXPECT_EQ(box2.currentIndex(), 2);
    box2.includeBlankItem(false);
    EXPECT_EQ(box2.count(), 2);
}

class CheckBoxes : public WidgetTest {
protected:
    WCheckBoxZeq box{"r", "b", true, page()};
};

TEST_F(CheckBoxes, ReadsBooleansButExtractsWords) {
    const struct {
        Db::Indexes indexes;
        unsigned result;
        Wt::CheckState read, extracted;
        std::size_t requests;
    } rows[] = {
        {{1}, 0, Wt::Checked, Wt::Checked, 1},
        {{3}, 0, Wt::Unchecked, Wt::Unchecked, 1},
        {{1, 2}, 0, Wt::Checked, Wt::Checked, 2},
        {{1, 3, 5}, 0, Wt::PartiallyChecked, Wt::Unchecked, 2},
        {{}, 0, Wt::PartiallyChecked, Wt::Unchecked, 0},
    };
    WCheckBoxZeq words("r", "e", true, page());
    for (const auto& r : rows) {
        SCOPED_TRACE(testing::PrintToString(r.indexes));
        store.forget();
        EXPECT_EQ(box.readFromDatabase(r.indexes, errors, false), r.result);
        EXPECT_EQ(box.checkState(), r.read);
        EXPECT_EQ(store.requests().size(), r.requests);
        words.getZeqParam(table(r.indexes).get(), r.indexes, false);
        EXPECT_EQ(words.checkState(), r.extracted);
    }
    box.setCheckState(Wt::Checked);
    EXPECT_EQ(box.readFromDatabase({3, 5}, errors, false), 1U);
    EXPECT_EQ(box.checkState(), Wt::Checked) << "a failed read leaves it";
}

TEST_F(CheckBoxes, PartiallyCheckedAddsNothingButWritesFalse) {
    box.setCheckState(Wt::PartiallyChecked);
    box.setContentChanged();
    EXPECT_EQ(paramsOf(box), "{}");
    EXPECT_EQ(box.writeToDatabase({1}, errors), 0U);
    EXPECT_EQ(store.field("r", 1, "b"), "false");
    box.setChecked(true);
    box.changed().emit();
    EXPECT_EQ(paramsOf(box), R"({"b":true})");
    EXPECT_EQ(box.writeToDatabase({5, 3}, errors), 1U);
    EXPECT_EQ(store.field("r", 3, "b"), "true") << "goes on behind a refusal";
    EXPECT_FALSE(box.hasChangedContent());
}

// Two key codes: the first and the second box.
class CustomHotkey : public WidgetTest {
protected:
    WKeyCodeSelector* box(int place) {
        std::vector<WKeyCodeSelector*> boxes;
        collect(&keys, boxes);
        return boxes.at(static_cast<std::size_t>(place));
    }
    static void collect(Wt::WWidget* widget, std::vector<WKeyCodeSelector*>& boxes) {
        if (auto* found = dynamic_cast<WKeyCodeSelector*>(widget)) boxes.push_back(found);
        if (auto* container = dynamic_cast<Wt::WContainerWidget*>(widget))
            for (int i = 0; i < container->count(); ++i) collect(container->widget(i), boxes);
    }
    static ZeqPtr sequences(const std::vector<std::pair<unsigned, std::vector<unsigned char>>>& rows) {
        const ZeqPtr outer(json_loads(R"({"rows":[]})", 0, nullptr));
        json_t* array = json_object_get(outer.get(), "rows");
        unsigned index = 0;
        for (const auto& [length, bytes] : rows) {
            json_t* row = ZeqObj_new();
            ZeqObj_setUInt32(row, "index", ++index);
            ZeqObj_setUInt32(row, "length", length);
            ZeqObj_setBinary(row, "sequence", bytes.data(), static_cast<unsigned>(bytes.size()));
            ZeqObj_arrayAppendObject(array, row);
        }
        return ZeqPtr(json_deep_copy(outer.get()));
    }

    WOsdActivateHotkeyCustom keys{"user", "customKeys", true, page()};
};

TEST_F(CustomHotkey, ShowsWhatTheRowsShare) {
    const struct {
        std::vector<std::pair<unsigned, std::vector<unsigned char>>> rows;
        Db::Indexes indexes;
        int first, second;
    } cases[] = {
        {{{2, {4, 70}}}, {1}, 4, 70},
        {{{1, {4, 70}}}, {1}, 4, 0},
        {{{0, {4, 70}}}, {1}, 0, 0},
        {{{2, {40, 5}}}, {1}, 0, 5}, // 40 cannot be chosen
        {{{2, {4, 70}}, {2, {4, 70}}}, {1, 2}, 4, 70},
        {{{2, {4, 70}}, {2, {4, 71}}}, {1, 2}, 0, 0},
        {{{2, {4, 70}}, {1, {4, 70}}}, {1, 2}, 0, 0},
        {{{2, {4, 70}}}, {1, 2}, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.rows));
        box(0)->setCurrentIndexByValue(99);
        box(1)->setCurrentIndexByValue(99);
        keys.getZeqParam(sequences(c.rows).get(), c.indexes, false);
        EXPECT_EQ(box(0)->value(), c.first);
        EXPECT_EQ(box(1)->value(), c.second);
    }
}

TEST_F(CustomHotkey, ALoneKeyMovesToTheFront) {
    const struct {
        int first, second;
        const char* params;
    } rows[] = {
        {4, 70, R"({"length":2,"sequence":{"$binary":"BEY="}})"},
        {4, 0, R"({"length":1,"sequence":{"$binary":"BAA="}})"},
        {0, 70, R"({"length":1,"sequence":{"$binary":"RgA="}})"},
        {0, 0, R"({"length":0,"sequence":{"$binary":"AAA="}})"},
    };
    EXPECT_EQ(paramsOf(keys), "{}");
    for (const auto& r : rows) {
        box(0)->setCurrentIndexByValue(r.first);
        box(1)->setCurrentIndexByValue(r.second);
        box(1)->changed().emit();
        EXPECT_EQ(paramsOf(keys), r.params);
    }
    keys.getZeqParam(sequences({{1, {9, 9}}}).get(), {1}, false);
    EXPECT_EQ(box(0)->value(), 0) << "an edit is kept";
    box(1)->setFocus();
    EXPECT_TRUE(keys.hasFocus());
    keys.getZeqParam(sequences({{1, {9, 9}}}).get(), {1}, true);
    EXPECT_EQ(box(0)->value(), 0) << "a box in use is left alone";
}

} // namespace
