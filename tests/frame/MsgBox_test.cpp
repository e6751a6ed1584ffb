#include "frame/WMsgBox.h"
#include "frame/WMsgBoxDbErr.h"
#include "frame/WMsgBoxSimple.h"
#include "tests/frame/Answering.h"
#include "tests/frame/PlainApp.h"
#include "tests/frame/WidgetSearch.h"

#include <Wt/WCheckBox>
#include <Wt/WImage>

#include <gtest/gtest.h>

namespace {

TEST(MsgBox, ButtonsByOrderOfAddingFirstOneRightmost) {
    PlainApp app;
    for (int chosen = 1; chosen <= 3; ++chosen) {
        WMsgBox box(WMsgBox::Warning);
        for (const char* text : {"one", "two", "three", "four"}) box.buttonAdd(text);
        const auto buttons = widgetsIn<Wt::WPushButton>(&box);
        ASSERT_EQ(buttons.size(), 3u) << "a fourth button is ignored";
        EXPECT_EQ(buttons[0]->text(), "three");
        EXPECT_EQ(buttons[2]->text(), "one");
        Answering user(app.environment,
                       [&](Wt::WDialog& dialog) { click(widgetsIn<Wt::WPushButton>(&dialog)[3 - chosen]); });
        EXPECT_EQ(box.exec(), Wt::WDialog::Accepted);
        EXPECT_EQ(box.buttonClicked(), chosen);
    }
}

TEST(MsgBox, TheFirstButtonHasTheFocusUnlessAnotherIsGivenIt) {
    PlainApp app;
    for (int focused = 0; focused <= 3; ++focused) { // 0 and 3: no such button
        WMsgBox box(WMsgBox::Warning);
        for (const char* text : {"one", "two"}) box.buttonAdd(text);
        box.show();
        box.focusSet(focused);
        EXPECT_EQ(buttonIn(&box, "one")->hasFocus(), focused != 2) << focused;
        EXPECT_EQ(buttonIn(&box, "two")->hasFocus(), focused == 2) << focused;
    }
}

TEST(MsgBox, EscapeIsNoButtonButKeepsTheCheckBox) {
    PlainApp app;
    for (const bool ticked : {false, true}) {
        WMsgBox box(WMsgBox::Info);
        box.checkBoxSet("never again");
        box.buttonAdd("one");
        Answering user(app.environment, [&](Wt::WDialog& dialog) {
            widgetsIn<Wt::WCheckBox>(&dialog).at(0)->setChecked(ticked);
            dialog.reject(); // what Escape does
        });
        EXPECT_EQ(box.exec(), Wt::WDialog::Rejected);
        EXPECT_EQ(box.buttonClicked(), 0);
        EXPECT_EQ(box.isCheckBoxChecked(), ticked);
    }
}

TEST(MsgBox, WithoutCheckBoxNothingIsTicked) {
    PlainApp app;
    EXPECT_FALSE(WMsgBox(WMsgBox::Error).isCheckBoxChecked());
}

TEST(MsgBox, TimeoutEndsItWithoutAnAnswer) {
    PlainApp app;
    WMsgBox notice(WMsgBox::Info);
    notice.buttonAdd("one");
    Answering user(app.environment, [&](Wt::WDialog&) { notice.timeoutHandler(); });
    notice.execWithTimeout(1000);
    EXPECT_EQ(notice.buttonClicked(), 0);
    EXPECT_EQ(notice.result(), Wt::WDialog::Accepted);

    WMsgBox answered(WMsgBox::Info);
    answered.buttonAdd("one");
    user.answer = [](Wt::WDialog& dialog) { click(widgetsIn<Wt::WPushButton>(&dialog).at(0)); };
    answered.execWithTimeout(1000);
    EXPECT_EQ(answered.buttonClicked(), 1);
}

TEST(MsgBox, IconByTypeAndMessageWithoutMarkup) {
    PlainApp app;
    const char* icons[] = {"event-severity-info.png", "event-severity-warning.png",
                           "event-severity-error.png"};
    for (int type = 0; type < 3; ++type) {
        WMsgBox box(static_cast<WMsgBox::MsgType>(type));
        box.titleSet("title");
        box.msgSet("<b>1</b> & \"2\"");
        const auto images = widgetsIn<Wt::WImage>(&box);
        ASSERT_EQ(images.size(), 1u);
        EXPECT_NE(images[0]->imageLink().url().find(icons[type]), std::string::npos);
        for (Wt::WText* text : widgetsIn<Wt::WText>(&box)) EXPECT_EQ(text->textFormat(), Wt::PlainText);
        EXPECT_EQ(textIn(&box), "title\n<b>1</b> & \"2\"\n");
    }
}

TEST(MsgBoxSimple, SecondButtonOnlyWithText) {
    PlainApp app;
    WMsgBoxSimple one(WMsgBoxSimple::Error, "t", "x", "a", "");
    EXPECT_EQ(one.button2, nullptr);
    WMsgBoxSimple two(WMsgBoxSimple::Error, "t", "x", "a", "b");
    EXPECT_EQ(two.button1->text(), "a");
    EXPECT_EQ(two.button2->text(), "b");
    EXPECT_EQ(textIn(&two), "t\nx\n");
}

TEST(MsgBoxDbErr, FirstLineByOperationThenTheErrors) {
    PlainApp app;
    const char* lines[] = {"reading value(s)",   "writing value(s)",     "creating record(s)",
                           "deleting record(s)", "performing operation", "performing operation"};
    std::vector<std::string> errors = {"First.", "<i>Second</i>: 100% wrong."};
    for (int type = 0; type < 6; ++type) {
        WMsgBoxDbErr box(static_cast<WMsgBoxDbErr::AccessType>(type), errors);
        const std::string text = textIn(&box);
        EXPECT_NE(text.find(std::string("Error ") + lines[type]), std::string::npos) << text;
        EXPECT_NE(text.find("\nFirst.\n<i>Second</i>: 100% wrong.\n"), std::string::npos) << text;
    }
    WMsgBoxDbErr box(WMsgBoxDbErr::Write, errors);
    Answering user(app.environment,
                   [](Wt::WDialog& dialog) { click(widgetsIn<Wt::WPushButton>(&dialog).at(0)); });
    EXPECT_EQ(box.exec(), Wt::WDialog::Accepted);
}

} // namespace
