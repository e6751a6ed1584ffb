// Settings files and factory settings, from the page's actions.

#include "frame/DialogForm.h"
#include "tests/views/settings/SettingsPage.h"
#include "views/settings/files/SettingsDownload.h"
#include "views/settings/files/WLoadSettingsDialog.h"
#include "views/settings/files/WSaveSettingsDialog.h"

#include <Wt/WAnchor>
#include <Wt/WFileResource>
#include <Wt/WFileUpload>
#include <Wt/WLineEdit>
#include <Wt/WPushButton>

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class SysFiles : public SettingsPage {
protected:
    static void enter(Wt::WLineEdit* field, const std::string& text) {
        field->setText(text);
        field->textInput().emit();
    }
    static Wt::WPushButton* next(Wt::WDialog& dialog) { return buttonIn(&dialog, "Next →"); }
    static fs::path offered(const WSaveSettingsDialog& dialog) {
        const auto* file = dynamic_cast<const Wt::WFileResource*>(dialog.fileLink()->resource());
        return file ? file->fileName() : "";
    }
    static std::string head(const fs::path& file) {
        std::string bytes(7, '\0');
        std::ifstream(file, std::ios::binary).read(bytes.data(), 7);
        return bytes;
    }
    bool serviceKeepsNothing() const {
        return !fs::exists(zeqd.settingsFolder()) || fs::is_empty(zeqd.settingsFolder());
    }
};

TEST_F(SysFiles, NextNeedsTheSamePasswordOfLettersAndDigitsTwice) {
    answer([](Wt::WDialog& shownDialog) {
        auto& dialog = dynamic_cast<WSaveSettingsDialog&>(shownDialog);
        const struct {
            std::string first, second;
            bool next;
        } rows[] = {
            {"", "", true},
            {"a", "", false},
            {"", "a", false},
            {"Abc9", "Abc9", true},
            {"Abc9", "abc9", false},
            {"a b", "a b", false},
            {"a-b", "a-b", false},
            {"é", "é", false},
            {std::string(50, 'x'), std::string(50, 'x'), true},
        };
        for (const auto& row : rows) {
            enter(dialog.passwordField(), row.first);
            enter(dialog.confirmField(), row.second);
            EXPECT_EQ(next(dialog)->isEnabled(), row.next) << row.first << " " << row.second;
        }
        EXPECT_EQ(dialog.passwordField()->maxLength(), 50);
        EXPECT_EQ(dialog.passwordField()->echoMode(), Wt::WLineEdit::Password);
        click(buttonIn(&dialog, "Cancel"));
    });
    clickAction(SysAction::Save);
    EXPECT_TRUE(serviceKeepsNothing()) << "nothing was made";
}

TEST_F(SysFiles, ThePasswordDecidesTheKindAndTheFileGoesWithTheDialog) {
    const struct {
        const char *password, *name, *head;
    } rows[] = {{"", "settings.tar.gz", "\x1f\x8b"}, {"Secret9", "settings.cze", "ZEQSET1"}};
    for (const auto& row : rows) {
        fs::path file;
        answer([&](Wt::WDialog& shownDialog) {
            auto& dialog = dynamic_cast<WSaveSettingsDialog&>(shownDialog);
            enter(dialog.passwordField(), row.password);
            enter(dialog.confirmField(), row.password);
            click(next(dialog));
            EXPECT_EQ(next(dialog), nullptr);
            EXPECT_THAT(textIn(&dialog), HasSubstr("The settings file is ready."));
            EXPECT_EQ(dialog.passwordField()->text(), "");
            file = offered(dialog);
            EXPECT_EQ(file.filename(), row.name);
            EXPECT_EQ(head(file).substr(0, std::string(row.head).size()), row.head);
            EXPECT_EQ(fs::status(file.parent_path()).permissions(), fs::perms::owner_all) << "nobody else's";
            EXPECT_TRUE(serviceKeepsNothing());
            click(buttonIn(&dialog, "Close"));
        });
        clickAction(SysAction::Save);
        EXPECT_NE(file, "");
        EXPECT_FALSE(fs::exists(file.parent_path()));
    }
}

