// Firmware updates: files, logins, and following this Switch's own update.

#include "db/Db.h"
#include "tests/platform/support/LogCapture.h"
#include "tests/views/devices/DevicesPage.h"
#include "views/devices/firmware/WDevViewChooseFwUpdateSrcDialog.h"
#include "views/devices/firmware/WDevViewChooseFwUpdateSrcTable.h"
#include "views/devices/firmware/WDevViewFwUpdateSrcLoginDialog.h"
#include "views/devices/firmware/WDevViewNewFwUpdateSrcDialog.h"

#include "widgets/WFwUpdateFileSrc.h"

#include <Wt/WAbstractItemModel>
#include <Wt/WLineEdit>
#include <Wt/WPushButton>

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class DevFirmware : public DevicesPage {
protected:
    using NewDialog = WDevViewNewFwUpdateSrcDialog;
    using Chooser = WDevViewChooseFwUpdateSrcDialog;

    DevFirmware() {
        for (const unsigned demo : {1u, 2u}) remove("upgrade", demo);
    }

    unsigned makeFile(const std::string& name, const std::string& username = "",
                      const std::string& password = "") {
        unsigned index = 0;
        std::vector<std::string> errors;
        EXPECT_EQ(Db::db.createUpgradeRecord("ftp", "10.0.0.9/", name, username, password, index, errors), 0u)
            << (errors.empty() ? "" : errors[0]);
        return index;
    }
    void choose(const std::string& button, int row = 0) {
        answer([button, row](Wt::WDialog& dialog) {
            auto& chooser = dynamic_cast<Chooser&>(dialog);
            if (row < chooser.numberOfExistingEntries())
                chooser.table()->select(chooser.table()->model()->index(row, 0));
            chooser.selectionChangedHandler();
            click(buttonIn(&dialog, button));
        });
    }
};

TEST_F(DevFirmware, WithoutFilesTheDescriptionComesFirstAndEachSourceAsksForItsOwn) {
    select({"Desk 4"});
    answer([](Wt::WDialog& dialog) {
        auto& made = dynamic_cast<NewDialog&>(dialog);
        const struct {
            int source;
            const char *server, *path, *username;
            bool proceed;
        } rows[] = {
            {0, "10.0.0.9", "fw.bin", "", false}, {0, "10.0.0.9", "fw.bin", "joe", true},
            {0, "", "fw.bin", "joe", false},      {1, "10.0.0.9", "", "", false},
            {1, "10.0.0.9", "fw.bin", "", true},  {1, "", "fw.bin", "joe", false},
            {2, "10.0.0.9", "fw.bin", "", true},  {2, "", "fw.bin", "", false},
            {3, "10.0.0.9", "fw.bin", "", true},  {3, "10.0.0.9", "", "joe", false},
            {3, "", "fw.bin", "", false},         {4, "/tmp/none", "", "", true},
            {4, "", "fw.bin", "joe", false},
        };
        for (const auto& row : rows) {
            made.sourceField()->setCurrentIndex(row.source);
            made.sourceChangedHandler();
            made.field(NewDialog::ServerRow)->setText(row.server);
            made.field(NewDialog::PathRow)->setText(row.path);
            made.field(NewDialog::UsernameRow)->setText(row.username);
            made.contentChangedHandler();
            EXPECT_EQ(!made.proceedButton()->isDisabled(), row.proceed)
                << row.source << " " << row.server << " " << row.path << " " << row.username;
        }
        click(buttonIn(&dialog, "Close"));
    });
    clickAction(DeviceAction::Update);
    EXPECT_EQ(count("upgrade"), 0);
}

TEST_F(DevFirmware, ANewFileGoesToTheSelectedDevices) {
    select({"Desk 4", "Desk 5"});
    answer([](Wt::WDialog& dialog) {
        auto& made = dynamic_cast<NewDialog&>(dialog);
        made.sourceField()->setCurrentIndex(3); // tftp
        made.sourceChangedHandler();
        made.field(NewDialog::ServerRow)->setText("10.0.0.9");
        made.field(NewDialog::PathRow)->setText("fw\"; rm -rf x; \".bin");
        made.contentChangedHandler();
        click(made.proceedButton());
    });
    answerWith("Close");
    clickAction(DeviceAction::Update);
    EXPECT_TRUE(contains(shown[1], "2 devices have been commanded to update firmware.")) << shown[1];
    const std::string index = stored("rx", 7, "upgradeIndex");
    EXPECT_EQ(index, stored("rx", 8, "upgradeIndex"));
    EXPECT_EQ(stored("upgrade", static_cast<unsigned>(std::stoul(index)), "filename"),
              "fw\"; rm -rf x; \".bin");
}

