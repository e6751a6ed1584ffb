// Accounts, logins of administrators and the events that tell of them.
#include "platform/service/catalogue/Catalogue.h"
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
    ASSERT_EQ(service.set("upgrade", R"({"index":3,"username":"other","password":"********"})").error(), 0);
    EXPECT_EQ(service.engine->store().find(Res::Upgrade, 3)->text("username"), "other");
    EXPECT_EQ(service.engine->store().find(Res::Upgrade, 3)->text("password").find('*'), std::string::npos)
        << "what a read shows in its place is not the secret";
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

constexpr ClientId kHolder = 21; ///< the connection of an administrator's page
constexpr ClientId kOther = 22;
constexpr char kRead[] = R"({"method":"get","resource":"swx"})";
constexpr char kWrite[] = R"({"method":"set","resource":"swx","params":{"index":1,"name":"Mine"}})";

Answer logIn(Harness& service, ClientId client, const std::string& secret) {
    return service.ask(R"({"method":"create","resource":"adminSession","params":{"username":"second",)" +
                           secret + R"(,"sessionType":"mirl"}})",
                       client);
}

std::string addSecond(Harness& service) {
    const Answer made = service.create("user", R"({"name":"second","role":"admin","password":"pw"})");
    EXPECT_EQ(made.error(), 0) << made.text();
    return made.at("index");
}

