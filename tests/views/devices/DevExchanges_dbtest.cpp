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

// The page itself asks for news of Transmitters, Receivers, Switches, connections and logins: with one request.
constexpr unsigned kNews = 1;

// What a tab that only shows holds from refresh to refresh, each with one request.
constexpr unsigned kCounters = 1; // of changes: they tell what to ask for again
constexpr unsigned kDevice = 1;
constexpr unsigned kLogin = 1;
constexpr unsigned kUser = 1;
constexpr unsigned kConnection = 1;
constexpr unsigned kPorts = 1; // of Switch 1, where all devices below are
constexpr unsigned kSwitch = 1;
constexpr unsigned kUsb = 1; // no counter tells of it

TEST_F(DevExchanges, ARefreshOfEachDetailsTab) {
    const struct {
        const char *device, *other, *tab;
        unsigned ofTick;        // the timer's refresh, with no news
        unsigned ofReread;      // when the same device is selected again
        unsigned ofOpening;     // when the other device was on show before
        bool shownTwice = true; // rereading the same values tells the browser nothing
    } rows[] = {
        {"Desk 4", "Desk 5", "Attributes", 1, 1, 1},
        // Users and Transmitters are read with their lists of choices.
        {"Desk 4", "Desk 5", "Settings", 1, 3, 3},
        {"Desk 4", "Desk 5", "Status", kCounters, kCounters,
         kCounters + kDevice + kLogin + kConnection + kPorts + kSwitch},
        {"Desk 1 Left", "Desk 4", "Status", kCounters, kCounters,
         kCounters + kDevice + kLogin + kUser + kConnection + kPorts + kSwitch},
        {"Desk 4", "Desk 5", "Video", kCounters, kCounters, kCounters + kDevice + kLogin},
        {"Desk 4", "Desk 5", "USB", kCounters + kUsb, kCounters + kUsb,
         kCounters + kConnection + kDevice + kLogin + kUsb},
        {"Weather", "SCADA A", "Attributes", 1, 1, 1},
        {"Weather", "SCADA A", "Settings", 1, 1, 1},
        {"Weather", "SCADA A", "Status", kCounters, kCounters,
         kCounters + kDevice + kConnection + kPorts + kSwitch},
        {"Weather", "SCADA A", "Sessions", 2, 2, 2},
        {"Weather", "SCADA A", "USB", kCounters + kUsb, kCounters + kUsb,
         kCounters + kDevice + kConnection + kUsb},
        {"Annex Switch", "Main Hall Switch", "Mode", 1, 1, 1},
        {"Annex Switch", "Main Hall Switch", "Attributes", 1, 1, 1},
        {"Annex Switch", "Main Hall Switch", "IPv4", 1, 1, 1},
        {"Annex Switch", "Main Hall Switch", "IPv6", 1, 1, 1},
        {"Annex Switch", "Main Hall Switch", "NTP", 1, 1, 1, false}, // its clock runs
        {"Annex Switch", "Main Hall Switch", "Status", kCounters, kCounters, kCounters + kSwitch},
        {"Annex Switch", "Main Hall Switch", "Ports", 1, 1, 1},
    };
    for (const auto& row : rows) {
        const std::string place = std::string(row.device) + ", " + row.tab;
        select({row.other});
        showTab(row.tab);
        tick();
        // select() tells the page twice, as setSelectedIndexes() does and as a click does.
        EXPECT_EQ(costOf([&] { select({row.device}); }), kNews + row.ofOpening + kNews + row.ofReread)
            << place;
        tick(); // the tab hears of each kind for the first time
        sent();
        EXPECT_EQ(costOf([this] { tick(); }), kNews + row.ofTick) << place;
        EXPECT_EQ(sent(), "") << place;
        EXPECT_EQ(costOf([this] { view->readFromDatabase(true, false); }), kNews + row.ofReread) << place;
        if (row.shownTwice) {
            EXPECT_EQ(sent(), "") << place;
        }
    }
}

TEST_F(DevExchanges, ATabThatOnlyShowsFollowsEveryChange) {
    select({"Desk 4"});
    showTab("Status");
    tick();
    store("rx", 7, "name", "Desk 4 moved");
    // The list is read anew, and of the tab the Receiver and where it is plugged in.
    EXPECT_EQ(costOf([this] { tick(); }), kNews + 5 + kCounters + kDevice + kPorts);
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
    EXPECT_EQ(costOf([this] { tick(); }), 1u + kDevice) << "is it still what it was when the edit began?";
    EXPECT_EQ(costOf([this] { tick(); }), 1u);
    EXPECT_EQ(sent(), "");
    cancel();
}

// The session looks every few seconds whether its Switch has come under a manager, or has another role.
TEST_F(DevExchanges, TheModeCheckIsTwoReads) {
    sent();
    EXPECT_EQ(costOf([this] { session.probe().modeCheck(); }), 2u);
    EXPECT_EQ(sent(), "");
}

} // namespace
