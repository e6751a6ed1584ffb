// Accounts, logins of administrators and the events that tell of them.
#include "tests/platform/service/support/Harness.h"

#include <gtest/gtest.h>

namespace zeqd::testing {
namespace {

std::string lastEvent(Harness& service) {
    const Answer events = service.get("unacknowledgedAlerts");
    return events.rowCount() ? events.at("alertMsg", events.rowCount() - 1) : "";
}

TEST(Users, LoginsAreJudged) {
    Harness service;
    ASSERT_EQ(
        service.create("user", R"({"name":"off","role":"admin","password":"pw","accountEnable":"disabled"})")
            .error(),
        0);
    ASSERT_EQ(service.create("user", R"({"name":"plain","role":"user","password":"pw"})").error(), 0);
    struct {
        const char* params;
        int error;
    } rows[] = {
        {R"({"username":"admin","password":"test-1"})", 0},
        {R"({"username":"supervisor","password":""})", 0},
        {R"({"username":"supervisor","password":"x"})", 1103},
        {R"({"username":"admin","password":"test-2"})", 1103},
        {R"({"username":"admin","password":""})", 1103},
        {R"({"username":"Admin","password":"test-1"})", 1103},
        {R"({"username":"nobody","password":""})", 1103},
        {R"({"username":"","password":""})", 1103},
        {R"({"username":"off","password":"pw"})", 1104},
        {R"({"username":"off","password":"no"})", 1103},
        {R"({"username":"plain","password":"pw"})", 1105},
        {R"({"username":"plain","password":"no"})", 1103},
        {R"({"username":"admin"})", 1102},
        {R"({"password":"test-1"})", 1102},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.params);
        const std::size_t sessions = service.engine->store().count(Res::AdminSession);
        const Answer answer = service.create("adminSession", row.params);
        EXPECT_EQ(answer.error(), row.error) << answer.text();
        EXPECT_EQ(service.engine->store().count(Res::AdminSession), sessions + (row.error ? 0 : 1));
        const bool told = lastEvent(service).find("failed") != std::string::npos;
        EXPECT_EQ(told, row.error != 0);
        EXPECT_EQ(answer.number("userIndex") > 0, row.error == 0);
    }
}

TEST(Users, APasswordThatChangesDuringALoginDoesNotLetTheOldOneIn) {
    Harness service;
    std::string answer;
    service.engine->request(
        7,
        R"({"id":1,"method":"create","resource":"adminSession","params":{"username":"admin","password":"test-1"}})",
        [&answer](std::string text) { answer = std::move(text); });
    // The login waits for its hash; meanwhile another client changes the password.
    std::string changed;
    service.engine->request(
        8, R"({"id":1,"method":"set","resource":"user","params":{"index":1,"password":"new"}})",
        [&changed](std::string text) { changed = std::move(text); });
    ASSERT_TRUE(service.executor.step(Lane::Hash)); // verified against the old hash, queued
    ASSERT_TRUE(service.executor.step(Lane::Hash)); // the new password's hash is ready, queued behind it
    service.settle();
    EXPECT_EQ(Answer(changed).error(), 0);
    EXPECT_EQ(Answer(answer).error(), 0) << "kept before the change";
    EXPECT_EQ(service.create("adminSession", R"({"username":"admin","password":"test-1"})").error(), 1103);
    EXPECT_EQ(service.create("adminSession", R"({"username":"admin","password":"new"})").error(), 0);
}

TEST(Users, PasswordsNeverComeBack) {
    Harness service;
    ASSERT_EQ(service.set("user", R"({"index":3,"password":"Geheim7"})").error(), 0);
    ASSERT_EQ(service.set("systemGlobals/rapParameters", R"({"sshPassword":"Geheim7"})").error(), 0);
    ASSERT_EQ(
        service
            .create("upgrade",
                    R"({"protocol":"ftp","location":"h","filename":"f","username":"u","password":"Geheim7"})")
            .error(),
        0);
    EXPECT_EQ(service.value("user", 3, "password"), "");
    EXPECT_EQ(service.value("systemGlobals", 0, "rapParameters/sshPassword"), "");
    EXPECT_EQ(service.value("upgrade", 3, "password"), "********");
    for (const char* resource : {"user", "systemGlobals", "upgrade", "adminSession"}) {
        const std::string text = service.get(resource).text();
        EXPECT_EQ(text.find("Geheim7"), std::string::npos);
        EXPECT_EQ(text.find("argon2"), std::string::npos);
    }
    EXPECT_EQ(service.disk.records[std::make_pair(Res::User, 3U)].find("Geheim7"), std::string::npos);
    for (const std::string& line : service.log) EXPECT_EQ(line.find("Geheim7"), std::string::npos);
}

TEST(Users, FirstPasswordIsGivenUnderTheNameOnceOnly) {
    Harness service;
    const char* first =
        R"({"name":"supervisor","role":"admin","password":"First1","passwordIsInitialized":"is_true"})";
    EXPECT_EQ(service.value("user", 2, "passwordIsInitialized"), "is_false");
    EXPECT_EQ(service.set("user", first).error(), 0);
    EXPECT_EQ(service.value("user", 2, "passwordIsInitialized"), "is_true");
    EXPECT_EQ(service.create("adminSession", R"({"username":"supervisor","password":"First1"})").error(), 0);
    EXPECT_EQ(service.create("adminSession", R"({"username":"supervisor","password":""})").error(), 1103);
    EXPECT_EQ(service.set("user", first).error(), 1106);
    EXPECT_EQ(service.set("user", R"({"name":"admin","role":"admin","password":"x"})").error(), 1106);
    EXPECT_EQ(service.set("user", R"({"name":"nobody","role":"admin","password":"x"})").error(), 7);
    EXPECT_EQ(service.set("user", R"({"name":"admin","fullName":"x"})").error(), 1008);
}

TEST(Users, AccountsAreKeptSound) {
    Harness service;
    struct {
        const char* what;
        const char* method;
        const char* params;
        int error;
    } rows[] = {
        {"name taken", "create", R"({"name":"admin","role":"user","password":"x"})", 11},
        {"name taken by a change", "set", R"({"index":3,"name":"jokoro"})", 11},
        {"name kept", "set", R"({"index":3,"name":"mhansen"})", 0},
        {"name emptied", "set", R"({"index":3,"name":""})", 13},
        {"no role", "create", R"({"name":"new","password":"x"})", 1007},
        {"no password", "create", R"({"name":"new","role":"user"})", 13},
        {"blank password", "create", R"({"name":"new","role":"user","password":""})", 13},
        {"blank password allowed", "create", R"({"name":"new","role":"user","allowBlankPassword":"enabled"})",
         0},
        {"password with a blank", "set", R"({"index":3,"password":"a b"})", 17},
        {"password of 21", "set", R"({"index":3,"password":"123456789012345678901"})", 14},
        {"password of 20", "set", R"({"index":3,"password":"12345678901234567890"})", 0},
        {"password emptied", "set", R"({"index":3,"password":""})", 13},
        {"initialised without a password", "set", R"({"index":2,"passwordIsInitialized":"is_true"})", 1106},
        {"made uninitialised", "set", R"({"index":3,"passwordIsInitialized":"is_false"})", 1106},
        {"33 favourites", "set", nullptr, 15},
    };
    std::string many = R"({"index":3,"favorite":[)";
    for (int i = 0; i < 33; ++i) many += std::string(i ? "," : "") + R"({"txIndex":1})";
    many += "]}";
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const std::string params = row.params ? row.params : many;
        const Answer answer =
            std::string(row.method) == "set" ? service.set("user", params) : service.create("user", params);
        EXPECT_EQ(answer.error(), row.error) << answer.text();
    }
}