TEST_F(SysFiles, WhatFailsAtMakingIsTold) {
    answer([&](Wt::WDialog& shownDialog) {
        auto& dialog = dynamic_cast<WSaveSettingsDialog&>(shownDialog);
        zeqd.kill();
        click(next(dialog));
        EXPECT_THAT(textIn(&dialog), HasSubstr("could not be made"));
        EXPECT_EQ(next(dialog), nullptr);
        EXPECT_EQ(offered(dialog), "");
        zeqd.start();
        click(buttonIn(&dialog, "Close"));
    });
    clickAction(SysAction::Save);
}

TEST_F(SysFiles, LoadingGoesStepByStepAndARefusalCanOnlyBeClosed) {
    answer([](Wt::WDialog& shownDialog) {
        auto& dialog = dynamic_cast<WLoadSettingsDialog&>(shownDialog);
        EXPECT_TRUE(next(dialog)->isEnabled());
        click(next(dialog));
        EXPECT_FALSE(next(dialog)->isEnabled()) << "no file is chosen";
        dialog.upload()->changed().emit();
        EXPECT_TRUE(next(dialog)->isEnabled());
        click(next(dialog));
        EXPECT_THAT(textIn(&dialog), HasSubstr("Transferring file."));
        EXPECT_EQ(next(dialog), nullptr);
        dialog.fileUploadedHandler(); // nothing came: the service finds no file
        EXPECT_EQ(dialog.result(), WLoadSettingsDialog::Refused);
        EXPECT_THAT(textIn(&dialog), HasSubstr("Error validating and installing settings file."));
        EXPECT_EQ(buttonIn(&dialog, "Cancel"), nullptr);
        EXPECT_EQ(buttonIn(&dialog, "Reboot"), nullptr);
        dialog.fileUploadedHandler();
        EXPECT_EQ(widgetsIn<Wt::WPushButton>(&dialog).size(), 1U) << "a second arrival changes nothing";
        click(buttonIn(&dialog, "Close"));
    });
    clickAction(SysAction::Load);
}

TEST_F(SysFiles, ALargeFileAndACancelledOne) {
    answer([](Wt::WDialog& shownDialog) {
        auto& dialog = dynamic_cast<WLoadSettingsDialog&>(shownDialog);
        click(next(dialog));
        dialog.upload()->changed().emit();
        click(next(dialog));
        dialog.upload()->fileTooLarge().emit(200 << 20);
        EXPECT_EQ(dialog.result(), WLoadSettingsDialog::TooLarge);
        EXPECT_THAT(textIn(&dialog), HasSubstr("File too large. Probably not a valid settings file."));
        click(buttonIn(&dialog, "Cancel"));
        EXPECT_EQ(dialog.result(), WLoadSettingsDialog::TooLarge) << "not the user's doing";
    });
    clickAction(SysAction::Load);
    answer([](Wt::WDialog& shownDialog) {
        auto& dialog = dynamic_cast<WLoadSettingsDialog&>(shownDialog);
        click(buttonIn(&dialog, "Cancel"));
        EXPECT_EQ(dialog.result(), WLoadSettingsDialog::Cancelled);
    });
    clickAction(SysAction::Load);
}

TEST_F(SysFiles, RestoringAsksAlwaysAndWritesWhatWasChosen) {
    answerWith("Cancel");
    clickAction(SysAction::RestoreFull);
    EXPECT_THAT(shown.back(), HasSubstr("full factory default condition? All customizations"));
    answer([](Wt::WDialog& dialog) { dialog.reject(); });
    clickAction(SysAction::RestorePartial);
    EXPECT_THAT(shown.back(), HasSubstr("Network settings will be retained."));
    EXPECT_NE(stored("user", 2, "name"), "") << "nothing happened";
    // Refused while a peer is linked: told, instead of a box that stands for ever.
    poke("systemGlobals", 0, "peerControllerSwitchEid", "00A701-010002");
    answerWith("Factory defaults");
    answerWith("Close");
    clickAction(SysAction::RestorePartial);
    EXPECT_EQ(shown.size(), 4U);
}

} // namespace
