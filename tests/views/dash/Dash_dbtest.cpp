// The Dashboard: who is at which Receiver, and what nobody has acknowledged yet.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "shell/WallClock.h"
#include "tests/views/PageTest.h"
#include "views/dash/WDashView.h"
#include "views/dash/WDashViewEventList.h"
#include "views/dash/WDashViewSesList.h"

#include <Wt/WStandardItemModel>

#include <gmock/gmock.h>

namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class DashPage : public PageTest {
protected:
    DashPage() : view(mainTab<WDashView>()) {
        std::vector<std::string> errors;
        Db::db.ackAllAlerts(errors);
        view->readFromDatabase();
    }
    std::vector<std::string> sessions() const { return linesOf(*view->sesList()->table()); }
    std::vector<std::string> events() const { return linesOf(*view->eventList()->table()); }
    void tick() { view->refreshTimerTimeout(); }

    WDashView* view;
};

TEST_F(DashPage, EveryLoginAndWhatIsOnIt) {
    ASSERT_EQ(sessions().size(), 9u);
    EXPECT_THAT(sessions(), Contains("jokoro|Desk 3 Left|||")) << "a login without a session";
    EXPECT_THAT(sessions(), Contains(StartsWith("engineer|Engineering|Relay Engineering|Private|")));
    poke("connection", 8, "sessionStartTime", std::to_string(WallClock_now() - 3723).c_str());
    store("tx", 1, "name", "");
    tick();
    EXPECT_THAT(sessions(), Contains("engineer|Engineering|Relay Engineering|Private|1:02:03"));
    EXPECT_THAT(sessions(), Contains(StartsWith("mhansen|Desk 1 Left|EID - 00A703-03000D|Shared|")));
    clock.advance(5);
    const unsigned long before = zeqExchangeCount();
    tick();
    EXPECT_THAT(sessions(), Contains(EndsWith("|Private|1:02:08")));
    EXPECT_EQ(zeqExchangeCount() - before, 1u) << "an idle tick";

    for (unsigned connection = 1; connection <= 8; ++connection) remove("connection", connection);
    view->readFromDatabase();
    EXPECT_THAT(sessions(), Contains("engineer|Engineering|||"));
}

TEST_F(DashPage, ARebuildCostsSevenExchanges) {
    unsigned long before = zeqExchangeCount();
    view->readFromDatabase();
    EXPECT_EQ(zeqExchangeCount() - before, 7u)
        << "logins, sessions, logins by Receiver, users, Receivers, Transmitters, and the events";
}

TEST_F(DashPage, EventsOnlyWhileNobodyHasAcknowledgedThem) {
    EXPECT_TRUE(events().empty());
    poke("swx", 1, "eid", "00A701-0100FF");
    raise("first");
    raise("second", "error");
    raise("third", "info");
    tick();
    ASSERT_EQ(events().size(), 3u);
    EXPECT_THAT(events(), Contains(EndsWith("|warning|00A701-0100FF|first")));
    EXPECT_THAT(events(), Contains(EndsWith("|error|00A701-0100FF|second")));
    const Wt::WString mark = boost::any_cast<Wt::WString>(
        view->eventList()->model()->data(0, WDashViewEventList::Type, Wt::StyleClassRole));
    EXPECT_THAT(mark.toUTF8(), StartsWith("mirl-severity-"));
    EXPECT_EQ(view->eventList()->table()->sortOrder(), Wt::DescendingOrder);

    std::vector<std::string> errors;
    Db::db.ackAllAlerts(errors);
    raise("fourth", "info");
    tick();
    EXPECT_THAT(events(), ElementsAre(EndsWith("|fourth")));
    session.app().dashViewEventLogClear();
    EXPECT_TRUE(events().empty()) << "at once";
}

TEST_F(DashPage, SelectionsOutliveARebuild) {
    raise("first");
    raise("second");
    view->readFromDatabase();
    RecordTable& logins = *view->sesList()->table();
    RecordTable& alerts = *view->eventList()->table();
    logins.select(logins.rowOf(8));
    const unsigned event = alerts.zeqIndexAt(alerts.proxy()->index(1, 0));
    alerts.select(alerts.rowOf(event));
    store("rx", 1, "name", "A first desk");
    raise("third");
    tick();
    EXPECT_EQ(logins.selectedZeqIndex(), 8u);
    EXPECT_EQ(alerts.selectedZeqIndex(), event);
    remove("userSession", 8);
    tick();
    EXPECT_EQ(logins.selectedZeqIndex(), 0u);
}

TEST_F(DashPage, TheFilterLooksAtTheReceiver) {
    view->sesList()->filterRegExTextChangedHandler("wall");
    EXPECT_EQ(sessions().size(), 3u);
    view->readFromDatabase();
    EXPECT_EQ(sessions().size(), 3u) << "and outlives a rebuild";
    EXPECT_THAT(sessions(), Each(StartsWith("wall|Video Wall")));
    view->sesList()->filterRegExTextChangedHandler("engineer"); // a name of a Receiver too
    EXPECT_EQ(sessions().size(), 1u);
}

} // namespace
