#include "tests/db/DbTest.h"

#include <functional>

namespace {

using DbActions = DbTest;

TEST_F(DbActions, RequestsAndTheWordsForSilence) {
    const std::string user = "u\"ser";
    const struct {
        const char* name;
        std::function<unsigned(Db::Errors&)> act;
        const char* request;
        const char* silence;
    } rows[] = {
        {"clear", [](auto& e) { return Db::db.clearAllHistoricalAlerts(e); },
         R"({"method":"set","params":{"alertsAction":"clear_history"},"resource":"alertsControl"})",
         "Cannot create request to clear Historical Alerts."},
        {"ack all", [](auto& e) { return Db::db.ackAllAlerts(e); },
         R"({"method":"set","params":{"alertsAction":"ack_all"},"resource":"alertsControl"})",
         "Cannot create request to acknowledge Alerts."},
        {"ack one", [](auto& e) { return Db::db.ackSpecificAlert(4000000000U, e); },
         R"({"method":"set","params":{"alertInstanceId":4000000000,"alertsAction":"ack_specific"},"resource":"alertsControl"})",
         "Cannot create request to acknowledge Alert."},
        {"push", [](auto& e) { return Db::db.pushEdidToTx(3, 4, e); },
         R"({"method":"set","params":{"edidAction":"push","edidIndex":4,"txIndex":3},"resource":"edidControl"})",
         "Cannot create request to push monitor properties to transmitter."},
        {"pull rx", [](auto& e) { return Db::db.pullEdidFromDevice("rx", 5, "n", "d", e); },
         R"({"method":"set","params":{"edidAction":"pull","edidDescription":"d","edidName":"n","rxIndex":5},"resource":"edidControl"})",
         "Cannot create request to retrieve monitor properties."},
        {"pull tx", [](auto& e) { return Db::db.pullEdidFromDevice("tx", 5, "", "", e); },
         R"({"method":"set","params":{"edidAction":"pull","edidDescription":"","edidName":"","txIndex":5},"resource":"edidControl"})",
         "Cannot create request to retrieve monitor properties."},
        {"flash 0", [](auto& e) { return Db::db.triggerLcdBacklightFlash("E", "rxControl", 0, e); },
         R"({"method":"set","params":{"eid":"E","lcdBacklightFlashDuration":1},"resource":"rxControl"})",
         "Cannot write integer value to database."},
        {"flash 1", [](auto& e) { return Db::db.triggerLcdBacklightFlash("E", "swxControl", 1, e); },
         R"({"method":"set","params":{"eid":"E","lcdBacklightFlashDuration":2},"resource":"swxControl"})",
         "Cannot write integer value to database."},
        {"flash 2", [](auto& e) { return Db::db.triggerLcdBacklightFlash("E", "txControl", 2, e); },
         R"({"method":"set","params":{"eid":"E","lcdBacklightFlashDuration":2},"resource":"txControl"})",
         "Cannot write integer value to database."},
        {"upgrade",
         [&](auto& e) {
             unsigned index = 0;
             const unsigned result = Db::db.createUpgradeRecord("ftp", "h", "f", user, "p", index, e);
             EXPECT_EQ(index, result == 0 ? 1U : 0U);
             return result;
         },
         R"({"method":"create","params":{"filename":"f","location":"h","password":"p","protocol":"ftp","username":"u\"ser"},"resource":"upgrade"})",
         "Cannot create upgrade record."},
    };
    for (const auto& r : rows) {
        store.forget();
        EXPECT_EQ(r.act(errors), 0U) << r.name;
        EXPECT_EQ(store.requests(), std::vector<std::string>{r.request}) << r.name;
    }
    store.hangUp();
    for (const auto& r : rows) {
        EXPECT_EQ(r.act(errors), 1U) << r.name;
        EXPECT_EQ(log.messages(1).back(), r.silence) << r.name;
    }
    EXPECT_TRUE(errors.empty());
}

TEST_F(DbActions, ARefusedDisconnectStillLogsTheUserOut) {
    store.put("connection", 7, R"("rxIndex":3,"txIndex":4,"mode":"share_mode")");
    store.put("userSession", 2, R"("rxIndex":3,"userIndex":5)");
    store.refuse("delete", "connection", 7, R"({"errno":1106})");
    EXPECT_EQ(Db::db.destroyKvmSession(7, errors), 0U);
    EXPECT_EQ(errors.size(), 1U);
    EXPECT_EQ(store.field("connection", 7, "rxIndex"), "3");
    EXPECT_EQ(store.field("userSession", 2, "rxIndex"), "") << "still logged in at the Receiver";
}

TEST_F(DbActions, AConnectionIsCreatedOnlyBehindALogin) {
    store.refuse("create", "userSession", 0, R"({"errno":1119})");
    EXPECT_NE(Db::db.createKvmSession(5, 3, 4, Info_ConnectionMode::Private, errors), 0U);
    EXPECT_EQ(store.field("connection", 1, "rxIndex"), "");
    EXPECT_EQ(errors.size(), 1U);
}

TEST_F(DbActions, ARefusedConnectionLeavesTheLogin) {
    store.refuse("create", "connection", 0, R"({"errno":1125})");
    EXPECT_EQ(Db::db.createKvmSession(5, 3, 4, Info_ConnectionMode::Share, errors), 1U);
    EXPECT_EQ(store.field("userSession", 1, "rxIndex"), "3");
}

} // namespace
