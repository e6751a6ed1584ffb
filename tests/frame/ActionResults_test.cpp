#include "frame/ActionResults.h"
#include "frame/CountedText.h"
#include "frame/RebootingBox.h"
#include "tests/db/DbTest.h"
#include "tests/frame/Answering.h"
#include "tests/frame/WidgetSearch.h"

#include <Wt/WImage>

namespace {

constexpr BoxRow kRemoved = {WMsgBox::Info, "[RSnnn]Removed", {"[RSnnn]Close"}};
constexpr const char* kUncertain = " What was asked may have been done all the same.\n";

unsigned refusedSilently(std::vector<std::string>& errors) {
    errors.push_back("Refused.");
    return 0;
}
unsigned refused(std::vector<std::string>& errors) {
    refusedSilently(errors);
    return 1;
}
unsigned unanswered(std::vector<std::string>&) {
    return 1;
}
unsigned answered(std::vector<std::string>&) {
    return 0;
}

class Results : public DbTest {
protected:
    std::string boxOf(const ActionResults& results, const BoxRow& row = kRemoved) {
        std::string seen;
        const Answering user(session.environment(), [&](Wt::WDialog& dialog) {
            EXPECT_EQ(dialog.maximumWidth().toPixels(), row.maxWidthPx);
            seen = textIn(&dialog) + widgetsIn<Wt::WImage>(&dialog).at(0)->imageLink().url();
            dialog.reject();
        });
        showResults(
            row, countedText(results.done(), "[RSnnn]1 device was removed.", "[RSnnn]devices were removed."),
            results);
        const std::size_t slash = seen.rfind('/'), line = seen.rfind('\n');
        return seen.substr(0, line + 1) + seen.substr(slash + 1);
    }
};

TEST_F(Results, OnlyWhatTheServiceConfirmedCountsAndTheRestIsTold) {
    const struct {
        std::vector<ActionResults::Request> requests;
        std::string box;
    } rows[] = {
        {{answered}, "Removed\n1 device was removed.\nevent-severity-info.png"},
        {{}, "Removed\n0 devices were removed.\nevent-severity-info.png"},
        {{answered, answered}, "Removed\n2 devices were removed.\nevent-severity-info.png"},
        {{answered, refused}, "Removed\n1 device was removed.\nRefused.\nevent-severity-warning.png"},
        {{refusedSilently}, "Removed\n0 devices were removed.\nRefused.\nevent-severity-warning.png"},
        {{refused, unanswered, answered, refused},
         std::string("Removed\n1 device was removed.\nRefused.\nRefused.\nNo answer for d1.") + kUncertain +
             "event-severity-warning.png"},
        {{unanswered, unanswered, unanswered},
         std::string("Removed\n0 devices were removed.\nNo answer for d0, d1, d2.") + kUncertain +
             "event-severity-warning.png"},
        {{unanswered, unanswered, unanswered, unanswered},
         std::string("Removed\n0 devices were removed.\nNo answer for d0, d1, d2 and 1 more.") + kUncertain +
             "event-severity-warning.png"},
        {{unanswered, unanswered, unanswered, unanswered, unanswered},
         std::string("Removed\n0 devices were removed.\nNo answer for d0, d1, d2 and 2 more.") + kUncertain +
             "event-severity-warning.png"},
    };
    for (const auto& row : rows) {
        ActionResults results;
        for (std::size_t i = 0; i < row.requests.size(); ++i)
            results.run("d" + std::to_string(i), row.requests[i]);
        EXPECT_EQ(boxOf(results), row.box);
        EXPECT_EQ(results.done() + results.failed(), row.requests.size());
    }
    ActionResults failed;
    failed.run("d", refused);
    const BoxRow error = {WMsgBox::Error, "[RSnnn]Removed"};
    EXPECT_NE(boxOf(failed, error).find("event-severity-error"), std::string::npos) << "never made milder";
}

TEST_F(Results, FailuresAloneSayWhetherThereAreSeveral) {
    for (const int count : {1, 2}) {
        ActionResults results;
        for (int i = 0; i < count; ++i) results.run("d", refused);
        std::string seen;
        const Answering user(session.environment(), [&](Wt::WDialog& dialog) {
            seen = textIn(&dialog);
            click(buttonIn(&dialog, "Close"));
        });
        showFailures(results);
        EXPECT_EQ(seen, count == 1 ? "Error\nRefused.\n" : "Errors\nRefused.\nRefused.\n");
    }
}

TEST_F(Results, AClosedChoiceIsItsOwnAnswer) {
    const BoxRow row = {WMsgBox::Info, "[RSnnn]Removed", {"[RSnnn]Close"}};
    constexpr BoxChoice<char> choices[] = {{"[RSnnn]Cancel", 'c'}, {"[RSnnn]Proceed", 'p'}};
    for (const auto& [button, value] : {std::pair{"Cancel", 'c'}, {"Proceed", 'p'}, {"", '?'}}) {
        const Answering user(session.environment(), [&](Wt::WDialog& dialog) {
            EXPECT_EQ(widgetsIn<Wt::WPushButton>(&dialog).size(), 2u) << "not the row's own";
            if (Wt::WPushButton* found = buttonIn(&dialog, button))
                click(found);
            else
                dialog.reject();
        });
        EXPECT_EQ(chooseInBox(row, "text", choices, '?'), value);
    }
}

TEST_F(Results, TheRebootingBoxStandsUntilTheConnectionGoesUnlessRefused) {
    std::vector<std::string> seen;
    const Answering user(session.environment(), [&](Wt::WDialog& dialog) {
        seen.push_back(textIn(&dialog));
        EXPECT_EQ(widgetsIn<Wt::WPushButton>(&dialog).empty(), seen.size() != 2) << seen.back();
        dialog.reject();
    });
    rebootThisSwx("Please wait.");
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0], "Rebooting\nPlease wait.\n");
    EXPECT_EQ(store.field("swx", 1, "reset"), "\"cold_reboot\"");

    store.refuse("set", "swx", 1, R"({"errno":1110})");
    rebootThisSwx("Please wait.");
    ASSERT_EQ(seen.size(), 2u) << "the box itself is not run";
    EXPECT_EQ(seen[1], "Error\nError performing operation.\nSwx already resetting.\n");

    store.hangUp();
    rebootThisSwx("Please wait.");
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen[2], "Rebooting\nPlease wait.\n") << "it may be going down already";
}

} // namespace
