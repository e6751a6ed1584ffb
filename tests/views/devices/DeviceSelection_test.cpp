#include "views/devices/page/DeviceSelection.h"

#include "frame/WAutoSizeTableView.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "tests/frame/PlainApp.h"
#include "views/devices/list/WDevViewList.h"

#include <Wt/WStandardItemModel>

#include <boost/any.hpp>
#include <gtest/gtest.h>

namespace {

/// One device of a list: Type and Status texts.
struct Row {
    const char* type;
    const char* status = "Ready";
};

constexpr Row kG1{"Receiver (G1)"}, kG2{"Receiver (G2)"}, kDvi{"Transmitter (DVI)"},
    kVga{"Transmitter (VGA)"}, kSwx{"Switch"}, kClash{"Switch", "Conflict (another Switch is Master)"},
    kOdd{"Toaster"};

/// What the actions and the pane do with all of these selected, decided from the rules' own words rather than
/// from the table: Full, Partial, Update, Reboot, Remove, Remove Offline, Flash.
struct Expected {
    std::vector<Row> rows;
    const char* enabled;
    DevDetailsPage page;
};

class Selecting : public ::testing::Test {
protected:
    PlainApp app;
    WDevViewList list{"devices", app.application.root()};

    DeviceSelection selectAll(const std::vector<Row>& rows) {
        list.removeAllRows();
        list.model()->insertRows(0, static_cast<int>(rows.size()));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const int row = static_cast<int>(i);
            list.model()->setData(row, WDevViewList::Index, boost::any(unsigned(i + 1)));
            list.model()->setData(row, WDevViewList::Name, boost::any("n" + std::to_string(i)));
            list.model()->setData(row, WDevViewList::Type, boost::any(std::string(rows[i].type)));
            list.model()->setData(row, WDevViewList::Status, boost::any(std::string(rows[i].status)));
        }
        Wt::WModelIndexSet all;
        for (int row = 0; row < list.proxy()->rowCount(); ++row) all.insert(list.proxy()->index(row, 0));
        list.table()->setSelectedIndexes(all);
        DeviceSelection selection;
        selection.any = list.numSelected() > 0;
        selection.conflict = list.selectionContainsConflictedSwx();
        list.devTypeSelected(selection.type, selection.detail);
        return selection;
    }
};

TEST_F(Selecting, EnablesActionsAndPage) {
    const Expected cases[] = {
        {{}, ".....X.", DevDetailsPage::Empty},
        {{kG1, kDvi}, "X..XXXX", DevDetailsPage::Empty},
        {{kDvi, kSwx}, "X..XXXX", DevDetailsPage::Empty},
        {{kG1, kG2, kVga}, "X..XXXX", DevDetailsPage::Empty},
        {{kG2, kG2}, "X.XXXXX", DevDetailsPage::Receiver},
        {{kG1, kG2}, "X..XXXX", DevDetailsPage::Receiver},
        {{kG1, kG2, kG1}, "X..XXXX", DevDetailsPage::Receiver},
        {{kVga}, "X.XXXXX", DevDetailsPage::Transmitter},
        {{kDvi, kVga, kVga}, "X..XXXX", DevDetailsPage::Transmitter},
        {{kSwx, kSwx}, "XXXXXXX", DevDetailsPage::Switch},
        {{kClash}, "....XXX", DevDetailsPage::Switch},
        {{kSwx, kClash}, "....XXX", DevDetailsPage::Switch},
        {{kClash, kG1}, "....XXX", DevDetailsPage::Empty},
        {{kOdd}, "X..XXXX", DevDetailsPage::Empty},
        {{kOdd, kG1}, "X.XXXXX", DevDetailsPage::Receiver},
    };
    for (const Expected& expected : cases) {
        std::string name;
        for (const Row& row : expected.rows) name += std::string(row.type) + "/" + row.status + " ";
        const DeviceSelectionRule& rule = ruleOf(selectAll(expected.rows));
        EXPECT_EQ(rule.enabled, expected.enabled) << name;
        EXPECT_EQ(rule.page, expected.page) << name;
    }
}

TEST_F(Selecting, ACellWithoutTextIsNoDeviceAndNoConflict) {
    selectAll({kClash, kSwx});
    list.model()->setData(0, WDevViewList::Status, boost::any(5));
    EXPECT_FALSE(list.selectionContainsConflictedSwx());
    list.model()->setData(0, WDevViewList::Type, boost::any());
    Info_DeviceType type{};
    Info_DetailedDeviceType detail{};
    list.devType(list.proxy()->index(0, 0), type, detail);
    EXPECT_EQ(type, Info_DeviceType::None);
}

} // namespace
