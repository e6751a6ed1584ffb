// Pull and push: what moves, what is told, and that nothing moves twice or behind the user's back.

#include "db/ZeqExchange.h"
#include "tests/views/peripherals/MonitorsPage.h"
#include "views/peripherals/WPeriphViewMonList.h"

#include <Wt/WCheckBox>
#include <Wt/WProgressBar>
#include <Wt/WStackedWidget>
#include <Wt/WTextArea>

namespace {

using MonitorPull = MonitorsPage;
using MonitorPush = MonitorsPage;

constexpr const char* kBw2412 = "Brightwell BW2412 24in"; // DVI, product 2412
constexpr const char* kStandardDvi = "Standard DVI";

/// First line: the heading.
std::string titleOf(Wt::WDialog& dialog) {
    return widgetsIn<Wt::WText>(&dialog).at(0)->text().toUTF8();
}

void closeWhenDone(MonitorTransfer& dialog) {
    widgetsIn<Wt::WCheckBox>(&dialog).at(0)->setChecked();
}

bool hasButton(MonitorTransfer& dialog, const char* text) {
    const Wt::WPushButton* button = buttonIn(&dialog, text);
    return button && !button->isHidden();
}

std::string failuresIn(MonitorTransfer& dialog) {
    return widgetsIn<Wt::WTextArea>(&dialog).at(0)->text().toUTF8();
}

TEST_F(MonitorPull, FromAReceiverAndFromATransmitter) {
    const struct {
        const char *device, *kind, *description, *tail;
    } rows[] = {
        {"Desk 4", "M", "Monitor attributes pulled from receiver Desk 4", "|CLD|1904|DVI"},
        {"Radio Console", "E", "EDID pulled from transmitter Radio Console", "|ZEQ|0002|VGA"},
        {"Planning 2", "M", "Monitor attributes pulled from receiver Planning 2",
         "|GNT|2205|DVI"}, // bad checksum
    };
    for (const auto& row : rows) {
        clock.advance(1);
        const std::vector<std::string> before = names();
        transfer(MonitorAction::Pull, {row.device}, {}, [](MonitorTransfer& dialog) {
            EXPECT_EQ(titleOf(dialog), "The attributes were successfully pulled and added to the list.");
            EXPECT_TRUE(hasButton(dialog, "Close"));
            EXPECT_FALSE(hasButton(dialog, "Pull"));
        });
        std::vector<std::string> added = names();
        std::erase_if(added, [&](const std::string& name) {
            return std::find(before.begin(), before.end(), name) != before.end();
        });
        ASSERT_EQ(added.size(), 1u);
        EXPECT_EQ(added[0].substr(0, 1), row.kind);
        EXPECT_EQ(added[0].size(), std::string("M2026-01-31_12:59:59").size()) << added[0];
        EXPECT_EQ(this->row(added[0]), added[0] + "|" + row.description + row.tail);
    }
}

TEST_F(MonitorPull, EveryFailureIsToldInTheDialog) {
    const struct {
        const char *device, *text;
        std::size_t added;
    } rows[] = {
        {"Training", "Failed to pull monitor attributes from Receiver. ", 0},
        {"SCADA Test", "Failed to pull EDID from Transmitter. ", 0},
        {"Lobby Display", "Invalid EDID received. Discarded.", 1}, // and is there all the same
    };
    for (const auto& row : rows) {
        clock.advance(1);
        const std::size_t before = names().size();
        transfer(MonitorAction::Pull, {row.device}, closeWhenDone, [&](MonitorTransfer& dialog) {
            EXPECT_EQ(titleOf(dialog), "Error:");
            EXPECT_NE(textIn(&dialog).find(row.text), std::string::npos) << textIn(&dialog);
            EXPECT_TRUE(hasButton(dialog, "Close"));
            EXPECT_EQ(dialog.buttonClicked(), MonitorTransfer::None)
                << "it stays, though it was to be closed";
            click(buttonIn(&dialog, "Close"));
            EXPECT_EQ(dialog.buttonClicked(), MonitorTransfer::Cancel);
        });
        EXPECT_EQ(names().size() - before, row.added);
    }
}

TEST_F(MonitorPull, TwoWithinASecondAndADoubleClick) {
    transfer(MonitorAction::Pull, {"Desk 4"}, closeWhenDone, [](MonitorTransfer& dialog) {
        EXPECT_EQ(dialog.buttonClicked(), MonitorTransfer::Go) << "closed by itself";
    });
    EXPECT_EQ(names().size(), 17u);
    transfer(MonitorAction::Pull, {"Desk 5"}, {}, [](MonitorTransfer& dialog) {
        EXPECT_NE(textIn(&dialog).find("Failed to pull monitor attributes from Receiver. "),
                  std::string::npos);
        EXPECT_NE(textIn(&dialog).find("name"), std::string::npos) << "says why: " << textIn(&dialog);
    });
    EXPECT_EQ(names().size(), 17u);
    clock.advance(1);
    transfer(MonitorAction::Pull, {"Desk 5"}, {}, [this](MonitorTransfer& dialog) {
        clock.advance(1);
        click(buttonIn(&dialog, "Pull")); // the second click
    });
    EXPECT_EQ(names().size(), 18u);
}

TEST_F(MonitorPush, ToSeveralWithOneQuestionForAll) {
    select({kBw2412});
    const std::vector<std::string> devices = {"SCADA A", "Radio Console", "Camera Recorder"};
    for (const bool goesOn : {false, true}) {
        transfer(
            MonitorAction::Push, devices,
            [&](MonitorTransfer& dialog) {
                answerWith(goesOn ? "Continue" : "Cancel");
                if (goesOn) closeWhenDone(dialog);
            },
            [&](MonitorTransfer& dialog) {
                EXPECT_EQ(dialog.buttonClicked(), goesOn ? MonitorTransfer::Go : MonitorTransfer::None);
                EXPECT_EQ(hasButton(dialog, "Push"), !goesOn) << "it may be tried again";
            });
        EXPECT_EQ(shown.back(),
                  "Mismatch\nThere is a EDID-tx mismatch\n\nMonitor attributes type: DVI\n\n"
                  "Transmitter type: VGA\n\nDo you still want to push the monitor attributes to "
                  "the transmitter(s)?\n");
        EXPECT_EQ(shownBy(1), goesOn ? "2412" : "0001");
        EXPECT_EQ(shownBy(10), goesOn ? "2412" : "0002");
        EXPECT_EQ(shownBy(11), goesOn ? "2412" : "0002");
    }
}

TEST_F(MonitorPush, FailuresAreCountedAndNamed) {
    select({kStandardDvi}); // protected: it can be pushed
    transfer(
        MonitorAction::Push, {"SCADA A", "SCADA Test", "Historian", "Weather", "SCADA B"},
        [](MonitorTransfer& dialog) {
            closeWhenDone(dialog);
            remove("tx", 7); // Weather goes while the dialog is open
        },
        [](MonitorTransfer& dialog) {
            EXPECT_EQ(titleOf(dialog),
                      "Failed to push monitor to the following Transmitters (2 failed of 5 tried):");
            const std::string told = failuresIn(dialog);
            EXPECT_NE(told.find("\"SCADA Test\": "), std::string::npos) << told;
            EXPECT_NE(told.find("\n\"Weather\": "), std::string::npos) << told;
            EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
            EXPECT_EQ(dialog.buttonClicked(), MonitorTransfer::None) << "it stays";
            EXPECT_TRUE(hasButton(dialog, "Close"));
        });
}

TEST_F(MonitorPush, CancelAndEscapeStopItBetweenTwo) {
    select({kBw2412});
    for (const bool byCancel : {true, false}) {
        const std::vector<std::string> devices =
            byCancel ? std::vector<std::string>{"SCADA A", "SCADA Test", "SCADA B"}
                     : std::vector<std::string>{"Historian", "Office PC 3"};
        unsigned long requests = 0;
        transfer(
            MonitorAction::Push, devices,
            [&](MonitorTransfer& dialog) {
                auto* bar = widgetsIn<Wt::WProgressBar>(&dialog).at(0);
                bar->valueChanged().connect([&dialog, &requests, byCancel](double) {
                    requests = zeqExchangeCount();
                    if (!byCancel) return dialog.reject();
                    for (int clicks = 0; clicks < 2; ++clicks) click(buttonIn(&dialog, "Cancel"));
                });
                requests = zeqExchangeCount();
            },
            [&](MonitorTransfer& dialog) {
                EXPECT_EQ(zeqExchangeCount(), requests) << "nothing is asked of the service any more";
                EXPECT_EQ(titleOf(dialog), "Finished.");
            });
        EXPECT_EQ(shownBy(byCancel ? 1 : 4), "2412");
        EXPECT_EQ(shownBy(byCancel ? 2 : 15), "0001");
    }
}

TEST_F(MonitorPush, ADoubleClickPushesOnce) {
    select({kBw2412});
    unsigned long first = 0;
    transfer(
        MonitorAction::Push, {"SCADA A"},
        [&](MonitorTransfer& dialog) {
            auto* bar = widgetsIn<Wt::WProgressBar>(&dialog).at(0);
            bar->valueChanged().connect([&dialog](double) { click(buttonIn(&dialog, "Push")); });
            first = zeqExchangeCount();
        },
        [&](MonitorTransfer& dialog) {
            click(buttonIn(&dialog, "Push"));
            EXPECT_EQ(zeqExchangeCount() - first, 1u);
            EXPECT_EQ(titleOf(dialog), "Finished.");
        });
}

TEST_F(MonitorPush, AServiceThatDiesMeanwhile) {
    select({kBw2412});
    transfer(
        MonitorAction::Push, {"SCADA A", "SCADA B", "Historian"},
        [&](MonitorTransfer& dialog) {
            auto* bar = widgetsIn<Wt::WProgressBar>(&dialog).at(0);
            bar->valueChanged().connect([this](double) {
                if (zeqd.running()) zeqd.kill();
            });
        },
        [](MonitorTransfer& dialog) {
            EXPECT_EQ(titleOf(dialog),
                      "Failed to push monitor to the following Transmitters (2 failed of 3 tried):");
            EXPECT_EQ(failuresIn(dialog), "\"SCADA A\"\n\"SCADA B\"") << "names as the list had them";
            click(buttonIn(&dialog, "Close"));
            EXPECT_EQ(dialog.buttonClicked(), MonitorTransfer::Cancel);
        });
    zeqd.start();
}

TEST_F(MonitorPush, ALogoutStopsIt) {
    select({kBw2412});
    transfer(MonitorAction::Push, {"SCADA A", "SCADA B"}, [this](MonitorTransfer& dialog) {
        auto* bar = widgetsIn<Wt::WProgressBar>(&dialog).at(0);
        bar->valueChanged().connect([this](double) { session.app().quit(); });
    });
    EXPECT_EQ(shownBy(1), "2412");
    EXPECT_EQ(shownBy(2), "0001");
}

TEST_F(MonitorPush, TheButtonWaitsForASelection) {
    select({kBw2412});
    answer([](Wt::WDialog& dialog) {
        const unsigned long before = zeqExchangeCount();
        EXPECT_TRUE(buttonIn(&dialog, "Push")->isDisabled());
        click(buttonIn(&dialog, "Push"));
        EXPECT_EQ(zeqExchangeCount(), before);
        click(buttonIn(&dialog, "Cancel"));
    });
    clickAction(MonitorAction::Push);
    answer([](Wt::WDialog& dialog) {
        EXPECT_TRUE(buttonIn(&dialog, "Pull")->isDisabled());
        click(buttonIn(&dialog, "Cancel"));
    });
    clickAction(MonitorAction::Pull);
}

} // namespace