TEST(Users, AdministratorSessionsEndWithTheRightsAtThatMoment) {
    struct {
        const char* what;
        const char* method;
        const char* params;
        ClientId by;
        const char* why; ///< null: it goes on
    } rows[] = {
        {"disabled", "set", R"("accountEnable":"disabled")", kOther, "service.detail.session_account"},
        {"demoted", "set", R"("role":"user")", kOther, "service.detail.session_account"},
        {"deleted", "delete", nullptr, kOther, "service.detail.session_account"},
        {"new password", "set", R"("password":"new")", kOther, "service.detail.session_account"},
        {"new password by itself", "set", R"("password":"new")", kHolder, nullptr},
        {"demoted by itself", "set", R"("role":"user")", kHolder, "service.detail.session_account"},
        {"another name", "set", R"("fullName":"x")", kOther, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Harness service;
        const std::string index = addSecond(service);
        ASSERT_EQ(logIn(service, kHolder, R"("password":"pw")").error(), 0);
        ASSERT_EQ(logIn(service, 23, R"("password":"pw")").error(), 0); // the same user elsewhere
        EXPECT_EQ(service.ask(kWrite, kHolder).error(), 0);
        const std::string change = std::string(R"({"method":")") + row.method +
                                   R"(","resource":"user","params":{"index":)" + index +
                                   (row.params ? std::string(",") + row.params : "") + "}}";
        ASSERT_EQ(service.ask(change, row.by).error(), 0);
        for (const char* request : {kRead, kWrite}) {
            EXPECT_EQ(service.ask(request, kHolder).error(), row.why ? 1105 : 0) << request;
            EXPECT_EQ(service.ask(request, kHolder).detail(), row.why ? row.why : "");
            EXPECT_EQ(service.ask(request, kOther).error(), 0) << "who never logged in is not concerned";
        }
        const bool password = std::string(row.what).starts_with("new password");
        EXPECT_EQ(service.ask(kRead, 23).error(), row.why || password ? 1105 : 0);
    }
}

TEST(Users, AWriteThatWaitsBehindTheEndOfItsSessionIsRefused) {
    Harness service;
    const std::string index = addSecond(service);
    ASSERT_EQ(logIn(service, kHolder, R"("password":"pw")").error(), 0);
    std::string answer;
    const std::string demote =
        R"({"id":1,"method":"set","resource":"user","params":{"role":"user","index":)" + index + "}}";
    service.engine->request(kOther, demote, [](const std::string&) {});
    service.engine->request(kHolder, std::string(R"({"id":1,)") + (kWrite + 1),
                            [&answer](std::string text) { answer = std::move(text); });
    service.settle();
    EXPECT_EQ(Answer(answer).error(), 1105);
    EXPECT_NE(service.value("swx", 1, "name"), "Mine");
}

TEST(Users, OneOfTwoSessionsEndsAlone) {
    Harness service;
    addSecond(service);
    const Answer first = logIn(service, kHolder, R"("password":"pw")");
    ASSERT_EQ(logIn(service, kOther, R"("password":"pw")").error(), 0);
    ASSERT_EQ(service.remove("adminSession", first.number("index")).error(), 0);
    EXPECT_EQ(service.ask(kRead, kHolder).detail(), "service.detail.session_ended");
    EXPECT_EQ(service.ask(kRead, kOther).error(), 0);
    EXPECT_EQ(logIn(service, kHolder, R"("password":"no")").error(), 1103);
    EXPECT_EQ(service.ask(kRead, kHolder).error(), 1105) << "a failed login opens nothing";
    EXPECT_EQ(logIn(service, kHolder, R"("password":"pw")").error(), 0);
    EXPECT_EQ(service.ask(kRead, kHolder).error(), 0);
}

TEST(Users, ASessionIsMadeAgainAfterARestartWhileTheAccountAllowsIt) {
    struct {
        const char* what;
        const char* change;
        int error;
    } rows[] = {{"nothing", R"("fullName":"x")", 0},
                {"disabled", R"("accountEnable":"disabled")", 1104},
                {"demoted", R"("role":"user")", 1105},
                {"new password", R"("password":"pw")", 1103}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Harness service;
        const std::string index = addSecond(service);
        const std::string key = logIn(service, kHolder, R"("password":"pw")").at("resumeKey");
        ASSERT_EQ(key.size(), 64u);
        service.restart();
        ASSERT_EQ(service.set("user", "{\"index\":" + index + "," + row.change + "}").error(), 0);
        std::string wrong = key;
        wrong[63] = wrong[63] == '0' ? '1' : '0';
        EXPECT_EQ(logIn(service, kHolder, R"("resumeKey":")" + wrong + '"').error(), 1103);
        EXPECT_EQ(logIn(service, kHolder, R"("resumeKey":"")").error(), 1103);
        EXPECT_EQ(service
                      .create("adminSession",
                              R"({"username":"admin","sessionType":"mirl","resumeKey":")" + key + "\"}")
                      .error(),
                  1103);
        EXPECT_EQ(logIn(service, kHolder, R"("resumeKey":")" + key + '"').error(), row.error);
        EXPECT_EQ(service.get("adminSession").text().find(key), std::string::npos);
    }
    Harness service; // who has no password yet has no such key
    const Answer blank =
        service.create("adminSession", R"({"username":"supervisor","password":"","sessionType":"mirl"})");
    EXPECT_EQ(blank.error(), 0);
    EXPECT_EQ(blank.at("resumeKey"), "(absent)");
}

TEST(Users, TheFirstLoginIsForWhoeverIsAtTheMachine) {
    struct {
        const char* address;
        int error;
    } rows[] = {{"127.0.0.1", 0},        {"127.8.8.8", 0},     {"::1", 0},
                {"::ffff:127.0.0.1", 0}, {"192.0.2.1", 1105},  {"::ffff:192.0.2.1", 1105},
                {"2001:db8::1", 1105},   {"1127.0.0.1", 1105}, {"::127.0.0.1", 1105}};
    for (const auto installation : {Harness::Installation::Factory, Harness::Installation::Demo}) {
        Harness service(installation);
        const bool factory = installation == Harness::Installation::Factory;
        const std::string name = factory ? "admin" : "supervisor";
        const auto from = [&](const char* address, const std::string& password) {
            return service
                .create("adminSession", R"({"username":")" + name + R"(","password":")" + password +
                                            R"(","ipAddress":")" + address + "\"}")
                .error();
        };
        for (const auto& row : rows) EXPECT_EQ(from(row.address, ""), row.error) << row.address;
        ASSERT_EQ(service
                      .set("user", factory ? R"({"index":1,"password":"First1"})"
                                           : R"({"index":2,"password":"First1"})")
                      .error(),
                  0);
        EXPECT_EQ(from("192.0.2.1", "First1"), 0);
    }
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

TEST(Users, APasswordThatCannotBeHashedIsRefusedAndNotStoredBlank) {
    Harness service;
    service.hash = [](std::string_view) { return std::string(); };
    const std::string before = dump(service.engine->store());
    EXPECT_EQ(service.set("user", R"({"index":3,"allowBlankPassword":"enabled","password":"new"})").error(),
              1);
    EXPECT_EQ(service.create("user", R"({"name":"x","role":"user","password":"new"})").error(), 1);
    EXPECT_EQ(service.set("systemGlobals/rapParameters", R"({"sshPassword":"new"})").error(), 1);
    EXPECT_EQ(dump(service.engine->store()), before);
}

TEST(Users, TheLeaveForABlankPasswordGoesWithAPassword) {
    Harness service;
    const std::string index =
        service.create("user", R"({"name":"x","role":"admin","allowBlankPassword":"enabled"})").at("index");
    const std::string begin = "{\"index\":" + index + R"(,"allowBlankPassword":"disabled")";
    EXPECT_EQ(service.set("user", begin + "}").detail(), "service.detail.password");
    EXPECT_EQ(service.value("user", std::stoi(index), "allowBlankPassword"), "enabled");
    EXPECT_EQ(service.set("user", begin + R"(,"password":"pw"})").error(), 0);
    ASSERT_EQ(service.set("user", "{\"index\":" + index + R"(,"allowBlankPassword":"enabled"})").error(), 0);
    EXPECT_EQ(service.set("user", begin + "}").error(), 0) << "it has one";
}

TEST(Users, WhatWasTypedForANameStandsInNoEvent) {
    Harness service;
    for (const char* name : {"MyPassword1", "admin"}) {
        const std::string login =
            R"({"username":")" + std::string(name) + R"(","password":"no","ipAddress":"10.0.0.9"})";
        ASSERT_EQ(service.create("adminSession", login).error(), 1103);
    }
    const std::string events = service.get("unacknowledgedAlerts").text();
    EXPECT_EQ(events.find("MyPassword1"), std::string::npos);
    EXPECT_NE(events.find("Login of \\\"admin\\\" to the web interface failed, from 10.0.0.9"),
              std::string::npos)
        << events;
    EXPECT_NE(events.find("Login under an unknown name to the web interface failed, from 10.0.0.9"),
              std::string::npos);
    for (const std::string& line : service.log)
        EXPECT_EQ(line.find("MyPassword1"), std::string::npos) << line;
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

TEST(Events, OfEveryKindAreRaisedByTheirSwitchAndNotWhileItIsOff) {
    Harness service;
    int raised = service.get("unacknowledgedAlerts").rowCount();
    const auto& kinds = zeqd::resource(Res::AlertLogControl).keys;
    EXPECT_EQ(kinds.size(), 42U);
    for (const KeyRow& kind : kinds) {
        const std::string key(kind.key);
        const std::string raise = R"({"action":"alert","key":")" + key + "\"}";
        EXPECT_EQ(service.set("simControl", raise).error(), 0) << key;
        EXPECT_EQ(static_cast<int>(service.get("unacknowledgedAlerts").rowCount()), ++raised) << key;
        EXPECT_EQ(lastEvent(service).substr(1), std::string(kind.help.substr(1)));
        service.set("alertLogControl", "{\"" + key + R"(":"disabled"})");
        EXPECT_EQ(service.set("simControl", raise).error(), 0);
        EXPECT_EQ(static_cast<int>(service.get("unacknowledgedAlerts").rowCount()), raised) << key;
    }
    EXPECT_NE(service.set("simControl", R"({"action":"alert","key":"enableAlertNothing"})").error(), 0);
    EXPECT_NE(service.set("simControl", R"({"action":"alert"})").error(), 0);
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

TEST(Users, AProvisionalAccountGoesWithItsConnectionUnlessItWasSaved) {
    constexpr ClientId kMine = 7; // of create() and set()
    for (const bool restarted : {false, true}) {
        Harness service;
        const int before = service.get("user").rowCount();
        for (const char* name : {"N1", "N2"})
            ASSERT_EQ(service
                          .create("user",
                                  std::string(
                                      R"({"role":"user","password":"pw","provisional":"enabled","name":")") +
                                      name + "\"}")
                          .error(),
                      0);
        ASSERT_EQ(service.create("user", R"({"name":"whole","role":"user","password":"pw"})").error(), 0);
        const std::uint32_t saved =
            service.engine->store()
                .findIf(Res::User, [](const Record& user) { return user.text("name") == "N2"; })
                ->index();
        ASSERT_EQ(service.set("user", R"({"name":"desk","index":)" + std::to_string(saved) + "}").error(), 0);
        service.engine->clientGone(kMine + 1);
        service.settle();
        ASSERT_EQ(service.get("user").rowCount(), before + 3) << "not with another connection";
        if (restarted)
            service.restart();
        else
            service.engine->clientGone(kMine);
        service.settle();
        EXPECT_EQ(service.get("user").rowCount(), before + 2) << restarted;
        EXPECT_EQ(service.value("user", saved, "name"), "desk");
        EXPECT_EQ(service.value("user", saved, "provisional"), "disabled");
    }
}

} // namespace
} // namespace zeqd::testing
