// Who may be joined to what: each row asks for one session in a state made for it.
#include "platform/service/demo/Installation.h"
#include "platform/service/sim/SwitchLife.h"
#include "tests/platform/service/support/CountingView.h"
#include "tests/platform/service/support/Harness.h"

#include <gtest/gtest.h>

namespace zeqd::testing {
namespace {

/// Changes to make first, as {resource, parameters}.
using Preparation = std::vector<std::pair<const char*, const char*>>;

TEST(Sessions, TopologyIsJudged) {
    struct Row {
        const char* what;
        Preparation before;
        const char* params;
        int error;
    };
    // User 4 is logged in at Receiver 5 without a session; Transmitter 4 is free and allowed.
    const Row rows[] = {
        {"shared", {}, R"({"rxIndex":5,"txIndex":4,"mode":"share_mode"})", 0},
        {"private", {}, R"({"rxIndex":5,"txIndex":4,"mode":"private_mode"})", 0},
        {"shared with a shared one", {}, R"({"rxIndex":5,"txIndex":1,"mode":"share_mode"})", 0},
        {"nobody logged in", {}, R"({"rxIndex":6,"txIndex":4,"mode":"share_mode"})", 1105},
        {"Receiver has a session", {}, R"({"rxIndex":3,"txIndex":4,"mode":"share_mode"})", 1124},
        {"private to a shared one", {}, R"({"rxIndex":5,"txIndex":1,"mode":"private_mode"})", 1121},
        {"shared to a private one",
         {{"connection", R"({"rxIndex":5,"txIndex":11,"mode":"private_mode"})"},
          {"login", R"({"userIndex":1,"rxIndex":6})"}},
         R"({"rxIndex":6,"txIndex":11,"mode":"share_mode"})",
         1122},
        {"private to a private one",
         {{"connection", R"({"rxIndex":5,"txIndex":11,"mode":"private_mode"})"},
          {"login", R"({"userIndex":1,"rxIndex":6})"}},
         R"({"rxIndex":6,"txIndex":11,"mode":"private_mode"})",
         1121},
        {"target not allowed", {}, R"({"rxIndex":5,"txIndex":17,"mode":"share_mode"})", 1105},
        {"all targets allowed",
         {{"user", R"({"index":4,"allTargetAccess":"enabled"})"}},
         R"({"rxIndex":5,"txIndex":17,"mode":"share_mode"})",
         0},
        {"Transmitter private only", {}, R"({"rxIndex":5,"txIndex":12,"mode":"share_mode"})", 1106},
        {"Receiver shared only",
         {{"rx", R"({"index":5,"modeAllowed":"share_mode"})"}},
         R"({"rxIndex":5,"txIndex":4,"mode":"private_mode"})",
         1106},
        {"user shared only",
         {{"user", R"({"index":4,"modeAllowed":"share_mode"})"}},
         R"({"rxIndex":5,"txIndex":4,"mode":"private_mode"})",
         1106},
        {"Transmitter off", {}, R"({"rxIndex":5,"txIndex":3,"mode":"share_mode"})", 1109},
        {"Transmitter about to reboot",
         {{"tx", R"({"index":4,"reset":"cold_reboot"})"}},
         R"({"rxIndex":5,"txIndex":4,"mode":"share_mode"})",
         1109},
        {"Receiver about to reboot",
         {{"rx", R"({"index":5,"reset":"cold_reboot"})"}},
         R"({"rxIndex":5,"txIndex":4,"mode":"share_mode"})",
         1108},
        {"Transmitter beyond capacity",
         {{"user", R"({"index":4,"allTargetAccess":"enabled"})"}},
         R"({"rxIndex":5,"txIndex":30,"mode":"share_mode"})",
         1120},
        {"its Switch is away",
         {{"user", R"({"index":4,"allTargetAccess":"enabled"})"},
          {"swx", R"({"index":2,"reset":"cold_reboot"})"}},
         R"({"rxIndex":5,"txIndex":25,"mode":"share_mode"})",
         1125},
        {"no Receiver", {}, R"({"rxIndex":900,"txIndex":4,"mode":"share_mode"})", 7},
        {"unknown mode", {}, R"({"rxIndex":5,"txIndex":4,"mode":"share_or_private_mode"})", 1010},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Harness service;
        for (const auto& [resource, params] : row.before) {
            const std::string name = resource;
            const Answer prepared = name == "login"        ? service.create("userSession", params)
                                    : name == "connection" ? service.create(name, params)
                                                           : service.set(name, params);
            ASSERT_EQ(prepared.error(), 0) << prepared.text();
        }
        const std::size_t before = service.engine->store().count(Res::Connection);
        const Answer answer = service.create("connection", row.params);
        EXPECT_EQ(answer.error(), row.error) << answer.text();
        EXPECT_EQ(service.engine->store().count(Res::Connection), before + (row.error ? 0 : 1));
    }
}

TEST(Sessions, WithdrawnRightsEndWhatRunsWithItsEvent) {
    struct {
        const char* what;
        const char* change;
        bool ends;
    } rows[] = {{"its target", R"("target":[{"txIndex":1}])", true},
                {"another target", R"("target":[{"txIndex":4}])", false},
                {"its mode", R"("modeAllowed":"private_mode")", true},
                {"the other mode", R"("modeAllowed":"share_mode")", false},
                {"nothing", R"("fullName":"x")", false}};
    // User 4 is logged in at Receiver 5.
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Harness service;
        const Answer made = service.create("connection", R"({"rxIndex":5,"txIndex":4,"mode":"share_mode"})");
        ASSERT_EQ(made.error(), 0);
        ASSERT_EQ(service.set("user", std::string(R"({"index":4,)") + row.change + "}").error(), 0);
        const auto& store = service.engine->store();
        EXPECT_EQ(store.find(Res::Connection, static_cast<std::uint32_t>(made.number("index"))) == nullptr,
                  row.ends);
        const Answer events = service.get("unacknowledgedAlerts");
        const std::string end = "Session of " + service.value("rx", 5, "name") + " with";
        bool told = false;
        for (std::size_t i = 0; i < events.rowCount(); ++i) {
            const std::string message = events.at("alertMsg", i);
            told = told || (message.starts_with(end) && message.ends_with(" disconnected"));
        }
        EXPECT_EQ(told, row.ends);
    }
    Harness service;
    ASSERT_EQ(service.set("user", R"({"index":4,"allTargetAccess":"enabled"})").error(), 0);
    ASSERT_EQ(service.create("connection", R"({"rxIndex":5,"txIndex":17,"mode":"share_mode"})").error(), 0);
    const std::size_t before = service.engine->store().count(Res::Connection);
    ASSERT_EQ(service.set("user", R"({"index":4,"allTargetAccess":"disabled"})").error(), 0);
    EXPECT_EQ(service.engine->store().count(Res::Connection), before - 1);
}

TEST(Sessions, SharersAreLimited) {
    Harness service;
    ASSERT_EQ(service.set("user", R"({"index":1,"modeAllowed":"share_or_private_mode"})").error(), 0);
    int connected = 2; // Transmitter 1 has two sharers in the demo
    int error = 0;
    for (const int rx : {4, 6, 7, 8, 9, 11, 20}) {
        const std::string index = std::to_string(rx);
        ASSERT_EQ(service.create("userSession", R"({"userIndex":1,"rxIndex":)" + index + "}").error(), 0);
        error = service.create("connection", R"({"txIndex":1,"mode":"share_mode","rxIndex":)" + index + "}")
                    .error();
        if (error) break;
        ++connected;
    }
    EXPECT_EQ(connected, 8);
    EXPECT_EQ(error, 1123);
}

TEST(Sessions, LoginsAtReceivers) {
    Harness service;
    struct {
        const char* params;
        int error;
    } rows[] = {
        {R"({"userIndex":3,"rxIndex":4})", 0},    {R"({"userIndex":3,"rxIndex":4})", 1119},
        {R"({"userIndex":7,"rxIndex":6})", 1104}, {R"({"userIndex":3,"rxIndex":19})", 1108},
        {R"({"userIndex":900,"rxIndex":6})", 7},  {R"({"userIndex":3,"rxIndex":900})", 7},
        {R"({"userIndex":0,"rxIndex":6})", 10},   {R"({"rxIndex":6})", 1007},
    };
    for (const auto& row : rows)
        EXPECT_EQ(service.create("userSession", row.params).error(), row.error) << row.params;
}

TEST(Sessions, PicturesFollowTheSession) {
    Harness service;
    EXPECT_EQ(service.value("rx", 1, "inputVideoTiming/horizontalResolution"), "1920");
    EXPECT_EQ(service.value("rx", 1, "inputVideoTiming/pixelClockFrequency"), "148500");
    EXPECT_EQ(service.value("rx", 1, "monPrefVideoTiming/verticalResolution"), "1200");
    EXPECT_EQ(service.value("rx", 1, "monPrefVideoTiming/horizontalBackPorch"), "80");
    EXPECT_EQ(service.value("rx", 1, "outputVideoTiming/verticalResolution"), "1200") << "scaled";
    EXPECT_EQ(service.value("txUsbDiag", 1, "hcpHid"), "3");
    ASSERT_EQ(service.set("rx", R"({"index":1,"videoScaling":"disabled"})").error(), 0);
    EXPECT_EQ(service.value("rx", 1, "outputVideoTiming/verticalResolution"), "1080");
    ASSERT_EQ(service.set("simControl", R"({"action":"video","eid":"00A703-03000D","mode":2})").error(), 0);
    EXPECT_EQ(service.value("rx", 1, "inputVideoTiming/horizontalResolution"), "1280");
    const RecordPtr connection = service.engine->store().findNumber(Res::Connection, "rxIndex", 1);
    ASSERT_EQ(service.remove("connection", static_cast<int>(connection->index())).error(), 0);
    EXPECT_EQ(service.value("rx", 1, "inputVideoTiming/horizontalResolution"), "0");
    EXPECT_EQ(service.value("rxUsbDiag", 1, "scpConnectActive"), "0");
    EXPECT_NE(service.engine->store().findNumber(Res::UserSession, "rxIndex", 1), nullptr)
        << "still logged in";
}

constexpr std::int64_t kMinute = 60'000;

bool hasSession(const Harness& service, std::uint32_t rx) {
    return service.engine->store().findNumber(Res::Connection, "rxIndex", rx) != nullptr;
}

TEST(Sessions, EndWhenNobodyIsThere) {
    Harness service;
    service.set("rx", R"({"index":5,"sessionInactivityTimeout":2})");
    ASSERT_EQ(service.create("connection", R"({"rxIndex":5,"txIndex":4,"mode":"share_mode"})").error(), 0);
    service.pass(2 * kMinute - 1000);
    EXPECT_TRUE(hasSession(service, 5));
    service.pass(1000);
    EXPECT_FALSE(hasSession(service, 5));
    EXPECT_NE(service.engine->store().findNumber(Res::UserSession, "rxIndex", 5), nullptr);
    const Answer events = service.get("unacknowledgedAlerts");
    EXPECT_EQ(events.at("alertMsg", events.rowCount() - 1),
              "Session of Desk 3 Left with Historian disconnected: nobody there for 2 min");
    EXPECT_EQ(service.value("rx", 5, "inputVideoTiming/horizontalResolution"), "0");
    EXPECT_TRUE(hasSession(service, 1)) << "a limit of 0 ends nothing";
}

TEST(Sessions, ANewLimitCountsFromThereAndARestartGoesOnCounting) {
    Harness service;
    service.set("rx", R"({"index":1,"sessionInactivityTimeout":1})");
    service.pass(kMinute / 2);
    service.set("rx", R"({"index":1,"sessionInactivityTimeout":3})");
    service.set("rx", R"({"index":2,"sessionInactivityTimeout":3})");
    service.pass(kMinute);
    service.set("rx", R"({"index":2,"sessionInactivityTimeout":0})");
    service.restart();
    service.pass(2 * kMinute - 2000);
    EXPECT_TRUE(hasSession(service, 1));
    service.pass(2000);
    EXPECT_FALSE(hasSession(service, 1));
    service.pass(kMinute);
    EXPECT_TRUE(hasSession(service, 2));

    service.set("rx", R"({"index":2,"sessionInactivityTimeout":1})");
    service.remove("connection", 2);
    service.pass(kMinute / 2);
    ASSERT_EQ(service.create("connection", R"({"rxIndex":2,"txIndex":5,"mode":"share_mode"})").error(), 0);
    service.pass(kMinute / 2);
    EXPECT_TRUE(hasSession(service, 2)) << "what was left of one session is not another's";
}

TEST(Sessions, OneThatAReceiverStartedByItselfEndsToo) {
    Harness service;
    service.set("rx", R"({"index":6,"sessionInactivityTimeout":1,"autoLoginControl":"enabled",)"
                      R"("autoLoginUserIndex":1,"autoConnectControl":"enabled",)"
                      R"("autoConnectTxEid":"00A703-030041","reset":"cold_reboot"})");
    service.pass(20'000);
    ASSERT_TRUE(hasSession(service, 6));
    service.pass(kMinute);
    EXPECT_FALSE(hasSession(service, 6));
}

TEST(Operators, ComeConnectAndLeaveByThemselves) {
    Harness service;
    const std::string before = dump(service.engine->store());
    service.pass(60 * kMinute);
    EXPECT_EQ(dump(service.engine->store()), before) << "nobody moves in a demo that stands still";

    service.living = true;
    service.set("rx", R"({"index":7,"sessionInactivityTimeout":1})");
    service.restart();
    const std::size_t residents = service.engine->store().count(Res::UserSession);
    std::set<std::string> seen;
    std::size_t most = 0, logins = 0;
    for (int minute = 0; minute < 12 * 60; ++minute) {
        service.pass(kMinute);
        const Store& store = service.engine->store();
        most = std::max(most, store.count(Res::UserSession));
        for (const std::uint32_t resident : {1U, 2U, 3U, 10U, 12U, 15U})
            EXPECT_TRUE(hasSession(service, resident)) << resident;
        store.each(Res::Connection, [&](const RecordPtr& connection) {
            EXPECT_NE(store.findNumber(Res::UserSession, "rxIndex", connection->number("rxIndex")), nullptr);
            seen.insert(connection->text("rxEid") + connection->text("txEid"));
            return true;
        });
        logins += store.count(Res::UserSession) > residents;
        service.set("alertsControl", R"({"alertsAction":"ack_all"})");
    }
    EXPECT_GT(most, residents);
    EXPECT_LE(most, residents + 4);
    EXPECT_GT(logins, 600U) << "minutes with somebody there";
    EXPECT_GT(seen.size(), 30U) << "pairs of devices";
    EXPECT_LT(service.engine->store().count(Res::UserSession), residents + 5);
    const std::string told = service.get("historicalAlerts", R"("select":["alertMsg"])").text();
    EXPECT_EQ(told.find("Connection of"), std::string::npos) << "nobody tries what is refused";
}

TEST(Sessions, PortsTellWhatIsPluggedIn) {
    Harness service;
    const std::string ports = service.value("portStatus", 1, "ports");
    EXPECT_NE(
        ports.find(
            R"({"portIndex":1,"remotePort":1,"deviceType":"rx","eid":"00A702-020011","portState":"in_use"})"),
        std::string::npos);
    EXPECT_NE(ports.find(R"("eid":"00A703-030027","portState":"no_device")"), std::string::npos);
    EXPECT_EQ(service.value("portStatus", 50, "swxIndex"), "0") << "a number without a Switch answers, empty";
    EXPECT_EQ(service.value("portStatus", 50, "ports"), "[]");
    EXPECT_EQ(service.value("portStatus", 51, "ports"), "error 1009");
}

/// A Switch with Receivers that all have a user and a session.
Store busy(std::uint32_t receivers) {
    Store store;
    for (const RecordPtr& record : factoryInstallation()) store.load(record);
    store.load(std::make_shared<const Record>(std::move(Record(Res::Swx, 2).choose("status", "ready"))));
    for (std::uint32_t i = 1; i <= receivers; ++i) {
        store.load(std::make_shared<const Record>(
            std::move(Record(Res::Rx, i).choose("status", "ready").set("simSwx", 2))));
        store.load(std::make_shared<const Record>(
            std::move(Record(Res::UserSession, i).set("userIndex", 1).set("rxIndex", i))));
        store.load(std::make_shared<const Record>(
            std::move(Record(Res::Connection, i).set("rxIndex", i).set("txIndex", i))));
    }
    return store;
}

TEST(ManySessions, EndTogetherWithoutEachLookingForItsOwn) {
    constexpr std::uint32_t kReceivers = 3000;
    struct {
        const char* what;
        std::function<void(Transaction&)> end;
    } rows[] = {
        {"restored", [](Transaction& tx) { factoryThisSwitch(tx, 0); }},
        {"lost with their Switch", [](Transaction& tx) { switchOffline(tx, 0, tx.find(Res::Swx, 2)); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Store store = busy(kReceivers);
        const CountingView view(store);
        Transaction tx(&view);
        row.end(tx);
        EXPECT_EQ(tx.count(Res::UserSession), 0U);
        EXPECT_EQ(tx.count(Res::Connection), 0U);
        EXPECT_LT(view.seen, 20 * kReceivers);
        EXPECT_LT(view.finds, 60 * kReceivers);
        EXPECT_LE(tx.count(Res::UnacknowledgedAlerts), 500U);
    }
}

} // namespace
} // namespace zeqd::testing
