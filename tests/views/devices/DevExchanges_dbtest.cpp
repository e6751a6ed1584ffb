// What a refresh costs while nothing changes: requests to the service, and words to the browser.

#include "db/ZeqExchange.h"
#include "tests/views/devices/DevicesPage.h"

#if __has_include("test/TestSession.h")
#include "test/TestSession.h"
#endif

namespace {

// Operations for the browser since the last call. An installed toolkit offers no such look.
std::string sent() {
#if __has_include("test/TestSession.h")
    return Wt::Impl::TestSession::current().takeOperations();
#else
    return "";
#endif
}

class DevExchanges : public DevicesPage {
protected:
    unsigned long costOf(const std::function<void()>& refresh) {
        const unsigned long before = zeqExchangeCount();
        refresh();
        return zeqExchangeCount() - before;
    }
};

// The page itself asks for news of Transmitters, Receivers, Switches, connections and logins.
constexpr unsigned kNews = 5;
constexpr unsigned kFindLogin = 1;
constexpr unsigned kFindConnection = 1;
constexpr unsigned kStatus = 3;     // status, upgradeStatus, usage
constexpr unsigned kKnownPorts = 1; // EID
constexpr unsigned kFirstPorts = 2; // EID, then the ports of Switch 1, where all devices below are

TEST_F(DevExchanges, ARefreshOfEachDetailsTab) {
    const struct {
        const char *device, *tab;
        unsigned ofTick;        // the timer's refresh, with no news
        unsigned ofReread;      // when the same device is selected again
        bool shownTwice = true; // rereading the same values tells the browser nothing
    } rows[] = {
        {"Desk 4", "Attributes", 1, 4},
        // Users and targets are read with their lists of choices.
        {"Desk 4", "Settings", 4, 8 + 2 + 8},
        {"Desk 4", "Status", 4 + kStatus + kFindLogin + 4 + 1 + (kFirstPorts + 1) + kKnownPorts,
         4 + kStatus + kFindLogin + 4 + 1 + (kFirstPorts + 1) + kKnownPorts},
        {"Desk 4", "Video", kStatus + kFindLogin + 1, kStatus + kFindLogin + 1},
        {"Desk 4", "USB", kFindConnection + kStatus + kFindLogin + 1,
         kFindConnection + kStatus + kFindLogin + 1},
        {"Weather", "Attributes", 1, 4},
        {"Weather", "Settings", 1, 9},
        {"Weather", "Status", 3 + kStatus + kFindConnection + 1 + 1 + (kFirstPorts + 1) + kKnownPorts,
         3 + kStatus + kFindConnection + 1 + 1 + (kFirstPorts + 1) + kKnownPorts},
        {"Weather", "Sessions", 2, 2},
        {"Weather", "USB", kStatus + kFindConnection + 1, kStatus + kFindConnection + 1},
        {"Annex Switch", "Mode", 1, 2},
        {"Annex Switch", "Attributes", 1, 4 + kStatus},
        {"Annex Switch", "IPv4", 1, 1},
        {"Annex Switch", "IPv6", 1, 1},
        {"Annex Switch", "NTP", 1, 5 + kStatus, false}, // its clock runs
        {"Annex Switch", "Status", 3 + kStatus + 1, 3 + kStatus + 1},
        {"Annex Switch", "Ports", 1, 1},
    };
    for (const auto& row : rows) {
        const std::string place = std::string(row.device) + ", " + row.tab;
        select({row.device});
        showTab(row.tab);
        for (int watch = 0; watch < 4; ++watch) tick(); // the tab hears of each kind for the first time
        sent();
        EXPECT_EQ(costOf([this] { tick(); }), kNews + row.ofTick) << place;
        EXPECT_EQ(sent(), "") << place;
        EXPECT_EQ(costOf([this] { view->readFromDatabase(true, false); }), kNews + row.ofReread) << place;
        if (row.shownTwice) {
            EXPECT_EQ(sent(), "") << place;
        }
    }
}

TEST_F(DevExchanges, ARefreshWithoutASelectionAndARebuiltList) {
    tick();
    sent();
    EXPECT_EQ(costOf([this] { tick(); }), kNews);
    EXPECT_EQ(sent(), "");
    // Logins and connections, and one retrieve for each kind of device.
    EXPECT_EQ(costOf([this] { view->readFromDatabase(false, true); }), 5u);
    EXPECT_EQ(sent(), "") << "52 rows taken out and put back as they were";
}

TEST_F(DevExchanges, AFocusedFieldOrAnEditStopsTheDetails) {
    select({"Desk 4"});
    tick();
    type("name", "in work");
    sent();
    EXPECT_EQ(costOf([this] { tick(); }), 0u);
    EXPECT_EQ(sent(), "");
    cancel();
}

// The session looks every few seconds whether its Switch has come under a manager.
TEST_F(DevExchanges, TheModeCheckIsOneRead) {
    sent();
    EXPECT_EQ(costOf([this] { session.probe().modeCheck(); }), 1u);
    EXPECT_EQ(sent(), "");
}

} // namespace