TEST(Users, TheLastEnabledAdministratorStays) {
    Harness service;
    ASSERT_EQ(service.remove("user", 2).error(), 0);
    for (const char* params : {R"({"index":1,"role":"user"})", R"({"index":1,"accountEnable":"disabled"})"}) {
        const Answer answer = service.set("user", params);
        EXPECT_EQ(answer.error(), 1106);
        EXPECT_EQ(answer.detail(), "service.detail.last_administrator");
    }
    EXPECT_EQ(service.remove("user", 1).error(), 1106);
    ASSERT_EQ(service.set("user", R"({"index":3,"role":"admin"})").error(), 0);
    EXPECT_EQ(service.set("user", R"({"index":1,"role":"user"})").error(), 0);
    EXPECT_EQ(service.remove("user", 3).error(), 1106);
}

TEST(Users, DeletingAUserEndsTheSessions) {
    Harness service;
    ASSERT_NE(service.engine->store().findNumber(Res::Connection, "rxIndex", 1), nullptr);
    ASSERT_EQ(service.remove("user", 3).error(), 0);
    for (const std::uint32_t rx : {1U, 2U}) {
        EXPECT_EQ(service.engine->store().findNumber(Res::Connection, "rxIndex", rx), nullptr);
        EXPECT_EQ(service.engine->store().findNumber(Res::UserSession, "rxIndex", rx), nullptr);
    }
    EXPECT_NE(service.engine->store().findNumber(Res::UserSession, "rxIndex", 3), nullptr);
}

TEST(Users, CapacityIsReached) {
    Harness service;
    const auto name = [](int i) {
        return R"({"name":"u)" + std::to_string(i) + R"(","role":"user","allowBlankPassword":"enabled"})";
    };
    for (int i = 9; i <= 256; ++i) ASSERT_EQ(service.create("user", name(i)).error(), 0);
    EXPECT_EQ(service.create("user", name(257)).error(), 8);
    ASSERT_EQ(service.remove("user", 100).error(), 0);
    const Answer last = service.create("user", name(257));
    EXPECT_EQ(last.error(), 0);
    EXPECT_EQ(last.number("index"), 257) << "an index is not used again";
}

