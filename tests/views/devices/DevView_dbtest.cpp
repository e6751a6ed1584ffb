// The Devices tab as a whole: the list, its refresh, editing and saving.

#include "db/ZeqExchange.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "tests/views/devices/DevicesPage.h"
#include "views/devices/list/WDevViewList.h"
#include "widgets/WLineEditPlus.h"

#include <boost/any.hpp>

namespace {

using Names = std::vector<std::string>;

TEST_F(DevicesPage, RenamesAReceiver) {
    EXPECT_EQ(actions(), ".....X.");
    select({"Desk 1 Left"});
    EXPECT_EQ(actions(), "X.XXXXX");
    EXPECT_EQ(text("name"), "Desk 1 Left");
    EXPECT_TRUE(tab().saveButton()->isDisabled());

    type("name", "Desk 1 <b>West</b>");
    EXPECT_EQ(actions(), "......X") << "actions wait for Save or Cancel, but for flash";
    EXPECT_FALSE(tab().saveButton()->isDisabled());
    EXPECT_TRUE(view->list()->table()->isDisabled());
    save();
    EXPECT_EQ(stored("rx", 1, "name"), "Desk 1 <b>West</b>");
    EXPECT_EQ(selected(), Names{"Desk 1 <b>West</b>"});
    EXPECT_EQ(actions(), "X.XXXXX");
    EXPECT_FALSE(view->list()->table()->isDisabled());
    EXPECT_TRUE(tab().saveButton()->isDisabled());
    EXPECT_FALSE(view->details()->hasChanged());
}

TEST_F(DevicesPage, CancelBringsBackWhatIsStored) {
    select({"Desk 4"});
    type("notes", "nothing that stays");
    EXPECT_TRUE(view->details()->hasChanged());
    cancel();
    EXPECT_EQ(text("notes"), stored("rx", 7, "notes"));
    EXPECT_EQ(actions(), "X.XXXXX");
    EXPECT_FALSE(view->details()->hasChanged());
}

TEST_F(DevicesPage, AnInvalidNameCannotBeSavedForOneButTheOtherFieldsOfSeveralCan) {
    select({"Desk 4"});
    type("name", "na\u00efve");
    EXPECT_TRUE(tab().saveButton()->isDisabled());
    EXPECT_FALSE(tab().cancelButton()->isDisabled());
    cancel();

    select({"Desk 4", "Desk 5"});
    EXPECT_EQ(text("name"), "") << "names differ";
    type("location", "Basement");
    EXPECT_FALSE(tab().saveButton()->isDisabled());
    save();
    EXPECT_EQ(stored("rx", 7, "location"), "Basement");
    EXPECT_EQ(stored("rx", 8, "location"), "Basement");
    EXPECT_EQ(stored("rx", 7, "name"), "Desk 4") << "an untouched field is not written";
}

TEST_F(DevicesPage, ASaveRefusedForOneOfThreeStoresTheOthersAndSaysSo) {
    select({"Planning 1", "Planning 2", "Training"});
    type("notes", "third floor");
    remove("rx", 18); // Planning 2, by another administrator
    answerWith("Close");
    save();
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_NE(shown[0].find("Error writing value(s)."), std::string::npos) << shown[0];
    EXPECT_EQ(stored("rx", 17, "notes"), "third floor");
    EXPECT_EQ(stored("rx", 19, "notes"), "third floor");
    EXPECT_EQ(selected(), (Names{"Planning 1", "Training"})) << "the list shows what there is";
    EXPECT_FALSE(view->details()->hasChanged());
    EXPECT_EQ(text("notes"), "third floor");
}

TEST_F(DevicesPage, SelectionSurvivesARebuildWhereIndexesOfKindsOverlap) {
    // Transmitter 7 is "Weather"; there are a Receiver 7 and Switches 1 and 2.
    select({"Weather"});
    store("rx", 7, "name", "Desk 4 renamed");
    tick();
    EXPECT_EQ(cell("Desk 4 renamed", WDevViewList::Eid), "00A702-020077");
    EXPECT_EQ(selected(), Names{"Weather"});

    select({"Desk 1 Left", "SCADA A", "Main Hall Switch"}); // index 1, three times
    store("tx", 7, "name", "Weather renamed");
    tick();
    EXPECT_EQ(selected(), (Names{"Desk 1 Left", "Main Hall Switch", "SCADA A"}));
}

TEST_F(DevicesPage, ASelectedDeviceThatGoesAwayIsNoLongerSelected) {
    select({"Training", "Planning 1"});
    remove("rx", 19);
    tick();
    EXPECT_EQ(selected(), Names{"Planning 1"});
    EXPECT_EQ(text("name"), "Planning 1") << "the details follow";
    remove("rx", 17);
    tick();
    EXPECT_EQ(selected(), Names{});
    EXPECT_EQ(view->details()->currentTab(), DevDetailsPage::Empty);
    EXPECT_EQ(actions(), ".....X.");
}

TEST_F(DevicesPage, ATickCostsOneSmallReadAndNothingWhileEditing) {
    tick();
    const auto costOfTick = [this] {
        const unsigned long before = zeqExchangeCount();
        tick();
        return zeqExchangeCount() - before;
    };
    EXPECT_EQ(costOfTick(), 1u) << "nothing selected";
    select({"Desk 4"});
    tick(); // the tab asks for its own news for the first time
    EXPECT_EQ(costOfTick(), 2u) << "and one for the details";
    type("name", "in work");
    store("rx", 8, "name", "changed meanwhile");
    EXPECT_EQ(costOfTick(), 2u) << "somebody may have changed what is edited here";
    EXPECT_EQ(costOfTick(), 1u);
    EXPECT_EQ(text("name"), "in work");
    EXPECT_EQ(cell("Desk 5", WDevViewList::Type), "Receiver (G1)") << "the list stands still too";
    cancel();
    EXPECT_EQ(cell("changed meanwhile", WDevViewList::Type), "Receiver (G1)");
}

TEST_F(DevicesPage, ARebuildCostsFiveQueriesWhateverTheNumberOfDevices) {
    const unsigned long before = zeqExchangeCount();
    view->list()->readFromDatabase();
    EXPECT_EQ(zeqExchangeCount() - before, 5u);
}

TEST_F(DevicesPage, SettingsOfManyCostNoMoreThanThoseOfTwo) {
    const auto costOfOpening = [this](const Names& names, const char* title) {
        select(names);
        showTab(title);
        const unsigned long before = zeqExchangeCount();
        view->detailsTabChangedHandler();
        return zeqExchangeCount() - before;
    };
    const Names two = {"Planning 1", "Planning 2"};
    const Names many = {"Desk 4",      "Desk 5",     "Desk 10",   "Engineering",
                        "Rack Drawer", "Planning 1", "Planning 2"};
    for (const char* title : {"Settings", "Attributes"}) {
        const unsigned long cost = costOfOpening(two, title);
        EXPECT_EQ(costOfOpening(many, title), cost) << title;
    }
    EXPECT_EQ(text("name"), "");
    EXPECT_EQ(text("notes"), stored("rx", 7, "notes"));
    showTab("Settings");
    EXPECT_EQ(text("sessionInactivityTimeout"), stored("rx", 7, "sessionInactivityTimeout"));
    store("rx", 16, "sessionInactivityTimeout", 33u);
    tick();
    EXPECT_EQ(text("sessionInactivityTimeout"), "") << "one of them differs now";
}

TEST_F(DevicesPage, FilterAndSortSurviveARebuild) {
    view->list()->filterRegExTextChangedHandler("office");
    store("rx", 15, "name", "Office PC 10");
    tick();
    Names order;
    for (int row = 0; row < view->list()->proxy()->rowCount(); ++row)
        order.push_back(
            boost::any_cast<std::string>(view->list()->proxy()->data(row, WDevViewList::Name, Wt::EditRole)));
    EXPECT_EQ(order, (Names{"Office PC 1", "Office PC 2", "Office PC 3", "Office PC 4", "Office PC 10"}));
}

TEST_F(DevicesPage, TheFilterIsLockedWithTheListUntilTheLastEditEnds) {
    select({"Desk 4"});
    Wt::WFormWidget* filter = view->list()->filterField();
    type("name", "Desk 4 East");
    EXPECT_TRUE(filter->isDisabled()) << "it could hide the row whose edits wait";
    showTab("Settings");
    type("sessionInactivityTimeout", "17");
    cancel();
    EXPECT_TRUE(filter->isDisabled()) << "the name still waits";
    showTab("Attributes*");
    save();
    EXPECT_FALSE(filter->isDisabled());
    EXPECT_EQ(stored("rx", 7, "name"), "Desk 4 East");
}

TEST_F(DevicesPage, ASettingThatIsRefusedIsTold) {
    const struct {
        const char *device, *tab;
        std::function<void()> edit;
        const char* resource;
        unsigned index;
    } rows[] = {
        {"Desk 4", "Settings", [this] { type("sessionInactivityTimeout", "17"); }, "rx", 7},
        {"Weather", "Settings", [this] { choose("usbMode", 1); }, "tx", 7},
        {"Annex Switch", "NTP", [this] { type("secondaryNtpIpAddress", "10.20.1.6"); }, "swx", 2},
    };
    for (const auto& row : rows) {
        select({row.device});
        showTab(row.tab);
        row.edit();
        remove(row.resource, row.index); // by another administrator
        shown.clear();
        answerWith("Close");
        save();
        ASSERT_EQ(shown.size(), 1u) << row.device;
        EXPECT_NE(shown[0].find("Error writing value(s)."), std::string::npos)
            << row.device << ": " << shown[0];
    }
}

TEST_F(DevicesPage, AServiceThatGoesAwayEmptiesTheListAndItsReturnFillsIt) {
    select({"Desk 4"});
    view->list()->filterRegExTextChangedHandler("office");
    zeqd.stop();
    tick();
    EXPECT_EQ(view->list()->rowCount(), 0);
    EXPECT_EQ(actions(), ".....X.");
    zeqd.start();
    tick();
    EXPECT_EQ(view->list()->rowCount(), 52);
    EXPECT_EQ(view->list()->proxy()->rowCount(), 4) << "the filter is still in its field";
}

TEST_F(DevicesPage, ASaveWithoutAnAnswerKeepsTheEditsButNotForTheNextDevice) {
    for (const char* tabTitle : {"Attributes", "Settings"}) {
        const bool attributes = std::string(tabTitle) == "Attributes";
        const char* key = attributes ? "notes" : "sessionInactivityTimeout";
        select({"Desk 4"});
        showTab(tabTitle);
        type(key, "17");
        zeqd.stop();
        answerWith("Close");
        save();
        EXPECT_TRUE(view->details()->hasChanged());
        EXPECT_EQ(text(key), "17");
        zeqd.start();
        save();
        EXPECT_EQ(stored("rx", 7, key), "17") << "nothing typed is lost";
        EXPECT_FALSE(view->details()->hasChanged());
        select({"Desk 5"});
        EXPECT_EQ(text(key), stored("rx", 8, key)) << tabTitle;
    }
}

TEST_F(DevicesPage, StatusTextsOfTheDemo) {
    const struct {
        const char *name, *type, *status;
    } rows[] = {
        {"Desk 1 Left", "Receiver (G2)", "In use"},
        {"Desk 4", "Receiver (G1)", "Ready"},
        {"Training", "Receiver (G1)", "Offline"},
        {"SCADA A", "Transmitter (DVI)", "In use (shared)"},
        {"Relay Engineering", "Transmitter (DVI)", "In use (private)"},
        {"Alarm Server Standby", "Transmitter (DVI)", "Firmware updated, needs reboot"},
        {"Main Hall Switch", "Switch", "Ready"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(cell(row.name, WDevViewList::Type), row.type) << row.name;
        EXPECT_EQ(cell(row.name, WDevViewList::Status), row.status) << row.name;
    }
}

} // namespace
