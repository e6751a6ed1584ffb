#include "frame/Confirm.h"
#include "tests/db/DbTest.h"
#include "tests/frame/Answering.h"
#include "tests/frame/WidgetSearch.h"

#include <Wt/WCheckBox>

#include <stdexcept>

namespace {

constexpr const char* kFlag = "enableRemoveDevicesWarning";
constexpr Confirmation kQuestion = {.flag = kFlag,
                                    .title = "[RSnnn]Confirm Remove",
                                    .message = "[RSnnn]Remove",
                                    .proceed = "[RSnnn]Remove",
                                    .messageOfMany = "[RSnnn]Errors",
                                    .proceedOfMany = "[RSnnn]Proceed"};

Wt::WPushButton& button(Wt::WDialog& dialog, const char* text) {
    Wt::WPushButton* found = buttonIn(&dialog, text);
    if (!found) throw std::runtime_error(std::string("no button ") + text);
    return *found;
}

class Confirming : public DbTest {
protected:
    void ask(bool again, const char* button) {
        user.answer = [=, this](Wt::WDialog& dialog) {
            text = textIn(&dialog);
            for (auto* box : widgetsIn<Wt::WCheckBox>(&dialog)) box->setChecked(!again);
            if (Wt::WPushButton* found = buttonIn(&dialog, button))
                click(found);
            else
                dialog.reject(); // what Escape does
        };
    }
    std::string flag() { return store.field("user", 0, kFlag); }

    std::string text; // of the box that was shown; empty if none was
    Answering user{session.environment(), [](Wt::WDialog&) {}};
};

TEST_F(Confirming, OnlyTheFirstButtonGoesOnAndATickCountsWhateverEndsTheBox) {
    const struct {
        bool ticked;
        const char* button; // Escape if there is none of that text
        bool goesOn;
    } rows[] = {{false, "Remove", true}, {false, "Cancel", false}, {false, "", false},
                {true, "Remove", true},  {true, "Cancel", false},  {true, "", false}};
    for (const auto& row : rows) {
        store.put("user", 0, R"("enableRemoveDevicesWarning":"enabled")");
        ask(!row.ticked, row.button);
        EXPECT_EQ(confirm(kQuestion), row.goesOn) << row.button;
        EXPECT_EQ(text, "Confirm Remove\nRemove\n");
        EXPECT_EQ(flag(), row.ticked ? "\"disabled\"" : "\"enabled\"") << row.button;
    }
}

TEST_F(Confirming, AsksUnlessTurnedOffAndAlsoWhenThatCannotBeRead) {
    ask(true, "Cancel");
    store.put("user", 0, R"("enableRemoveDevicesWarning":"disabled")");
    EXPECT_TRUE(confirm(kQuestion));
    EXPECT_EQ(text, "");
    store.refuse("get", "user", 0);
    EXPECT_FALSE(confirm(kQuestion));
    EXPECT_NE(text, "");
    text.clear();
    store.hangUp();
    EXPECT_FALSE(confirm(kQuestion));
    EXPECT_NE(text, "");
}

TEST_F(Confirming, SeveralRecordsHaveWordsOfTheirOwnIfTheRowHasSome) {
    ask(true, "Proceed");
    store.put("user", 0, R"("enableRemoveDevicesWarning":"enabled")");
    EXPECT_TRUE(confirm(kQuestion, 2, Wt::WString::fromUTF8("a, b & <c>")));
    EXPECT_EQ(text, "Confirm Remove\nErrors\n\na, b & <c>\n");
    Confirmation plain = kQuestion;
    plain.messageOfMany = plain.proceedOfMany = nullptr;
    ask(true, "Remove");
    EXPECT_TRUE(confirm(plain, 2));
    EXPECT_EQ(text, "Confirm Remove\nRemove\n");
}

TEST_F(Confirming, WithoutASwitchNothingCanTurnItOff) {
    Confirmation always = kQuestion;
    always.flag = nullptr;
    user.answer = [](Wt::WDialog& dialog) {
        EXPECT_TRUE(widgetsIn<Wt::WCheckBox>(&dialog).empty());
        click(&button(dialog, "Remove"));
    };
    EXPECT_TRUE(confirm(always));
    EXPECT_TRUE(store.requests().empty()) << store.requests().front();
}

TEST_F(Confirming, TheFocusIsWhereTheRowSays) {
    for (const bool onCancel : {false, true}) {
        Confirmation row = kQuestion;
        row.flag = nullptr;
        row.focusOnCancel = onCancel;
        user.answer = [=](Wt::WDialog& dialog) {
            EXPECT_EQ(button(dialog, "Cancel").hasFocus(), onCancel);
            EXPECT_EQ(button(dialog, "Remove").hasFocus(), !onCancel);
            dialog.reject();
        };
        EXPECT_FALSE(confirm(row));
    }
}

} // namespace