TEST_F(DevFirmware, EnterGoesOnWhenEverythingIsThere) {
    select({"Desk 4"});
    answer([](Wt::WDialog& dialog) {
        auto& made = dynamic_cast<NewDialog&>(dialog);
        made.sourceField()->setCurrentIndex(1); // http
        made.sourceChangedHandler();
        made.field(NewDialog::ServerRow)->setText("10.0.0.9");
        made.field(NewDialog::ServerRow)->enterPressed().emit();
        EXPECT_EQ(made.buttonClicked(), NewDialog::None) << "there is no path yet";
        made.field(NewDialog::PathRow)->setText("fw.bin");
        made.field(NewDialog::ServerRow)->enterPressed().emit();
        EXPECT_EQ(made.buttonClicked(), NewDialog::Proceed);
    });
    answerWith("Close");
    clickAction(DeviceAction::Update);
    EXPECT_TRUE(contains(shown.at(1), "1 device has been commanded to update firmware.")) << shown[1];
}

TEST_F(DevFirmware, WhatIsRefusedIsNotCountedAndThisSwitchIsNotFollowed) {
    makeFile("fw.bin");
    for (const char* name : {"Main Hall Switch", "Training"}) {
        const unsigned file = makeFile("gone.bin");
        select({name});
        answer([this, file](Wt::WDialog& dialog) {
            auto& chooser = dynamic_cast<Chooser&>(dialog);
            for (int row = 0; row < chooser.numberOfExistingEntries(); ++row) {
                chooser.table()->clearSelection();
                chooser.table()->select(chooser.table()->model()->index(row, 0));
                if (chooser.selectedZeqIndex() == file) break;
            }
            chooser.selectionChangedHandler();
            remove("upgrade", file); // somebody else, meanwhile
            click(buttonIn(&dialog, "Proceed"));
        });
        answerWith("Close");
        clickAction(DeviceAction::Update);
        EXPECT_TRUE(contains(shown.back(), "0 devices have been commanded to update firmware."))
            << shown.back();
        EXPECT_TRUE(contains(shown.back(), "\nNot found")) << shown.back();
        EXPECT_FALSE(view->followsThisSwx()) << name;
    }
}

TEST_F(DevFirmware, ThisSwitchIsFollowedWhenItIsAmongThoseCommanded) {
    makeFile("fw.bin");
    for (const char* name :
         {"Desk 1 Left", "SCADA A", "Annex Switch", "Main Hall Switch"}) { // two are 1 of theirs
        select({name});
        choose("Proceed");
        answerWith("Close");
        clickAction(DeviceAction::Update);
        EXPECT_TRUE(contains(shown.back(), "1 device has been commanded")) << shown.back();
        EXPECT_EQ(view->followsThisSwx(), std::string(name) == "Main Hall Switch");
    }
}

TEST_F(DevFirmware, WithoutAnAnswerNothingIsSaidToBeCommanded) {
    makeFile("fw.bin");
    select({"Main Hall Switch", "Annex Switch"});
    answer([this](Wt::WDialog& dialog) {
        auto& chooser = dynamic_cast<Chooser&>(dialog);
        chooser.table()->select(chooser.table()->model()->index(0, 0));
        chooser.selectionChangedHandler();
        zeqd.stop();
        click(buttonIn(&dialog, "Proceed"));
    });
    answerWith("Close");
    clickAction(DeviceAction::Update);
    EXPECT_TRUE(contains(shown.at(1), "0 devices have been commanded")) << shown[1];
    EXPECT_TRUE(contains(shown.at(1), "\nNo answer for 00A701-0")) << shown[1];
    EXPECT_FALSE(view->followsThisSwx());
}