TEST(Users, AFunctionKeyAloneKeepsItsStoredAction) {
    Harness service;
    const Answer answer =
        service.set("user", R"({"index":3,"keySettings":{"osdShortCuts":[{"functionKey":"f1"},
        {"functionKey":"f2","action":"none","txEID":""},{"functionKey":"f12","action":"enumerate_mouse"}]}})");
    ASSERT_EQ(answer.error(), 0) << answer.text();
    const std::string keys = service.value("user", 3, "keySettings/osdShortCuts");
    EXPECT_NE(keys.find(R"({"functionKey":"f1","action":"connect_to_target_x","txEID":"00A703-03000D"})"),
              std::string::npos);
    EXPECT_NE(keys.find(R"({"functionKey":"f2","action":"none","txEID":""})"), std::string::npos);
    EXPECT_NE(keys.find(R"({"functionKey":"f12","action":"enumerate_mouse","txEID":""})"), std::string::npos);
    EXPECT_EQ(
        service.set("user", R"({"index":3,"keySettings":{"osdShortCuts":[{"functionKey":"none"}]}})").error(),
        9);
    EXPECT_EQ(service.value("user", 3, "keySettings/osdHotKey/hotKey"), "print_screen");
}

TEST(Users, FavouritesOfARemovedTransmitterMayBeWrittenBack) {
    Harness service;
    ASSERT_EQ(service.remove("tx", 5).error(), 0);
    EXPECT_EQ(service.set("user", R"({"index":3,"favorite":[{"txIndex":7},{"txIndex":5}]})").error(), 0);
    const Answer refused = service.set("user", R"({"index":4,"favorite":[{"txIndex":5}]})");
    EXPECT_EQ(refused.error(), 7);
    EXPECT_EQ(refused.detail(), "service.detail.no_tx");
}

TEST(Users, AnInterfaceSessionEndsWithItsConnection) {
    Harness service;
    ASSERT_EQ(
        service.create("adminSession", R"({"username":"admin","password":"test-1","sessionType":"mirl"})")
            .error(),
        0);
    ASSERT_EQ(service.create("adminSession", R"({"username":"admin","password":"test-1"})").error(), 0);
    service.engine->clientGone(8);
    service.settle();
    EXPECT_EQ(service.get("adminSession").rowCount(), 2U);
    service.engine->clientGone(7);
    service.settle();
    const Answer left = service.get("adminSession");
    ASSERT_EQ(left.rowCount(), 1U);
    EXPECT_EQ(left.at("sessionType"), "");
    EXPECT_EQ(lastEvent(service), "admin logged out of the web interface");
}

TEST(Events, AreAcknowledgedAndBecomeABoundedHistory) {
    Harness service;
    ASSERT_EQ(service.set("alertsControl", R"({"alertsAction":"ack_all"})").error(), 0);
    ASSERT_EQ(service.set("alertsControl", R"({"alertsAction":"clear_history"})").error(), 0);
    EXPECT_EQ(service.get("historicalAlerts").error(), 1009);
    for (int i = 0; i < 1600; ++i)
        ASSERT_EQ(service.set("simControl", R"({"action":"alert","message":"event"})").error(), 0);
    EXPECT_EQ(service.get("unacknowledgedAlerts").rowCount(), 500U);
    EXPECT_EQ(service.get("historicalAlerts").rowCount(), 1000U);
    const int newest = service.get("unacknowledgedAlerts").number("instanceId", 499);
    EXPECT_EQ(service.get("historicalAlerts").number("instanceId", 0), newest - 1499);
    const std::string one =
        R"({"alertsAction":"ack_specific","alertInstanceId":)" + std::to_string(newest) + "}";
    EXPECT_EQ(service.set("alertsControl", one).error(), 0);
    EXPECT_EQ(service.set("alertsControl", one).error(), 7);
    EXPECT_EQ(service.set("alertsControl", R"({"alertsAction":"ack_specific"})").error(), 1007);
}

TEST(Events, FollowTheirSwitches) {
    Harness service;
    ASSERT_EQ(service.set("alertLogControl", R"({"enableAlertMirlAdminLogin":"disabled"})").error(), 0);
    const std::size_t before = service.get("unacknowledgedAlerts").rowCount();
    ASSERT_EQ(service.create("adminSession", R"({"username":"admin","password":"test-1"})").error(), 0);
    EXPECT_EQ(service.get("unacknowledgedAlerts").rowCount(), before);
    const std::size_t lines = service.log.size();
    ASSERT_EQ(service.set("eventLogControl", R"({"warning":"disabled"})").error(), 0);
    EXPECT_EQ(service.create("adminSession", R"({"username":"admin","password":"no"})").error(), 1103);
    EXPECT_EQ(service.get("unacknowledgedAlerts").rowCount(), before + 1);
    EXPECT_EQ(service.log.size(), lines);
}

} // namespace
} // namespace zeqd::testing
