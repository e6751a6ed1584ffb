// What is plugged in where and what it does: ports, video of several, progress of an update.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "tests/views/devices/DevicesPage.h"
#include "views/devices/list/WDevViewList.h"
#include "views/devices/tabs/WDevViewRxVideo.h"
#include "views/devices/tabs/WDevViewSwxPorts.h"
#include "widgets/LookupTexts.h"

#include <Wt/WStandardItemModel>

#include <boost/any.hpp>

namespace {

class DevPlugged : public DevicesPage {
protected:
    void show(const std::vector<std::string>& names, const std::string& title) {
        select(names);
        showTab(title);
    }
    template <class Widget>
    Widget* only() const {
        const auto found = widgetsIn<Widget>(view->details());
        if (found.empty()) throw std::runtime_error("the pane has no such widget");
        return found[0];
    }
    static std::string at(const Wt::WAbstractItemModel& model, int row, int column) {
        const boost::any value = model.data(row, column, Wt::EditRole);
        return value.empty() ? "" : boost::any_cast<std::string>(value);
    }
    /// The values of a column of the table of timings, from the first row below the headings.
    std::vector<std::string> timings(int column) const {
        std::vector<std::string> values;
        auto* video = only<WDevViewRxVideoTable>();
        for (int row = 1; row < video->rowCount(); ++row)
            values.push_back(textIn(video->elementAt(row, column)));
        return values;
    }
};

enum PortColumn { kPort, kRemotePort, kDeviceType, kEid };

TEST_F(DevPlugged, PortsOfASwitchByNumberWithWhatIsPluggedIn) {
    show({"Main Hall Switch"}, "Ports");
    auto* ports = only<WDevViewSwxPortsTable>();
    const int count = 36;
    ASSERT_EQ(ports->model()->rowCount(), count);
    auto* list = widgetsIn<WAutoSizeTableView>(ports).at(0);
    list->sortByColumn(kPort, Wt::DescendingOrder);
    for (int row = 0; row < count; ++row)
        EXPECT_EQ(at(*ports->proxy(), row, kPort), std::to_string(count - row)) << "9 stands before 10";
    list->sortByColumn(kPort, Wt::AscendingOrder);
    view->readFromDatabase(true, false);
    for (int row = 0; row < count; ++row) EXPECT_EQ(at(*ports->proxy(), row, kPort), std::to_string(row + 1));

    for (const unsigned rx : {1U, 7U, 10U}) { // all at this Switch
        unsigned swx = 0;
        unsigned port = 0;
        Db::Errors errors;
        ASSERT_EQ(Db::db.getSwxIndexAndPortIndexFromRxIndex(rx, swx, port, errors), 0U);
        ASSERT_EQ(swx, 1U);
        const int row = static_cast<int>(port) - 1;
        EXPECT_EQ(at(*ports->proxy(), row, kEid), stored("rx", rx, "eid"));
        EXPECT_EQ(at(*ports->proxy(), row, kDeviceType), "Receiver");
        EXPECT_EQ(at(*ports->proxy(), row, kRemotePort), "1");
    }
}

// Meant for one Switch; with several the later one's rows take the place of the former's.
TEST_F(DevPlugged, PortsOfSeveralSwitchesAreThoseOfTheLast) {
    const auto eids = [this] {
        std::vector<std::string> all;
        const Wt::WAbstractItemModel& model = *only<WDevViewSwxPortsTable>()->model();
        for (int row = 0; row < model.rowCount(); ++row) all.push_back(at(model, row, kEid));
        return all;
    };
    std::vector<std::vector<std::string>> single;
    for (const char* name : {"Main Hall Switch", "Annex Switch"}) {
        show({name}, "Ports");
        single.push_back(eids());
    }
    ASSERT_NE(single[0], single[1]);
    select({"Main Hall Switch", "Annex Switch"});
    auto both = eids();
    ASSERT_EQ(both.size(), single[0].size() + single[1].size());
    const std::vector<std::string> first(both.begin(), both.begin() + static_cast<long>(single[0].size()));
    EXPECT_TRUE(first == single[0] || first == single[1]);
    for (std::size_t row = first.size(); row < both.size(); ++row) EXPECT_EQ(both[row], "") << row;
    select({"Annex Switch"});
    EXPECT_EQ(eids(), single[1]) << "nothing is left over";
}

TEST_F(DevPlugged, ADeviceOnNoPortShowsNeitherSwitchNorPort) {
    show({"Desk 4"}, "Status");
    EXPECT_EQ(only<WTextRxSwxName>()->text(), "Main Hall Switch");
    EXPECT_NE(only<WTextRxSwxPort>()->text(), "");
    poke("rx", 7, "simPort", "0");
    select({"Desk 4"});
    EXPECT_EQ(only<WTextRxSwxName>()->text(), "");
    EXPECT_EQ(only<WTextRxSwxPort>()->text(), "");
}

TEST_F(DevPlugged, VideoOfSeveralShowsWhatTheyHaveInCommon) {
    constexpr int kInput = 1;
    show({"Desk 1 Left"}, "Video");
    const auto one = timings(kInput);
    ASSERT_EQ(one.size(), 15u);
    constexpr int kResolution = 1;
    ASSERT_NE(one[kResolution], "\n");
    select({"Desk 1 Left", "Shift Lead Left"}); // both look at the same computer
    EXPECT_EQ(timings(kInput), one) << "with the frequencies that are made from it";
    select({"Desk 1 Left", "Desk 4"}); // Desk 4 looks at none
    const auto differing = timings(kInput);
    for (const int row : {1, 2, 6, 7, 8, 12, 13, 14})
        EXPECT_EQ(differing[static_cast<std::size_t>(row)], "\n") << row;
    select({"Shift Lead Left"});
    EXPECT_EQ(timings(kInput), one);
}

TEST_F(DevPlugged, TheListShowsHowFarAnUpdateIs) {
    poke("rx", 7, "upgradeStatus", "upgrading");
    poke("rx", 7, "upgradePercent", "42");
    poke("swx", 2, "upgradeStatus", "upgrading");
    poke("swx", 2, "upgradePercent", "42");
    const unsigned long before = zeqExchangeCount();
    view->list()->readFromDatabase();
    EXPECT_EQ(zeqExchangeCount() - before, 5u) << "three kinds, and who uses two of them";
    EXPECT_EQ(cell("Desk 4", WDevViewList::Status), "Updating firmware (42%)");
    EXPECT_EQ(cell("Annex Switch", WDevViewList::Status), "Updating firmware") << "a Switch tells no percent";
}

} // namespace
