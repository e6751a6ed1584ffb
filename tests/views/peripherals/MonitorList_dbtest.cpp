// The list of stored monitors: what it shows, what a selection allows, what is edited and deleted, and what it costs.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "tests/views/peripherals/MonitorsPage.h"
#include "views/peripherals/WPeriphViewMonList.h"

#if __has_include("test/TestSession.h")
#include "test/TestSession.h"
#endif

#include <Wt/WTextArea>

namespace {

using MonitorList = MonitorsPage;

constexpr const char* kBw2412 = "Brightwell BW2412 24in";
constexpr const char* kBw2715 = "Brightwell BW2715 27in";
constexpr const char* kFarrow = "Farrow F15 rack drawer";
constexpr const char* kBroken = "Linden L32 before repair";
constexpr const char* kStandard = "Standard DVI";

// Operations for the browser since the last call. An installed toolkit offers no such look.
std::string sent() {
#if __has_include("test/TestSession.h")
    return Wt::Impl::TestSession::current().takeOperations();
#else
    return "";
#endif
}

TEST_F(MonitorList, TellsWhatTheBlocksTell) {
    EXPECT_EQ(row(kBw2412), "Brightwell BW2412 24in|Wide screen of the operators' desks|BWL|2412|DVI");
    EXPECT_EQ(row(kFarrow).substr(row(kFarrow).size() - 12), "FRW|1510|VGA");
    const std::vector<std::string> all = names();
    EXPECT_EQ(all.size(), 16u);
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
}

TEST_F(MonitorList, ASelectionAllowsWhatItsRecordsAllow) {
    const struct {
        std::vector<std::string> names;
        const char* actions; // delete, push, pull
        bool name, description;
    } rows[] = {
        {{kBw2412}, "XXX", true, true},
        {{kStandard}, ".XX", false, false},
        {{kBw2412, kBw2715}, "X.X", false, true},
        {{kBw2412, kStandard}, "..X", false, false},
        {{kStandard, "Standard VGA"}, "..X", false, false},
        {{kBw2715}, "XXX", true, true}, // and back
        {{}, "..X", false, false},
    };
    for (const auto& row : rows) {
        const std::string which = testing::PrintToString(row.names);
        select(row.names);
        for (const char* when : {"selected", "refreshed", "reread", "cancelled"}) {
            if (when[0] == 'c') cancel();
            if (when == std::string("refreshed")) tick();
            if (when == std::string("reread")) view->readFromDatabase(true, true);
            EXPECT_EQ(actions(), row.actions) << which << when;
            EXPECT_EQ(view->details()->isHidden(), row.names.empty()) << which << when;
            EXPECT_EQ(!field<Wt::WFormWidget>("name")->isDisabled(), row.name) << which << when;
            EXPECT_EQ(!field<Wt::WFormWidget>("description")->isDisabled(), row.description) << which << when;
            EXPECT_TRUE(tab().saveButton()->isDisabled()) << which << when;
        }
    }
}

TEST_F(MonitorList, SeveralShowWhatTheyHaveInCommon) {
    const auto texts = [this] {
        std::string all;
        for (Wt::WText* text : widgetsIn<Wt::WText>(&tab()))
            if (text->parent() && text->text().toUTF8().size() <= 4) all += text->text().toUTF8() + "|";
        return all;
    };
    select({kBw2412});
    EXPECT_NE(texts().find("BWL|2412|Type|DVI|"), std::string::npos) << texts();
    select({kBw2412, kBw2715});
    EXPECT_NE(texts().find("BWL||Type|DVI|"), std::string::npos) << texts();
    select({kBw2412, kFarrow});
    EXPECT_NE(texts().find("||Type||"), std::string::npos) << texts();
    EXPECT_EQ(texts().find("BWL"), std::string::npos);
}

TEST_F(MonitorList, NameOfOneAndDescriptionOfThree) {
    select({kBw2412});
    type("name", "");
    EXPECT_TRUE(tab().saveButton()->isDisabled()) << "a name is needed";
    EXPECT_EQ(actions(), "...");
    type("name", "Desk screens");
    save();
    EXPECT_EQ(stored("edid", 1, "name"), "Desk screens");
    EXPECT_EQ(actions(), "XXX");
    EXPECT_NE(row("Desk screens").find("BWL"), std::string::npos);

    select({"Desk screens", kBw2715, kFarrow});
    type("description", "in\nstore");
    EXPECT_FALSE(tab().saveButton()->isDisabled());
    save();
    for (const unsigned index : {1u, 2u, 7u}) EXPECT_EQ(stored("edid", index, "description"), "in\nstore");
    EXPECT_EQ(stored("edid", 7, "name"), kFarrow);
    EXPECT_EQ(stored("edid", 3, "description"), "Square screens of the older desks");

    select({kBw2715});
    type("name", kFarrow); // taken
    answer([](Wt::WDialog& box) { box.reject(); });
    save();
    EXPECT_EQ(stored("edid", 2, "name"), kBw2715);
}

TEST_F(MonitorList, DeletingAsksUnlessTheUserHasTurnedThatOff) {
    select({kBw2412, kBw2715});
    answerWith("Cancel");
    clickAction(MonitorAction::Delete);
    EXPECT_EQ(names().size(), 16u);
    answerWith("Delete");
    clickAction(MonitorAction::Delete);
    EXPECT_NE(shown.back().find("Are you sure you want to delete the selected items?"), std::string::npos);
    EXPECT_EQ(names().size(), 14u);
    EXPECT_TRUE(view->details()->isHidden());

    store("user", 1, "enableDeleteMonitorWarning", "disabled");
    select({kFarrow});
    const std::size_t boxes = shown.size();
    clickAction(MonitorAction::Delete);
    EXPECT_EQ(shown.size(), boxes);
    EXPECT_EQ(names().size(), 13u);

    // Protected since the list was read: the service refuses, and the user is told.
    select({"Ives I12 panel"});
    poke("edid", 11, "isProtected", "is_true");
    answerWith("Close");
    clickAction(MonitorAction::Delete);
    EXPECT_EQ(names().size(), 13u);
    EXPECT_EQ(actions(), ".XX");
}

TEST_F(MonitorList, TheDecodeTabShowsOneRecordAndKeepsIt) {
    select({kBroken});
    showTab("Decoded EDID");
    EXPECT_NE(report().find("Invalid Header! Expected: 00 FF FF FF FF FF FF 00"), std::string::npos);
    EXPECT_NE(report().find("ID Manufacturer Name (EISA 3-character code) = LND"), std::string::npos);
    EXPECT_EQ(report().substr(0, 25), "Raw data (hexadecimal):\n\n");
    sent();
    const unsigned long before = zeqExchangeCount();
    tick();
    EXPECT_EQ(zeqExchangeCount() - before, 1u) << "what is new";
    EXPECT_EQ(sent(), "");
    select({kBroken, kFarrow});
    EXPECT_EQ(report(), "");
    select({kFarrow});
    EXPECT_NE(report().find("= FRW"), std::string::npos);
    EXPECT_NE(report().find("Normal Checksum"), std::string::npos);
    select({"Kestrel K17 worn cable"});
    EXPECT_NE(report().find("Invalid Checksum!"), std::string::npos);
}

#if __has_include("test/TestSession.h")
TEST_F(MonitorList, SelectedTextIsLeftAlone) {
    select({kFarrow});
    showTab("Decoded EDID");
    auto* area = widgetsIn<Wt::WTextArea>(view->details()->tabWidget(0)->widget(1)).at(0);
    const std::string shownReport = report();
    for (const bool selected : {true, false}) {
        boost::json::object event{{"f", area->nodeId()}};
        event["s"] = selected ? boost::json::array{3, 9} : boost::json::array{3, 3};
        Wt::Impl::TestSession::current().browserEvent(*area, "mouseup", event);
        EXPECT_EQ(area->hasSelectedText(), selected);
        // Another record comes to be selected, as by the hand of another administrator's deletion.
        view->list()->table()->clearSelection();
        view->list()->table()->setSelectedZeqIndexes({1});
        view->readFromDatabase(true, true);
        EXPECT_EQ(report() == shownReport, selected);
    }
}
#endif

TEST_F(MonitorList, ARefreshCostsNothingAndARebuildAsksForNoKnownBlock) {
    const auto costOf = [](const std::function<void()>& what) {
        const unsigned long before = zeqExchangeCount();
        what();
        return zeqExchangeCount() - before;
    };
    std::vector<std::string> errors;
    for (int i = 0; i < 40; ++i)
        Db::db.pullEdidFromDevice(i % 2 ? "rx" : "tx", 1, "pulled " + std::to_string(i), "", errors);
    tick();
    EXPECT_EQ(names().size(), 56u);
    sent();
    EXPECT_EQ(costOf([this] { tick(); }), 1u);
    EXPECT_EQ(sent(), "");
    EXPECT_EQ(costOf([this] { view->readFromDatabase(false, true); }), 1u) << "names, without the blocks";
    EXPECT_EQ(sent(), "") << "56 rows taken out and put back as they were";
    select({kFarrow});
    tick();
    sent();
    EXPECT_EQ(costOf([this] { tick(); }), 2u) << "page and tab ask for news";
    EXPECT_EQ(sent(), "");
    Db::db.pullEdidFromDevice("rx", 7, "one more", "", errors);
    // News, list, one block; the fields of the tab, its block.
    EXPECT_EQ(costOf([this] { tick(); }), 5u);
    EXPECT_EQ(row("one more"), "one more||CLD|1904|DVI");
}

TEST_F(MonitorList, AServiceThatGoesAndComesBack) {
    select({kFarrow});
    zeqd.stop();
    view->readFromDatabase(false, true);
    EXPECT_EQ(names().size(), 0u);
    EXPECT_EQ(actions(), "..X");
    zeqd.start();
    tick();
    EXPECT_EQ(names().size(), 16u) << "read though nothing is new";
    EXPECT_NE(row(kFarrow).find("FRW"), std::string::npos);
}

} // namespace