TEST_F(DevFirmware, TheNinthFileIsRefused) {
    for (int i = 1; i <= 8; ++i) makeFile("fw" + std::to_string(i) + ".bin");
    select({"Desk 4"});
    choose("New file");
    answerWith("Ok");
    clickAction(DeviceAction::Update);
    EXPECT_TRUE(contains(shown[1], "has reached its maximum allowed size.")) << shown[1];
    EXPECT_EQ(count("upgrade"), 8);
}

TEST_F(DevFirmware, DeletedFilesAreGoneAndTheDialogStays) {
    makeFile("a.bin");
    makeFile("b.bin");
    select({"Desk 4"});
    answer([this](Wt::WDialog& dialog) {
        auto& chooser = dynamic_cast<Chooser&>(dialog);
        EXPECT_EQ(chooser.selectedZeqIndex(), 0u);
        EXPECT_TRUE(buttonIn(&dialog, "Proceed")->isDisabled());
        EXPECT_TRUE(buttonIn(&dialog, "Delete")->isDisabled());
        chooser.table()->select(chooser.table()->model()->index(0, 0));
        chooser.table()->select(chooser.table()->model()->index(1, 0));
        chooser.selectionChangedHandler();
        EXPECT_TRUE(buttonIn(&dialog, "Proceed")->isDisabled());
        click(buttonIn(&dialog, "Delete"));
        EXPECT_EQ(chooser.numberOfExistingEntries(), 0);
        EXPECT_EQ(count("upgrade"), 0);
        click(buttonIn(&dialog, "Close"));
    });
    clickAction(DeviceAction::Update);
}

TEST_F(DevFirmware, OneOfSeveralIsDeletedHoweverTheListIsSorted) {
    makeFile("a.bin");
    const unsigned kept = makeFile("b.bin");
    select({"Desk 4"});
    answer([](Wt::WDialog& dialog) {
        auto& chooser = dynamic_cast<Chooser&>(dialog);
        chooser.table()->sortByColumn(1, Wt::DescendingOrder); // b, a
        chooser.table()->select(chooser.table()->model()->index(1, 0));
        chooser.selectionChangedHandler();
        click(buttonIn(&dialog, "Delete"));
        EXPECT_TRUE(buttonIn(&dialog, "Delete")->isDisabled()) << "nothing is selected any more";
        const std::string left = chooser.table()->textAt(chooser.table()->model()->index(0, 0), 1);
        EXPECT_TRUE(contains(left, "b.bin")) << left;
        EXPECT_TRUE(buttonIn(&dialog, "Proceed")->isDisabled());
        click(buttonIn(&dialog, "Close"));
    });
    clickAction(DeviceAction::Update);
    EXPECT_EQ(count("upgrade"), 1);
    EXPECT_EQ(stored("upgrade", kept, "filename"), "b.bin");
}

TEST_F(DevFirmware, AUsernameWithoutAPasswordAsksForBothAndKeepsThem) {
    const unsigned file = makeFile("fw.bin", "joe");
    select({"Desk 4"});
    choose("Proceed");
    answer([](Wt::WDialog& dialog) {
        EXPECT_EQ(dynamic_cast<WDevViewFwUpdateSrcLoginDialog&>(dialog).username(), "joe");
        widgetsIn<Wt::WLineEdit>(&dialog).at(1)->setText("secret");
        click(buttonIn(&dialog, "Proceed"));
    });
    answerWith("Close");
    clickAction(DeviceAction::Update);
    EXPECT_EQ(stored("rx", 7, "upgradeIndex"), std::to_string(file));
    EXPECT_EQ(stored("upgrade", file, "username"), "joe");

    choose("Proceed");
    answerWith("Close"); // no login any more
    clickAction(DeviceAction::Update);
}

TEST_F(DevFirmware, GivingUpTheLoginUpdatesNothing) {
    makeFile("fw.bin", "joe");
    select({"Desk 4"});
    choose("Proceed");
    answerWith("Close");
    const std::string before = stored("rx", 7, "upgradeIndex");
    clickAction(DeviceAction::Update);
    EXPECT_EQ(stored("rx", 7, "upgradeIndex"), before);
}

} // namespace
