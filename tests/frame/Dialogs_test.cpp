#include "frame/WFileUploadDialog.h"
#include "frame/WFlashDisplayDialog.h"
#include "frame/WProgressDialog.h"
#include "tests/frame/PlainApp.h"
#include "tests/frame/WidgetSearch.h"
#include "widgets/WLineEditPlus.h"

#include <Wt/WCheckBox>
#include <Wt/WFileUpload>
#include <Wt/WProgressBar>

#include <gtest/gtest.h>

namespace {

TEST(FlashDisplayDialog, OnlyADurationOfADayOrLessEnablesTheButtons) {
    PlainApp app;
    struct {
        const char* text;
        bool enabled;
    } rows[] = {
        {"0", true},  {"86400", true}, {"86401", false},      {"", false},  {"-1", false},
        {"x", false}, {"1.5", false},  {"4294967296", false}, {"30", true}, {"+30", false},
    };
    WFlashDisplayDialog dialog("[RSnnn]device flash explanation");
    auto* field = widgetsIn<WLineEditPlus>(&dialog).at(0);
    for (const auto& row : rows) {
        field->Wt::WLineEdit::setText(row.text); // as typed
        dialog.durationFieldChangedHandler();
        for (Wt::WPushButton* button : widgetsIn<Wt::WPushButton>(&dialog))
            EXPECT_EQ(button->isEnabled(), row.enabled) << row.text << " " << button->text().toUTF8();
    }
}

TEST(FlashDisplayDialog, BothButtonsTakeTheDurationOnlyCancelSetsTheFlag) {
    PlainApp app;
    for (const bool cancel : {false, true}) {
        WFlashDisplayDialog dialog("[RSnnn]device flash explanation");
        dialog.show();
        // Should a validator take the sign for part of a number, it is one.
        widgetsIn<WLineEditPlus>(&dialog).at(0)->Wt::WLineEdit::setText(cancel ? "120" : "+120");
        EXPECT_TRUE(dialog.cancelWasClicked()) << "until Flash is clicked: Escape must not flash anything";
        click(widgetsIn<Wt::WPushButton>(&dialog).at(cancel ? 1 : 0));
        EXPECT_EQ(dialog.cancelWasClicked(), cancel);
        EXPECT_EQ(dialog.getDurationSec(), 120u);
        EXPECT_EQ(dialog.result(), Wt::WDialog::Accepted);
    }
}

TEST(ProgressDialog, ItsMakerDrivesIt) {
    PlainApp app;
    WProgressDialog dialog("upload.png", "Title", "Text", "Hide");
    dialog.show();
    dialog.titleSet("New title");
    dialog.msgSet("Step <2>");
    dialog.buttonTextSet("Close");
    dialog.progressUpdate(140);
    EXPECT_EQ(textIn(&dialog), "New title\nStep <2>\n");
    EXPECT_EQ(widgetsIn<Wt::WProgressBar>(&dialog).at(0)->value(), 100);
    click(buttonIn(&dialog, "Close"));
    EXPECT_EQ(dialog.result(), Wt::WDialog::Accepted);
}

/// The texts of an upload dialog after its heading, and its visible buttons.
std::string state(WFileUploadDialog& dialog) {
    std::string all = textIn(&dialog);
    all.erase(0, all.find('\n') + 1);
    for (Wt::WPushButton* button : widgetsIn<Wt::WPushButton>(&dialog))
        if (!button->isHidden()) all += button->text().toUTF8() + (button->isEnabled() ? " on; " : " off; ");
    return all;
}

class FileUpload : public testing::Test {
protected:
    FileUpload() {
        upload = widgetsIn<Wt::WFileUpload>(&dialog).at(0);
        dialog.show();
    }

    PlainApp app;
    WFileUploadDialog dialog;
    Wt::WFileUpload* upload;
};

TEST_F(FileUpload, SendNeedsAFileThenTheDialogWaitsForClose) {
    EXPECT_NE(state(dialog).find("Send\?\? off"), std::string::npos) << state(dialog);
    upload->changed().emit();
    EXPECT_NE(state(dialog).find("Send\?\? on"), std::string::npos);
    click(widgetsIn<Wt::WPushButton>(&dialog).at(0));
    EXPECT_NE(state(dialog).find("Transferring file."), std::string::npos);
    EXPECT_EQ(state(dialog).find("Send\?\?"), std::string::npos) << "nothing can be sent twice";
    upload->uploaded().emit();
    EXPECT_EQ(dialog.result(), WFileUploadDialog::kTransferred);
    EXPECT_NE(state(dialog).find("Completed."), std::string::npos);
    const auto buttons = widgetsIn<Wt::WPushButton>(&dialog);
    ASSERT_EQ(buttons.size(), 1u);
    click(buttons[0]);
    EXPECT_EQ(dialog.Wt::WDialog::result(), Wt::WDialog::Accepted);
    EXPECT_EQ(dialog.result(), WFileUploadDialog::kTransferred);
}

TEST_F(FileUpload, TickedBoxClosesAtOnce) {
    widgetsIn<Wt::WCheckBox>(&dialog).at(0)->setChecked(true);
    upload->uploaded().emit();
    EXPECT_EQ(dialog.Wt::WDialog::result(), Wt::WDialog::Accepted);
    EXPECT_EQ(dialog.result(), WFileUploadDialog::kTransferred);
}

TEST_F(FileUpload, TooLargeLeavesOnlyCloseAndNoFile) {
    upload->changed().emit();
    upload->fileTooLarge().emit(20000000);
    EXPECT_NE(state(dialog).find("File too large."), std::string::npos);
    const auto buttons = widgetsIn<Wt::WPushButton>(&dialog);
    click(buttons.at(1));
    EXPECT_EQ(dialog.result(), WFileUploadDialog::kCancelled);
    EXPECT_EQ(dialog.serverFileName(), "");
    EXPECT_EQ(dialog.Wt::WDialog::result(), Wt::WDialog::Rejected);
}

} // namespace
