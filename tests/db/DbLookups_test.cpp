#include "tests/db/DbTest.h"

#include "db/DeviceState.h"
#include "db/HeldRecords.h"
#include "db/MirlUtil.h"

#include <Wt/WString>

#include <ctime>

namespace {

// Receiver 3 is in use by user 5 on Transmitter 4, since an hour.
class DbLookups : public DbTest {
protected:
    DbLookups() {
        const std::string start = R"("sessionStartTime":)" + std::to_string(std::time(nullptr) - 3600);
        store.put(
            "rx", 3,
            R"("name":"Desk 3","eid":"RXEID0-000003","status":"ready","upgradeStatus":"idle","usage":"usable")");
        store.put(
            "rx", 8,
            R"("name":"","eid":"RXEID0-000008","status":"ready","upgradeStatus":"upgrading","usage":"usable")");
        store.put(
            "tx", 4,
            R"("name":"CAD 4","eid":"TXEID0-000004","status":"ready","upgradeStatus":"idle","usage":"usable")");
        store.put(
            "user", 5,
            R"("name":"anna","mgrName":"mgr","allTargetAccess":"disabled","role":"admin","modeAllowed":"share_mode")");
        store.put("user", 6, R"("name":"","mgrName":"from manager","allTargetAccess":"enabled")");
        store.put("userSession", 2, R"("rxIndex":3,"userIndex":5,)" + start);
        store.put("connection", 7, R"("rxIndex":3,"txIndex":4,"mode":"private_mode",)" + start);
    }

    static std::string tr(const char* key) { return Wt::WString::tr(key).toUTF8(); }
    std::string text = "preset";
};

TEST_F(DbLookups, StatusOfOneDevice) {
    EXPECT_EQ(Db::db.getRxOverallStatus(3, text, errors), 0U);
    EXPECT_EQ(text, tr("[RSnnn]In use"));
    EXPECT_EQ(Db::db.getRxOverallStatus(8, text, errors), 0U);
    EXPECT_EQ(text, tr("[RSnnn]Updating firmware") + " (0%)") << "the percent is known to the list alone";
    EXPECT_EQ(Db::db.getTxOverallStatus(4, text, errors), 0U);
    EXPECT_EQ(text, tr("[RSnnn]In use (private)"));
    store.put("connection", 7, R"("rxIndex":3,"txIndex":4,"mode":"odd")");
    EXPECT_EQ(Db::db.getTxOverallStatus(4, text, errors), 0U);
    EXPECT_EQ(text, tr("[RSnnn]In use"));
    EXPECT_TRUE(errors.empty());
    EXPECT_EQ(Db::db.getRxOverallStatus(99, text, errors), 1U);
    EXPECT_EQ(text, tr("[RSnnn]Unknown"));
    EXPECT_EQ(errors.size(), 1U) << "the first failure ends it";
}

TEST_F(DbLookups, SessionsOfADevice) {
    EXPECT_EQ(Db::db.getSessionModeFromRxIndex(3, text, errors), 0U);
    EXPECT_EQ(text, tr("[RSnnn]Private only"));
    EXPECT_EQ(Db::db.getSessionDurationFromTxIndex(4, text, errors), 0U);
    EXPECT_EQ(text.substr(0, 5), "1:00:") << text;
    EXPECT_EQ(Db::db.getLoginDurationFromRxIndex(3, text, errors), 0U);
    EXPECT_EQ(text.substr(0, 5), "1:00:") << text;
    text = "preset";
    EXPECT_EQ(Db::db.getSessionDurationFromRxIndex(8, text, errors), 1U);
    EXPECT_EQ(Db::db.getSessionModeFromTxIndex(8, text, errors), 1U);
    store.put("connection", 7, R"("rxIndex":3,"txIndex":4,"mode":"odd","sessionStartTime":4294967295)");
    EXPECT_EQ(Db::db.getSessionModeFromTxIndex(4, text, errors), 0U);
    EXPECT_EQ(text, "preset");
    EXPECT_EQ(Db::db.getSessionDurationFromTxIndex(4, text, errors), 0U);
    EXPECT_EQ(text, "0:00") << "a start that lies ahead";
    EXPECT_TRUE(errors.empty());
}

TEST_F(DbLookups, NamesAndWhatStandsInForThem) {
    EXPECT_EQ(Db::db.getRxNameOrEidFromRxIndex(3, text, errors), 0U);
    EXPECT_EQ(text, "Desk 3");
    EXPECT_EQ(Db::db.getRxNameOrEidFromRxIndex(8, text, errors), 0U);
    EXPECT_EQ(text, "EID - RXEID0-000008");
    text = "preset";
    EXPECT_EQ(Db::db.getTxNameOrEidFromTxIndex(99, text, errors), 1U);
    EXPECT_EQ(text, "preset");
    EXPECT_EQ(Db::db.getTxNameOrEidFromUsrSesIndex(2, text, errors), 0U);
    EXPECT_EQ(text, "CAD 4");
    EXPECT_EQ(Db::db.getConnectedUsernameFromTxIndex(4, text, errors), 0U);
    EXPECT_EQ(text, "anna");
    store.put("userSession", 2, R"("rxIndex":3,"userIndex":6)");
    EXPECT_EQ(Db::db.getLoggedInUsernameFromRxIndex(3, text, errors), 0U);
    EXPECT_EQ(text, "from manager");
    EXPECT_EQ(Db::db.getLoggedInUsernameFromRxIndex(8, text, errors), 1U);
    EXPECT_EQ(Db::db.getKeyboardLayoutFromRxIndex(99, text, errors), 0U);
    EXPECT_EQ(text, "unknown");
}

TEST_F(DbLookups, RightsOfAUser) {
    store.put("user", 5,
              R"("allTargetAccess":"disabled","role":"admin","target":[{"txIndex":9},{"txIndex":4}])");
    bool allowed = false;
    EXPECT_EQ(Db::db.getUserTxAccessRight(5, 4, allowed, errors), 0U);
    EXPECT_TRUE(allowed);
    EXPECT_EQ(Db::db.getUserTxAccessRight(5, 5, allowed, errors), 0U);
    EXPECT_FALSE(allowed);
    store.forget();
    EXPECT_EQ(Db::db.getUserTxAccessRight(6, 4711, allowed, errors), 0U);
    EXPECT_TRUE(allowed);
    EXPECT_EQ(store.requests().size(), 1U) << "the target list is not asked for";
    allowed = true;
    EXPECT_EQ(Db::db.getUserTxAccessRight(99, 4, allowed, errors), 1U);
    EXPECT_FALSE(allowed);
    EXPECT_EQ(Db::db.getUserRoleFromUserIndex(5, text, errors), 0U);
    EXPECT_EQ(text, tr("[RSnnn]Admin"));
    errors.clear();
    EXPECT_TRUE(Db::db.userIsLoggedInToRx(5, errors));
    EXPECT_FALSE(Db::db.userIsLoggedInToRx(6, errors));
    EXPECT_FALSE(Db::db.userIsLoggedInToMirl(5, errors));
    EXPECT_TRUE(errors.empty());
}

TEST_F(DbLookups, PortOfADevice) {
    for (unsigned i = 1; i <= 50; ++i) store.put("portStatus", i, R"("swxIndex":0,"ports":[])");
    store.put("portStatus", 2,
              R"("swxIndex":12,"ports":[{"portIndex":1,"eid":""},{"portIndex":17,"eid":"RXEID0-000003"}])");
    unsigned swx = 0;
    unsigned port = 0;
    EXPECT_EQ(Db::db.getSwxIndexAndPortIndexFromRxIndex(3, swx, port, errors), 0U);
    EXPECT_EQ(swx, 12U);
    EXPECT_EQ(port, 17U);
    store.forget();
    EXPECT_EQ(Db::db.getSwxIndexAndPortIndexFromTxIndex(4, swx, port, errors), 0U) << "on no port";
    EXPECT_EQ(swx, 12U);
    EXPECT_EQ(port, 17U);
    EXPECT_EQ(store.requests().size(), 51U);
    EXPECT_EQ(Db::db.getSwxIndexAndPortIndexFromRxIndex(99, swx, port, errors), 1U);

    store.put("swx", 12, R"("name":"","eid":"SWXEID-000012")");
    EXPECT_EQ(Db::db.getSwxNameOrEidFromRxIndex(3, text, errors), 0U);
    EXPECT_EQ(text, "EID - SWXEID-000012");
    EXPECT_EQ(Db::db.getSwxNameOrEidFromTxIndex(4, text, errors), 0U);
    EXPECT_EQ(text, "") << "on no port, and so at no Switch";
    text = "preset";
    EXPECT_EQ(Db::db.getSwxNameFromTxIndex(4, text, errors), 0U);
    EXPECT_EQ(text, "");

    HeldRecords held;
    const HeldRecords::Use use(held);
    store.forget();
    const struct {
        unsigned rx, tx, requests; // one device, and the requests made until it was found, or not
    } rows[] = {{3, 0, 3}, {3, 0, 3}, {0, 4, 52}, {0, 4, 52}, {3, 0, 52}};
    for (const auto& row : rows) {
        swx = port = 0;
        EXPECT_EQ(row.rx ? Db::db.getSwxIndexAndPortIndexFromRxIndex(row.rx, swx, port, errors)
                         : Db::db.getSwxIndexAndPortIndexFromTxIndex(row.tx, swx, port, errors),
                  0U);
        EXPECT_EQ(swx, row.rx ? 12U : 0U);
        EXPECT_EQ(port, row.rx ? 17U : 0U);
        EXPECT_EQ(store.requests().size(), row.requests);
    }
}

TEST_F(DbLookups, AnIndexOfZeroNamesNoRecord) {
    // Each would be answered with the first record of its table, or with a record that refers to none.
    store.put("userSession", 1, R"("userIndex":0)");
    store.put("connection", 1, R"("mode":"share_mode")");
    using TextOf = unsigned (Db::*)(unsigned, std::string&, Db::Errors&);
    const TextOf texts[] = {&Db::getUsernameFromUserIndex,
                            &Db::getUserFullNameFromUserIndex,
                            &Db::getAllowedAccessModeFromUserIndex,
                            &Db::getTxEidFromTxIndex,
                            &Db::getTxNameFromTxIndex,
                            &Db::getRxNameFromRxIndex,
                            &Db::getSwxEidFromSwxIndex,
                            &Db::getRxNameOrEidFromRxIndex,
                            &Db::getTxNameOrEidFromTxIndex,
                            &Db::getSwxNameOrEidFromSwxIndex,
                            &Db::getTxNameOrEidFromUsrSesIndex,
                            &Db::getLoggedInUsernameFromRxIndex,
                            &Db::getConnectedUsernameFromTxIndex,
                            &Db::getSwxNameOrEidFromRxIndex,
                            &Db::getSwxNameFromTxIndex,
                            &Db::getSessionModeFromRxIndex,
                            &Db::getSessionDurationFromTxIndex,
                            &Db::getLoginDurationFromRxIndex};
    for (const TextOf& textOf : texts) {
        text = "preset";
        EXPECT_EQ((Db::db.*textOf)(0, text, errors), 1U) << &textOf - texts;
        EXPECT_EQ(text, "preset") << &textOf - texts;
    }
    unsigned swx = 7;
    unsigned port = 7;
    EXPECT_EQ(Db::db.getSwxIndexAndPortIndexFromRxIndex(0, swx, port, errors), 1U);
    EXPECT_EQ(Db::db.getKeyboardLayoutFromRxIndex(0, text, errors), 0U);
    EXPECT_EQ(text, "unknown");
    EXPECT_FALSE(Db::db.userIsLoggedInToRx(0, errors));
    EXPECT_FALSE(readRxState(0) || readTxState(0) || readSwxState(0));
    EXPECT_EQ(store.requests(), std::vector<std::string>()) << "nothing is asked";
    EXPECT_EQ(swx + port, 14U);
    EXPECT_TRUE(errors.empty());
    store.put("userSession", 2, R"("rxIndex":3,"userIndex":0)");
    EXPECT_EQ(Db::db.getLoggedInUsernameFromRxIndex(3, text, errors), 1U) << "nobody, not the first user";
}

TEST_F(DbLookups, StateOfADevice) {
    const auto rx = readRxState(3);
    ASSERT_TRUE(rx);
    EXPECT_TRUE(rx->ready() && !rx->offline() && rx->loggedIn);
    EXPECT_EQ(rx->usage, Info_DeviceUsage::Usable);
    store.put("rx", 8, R"("status":"offline","upgradeStatus":"failed","usage":"not_usable_swx_capacity")");
    const auto other = readRxState(8);
    ASSERT_TRUE(other);
    EXPECT_TRUE(!other->ready() && other->offline() && !other->loggedIn);
    EXPECT_EQ(other->upgrade, Info_DeviceUpgradeStatus::Failed);
    EXPECT_EQ(other->usage, Info_DeviceUsage::NotUsableSwxCapacity);
    const auto tx = readTxState(4);
    ASSERT_TRUE(tx);
    EXPECT_TRUE(tx->ready() && tx->connected);
    EXPECT_EQ(tx->mode, Info_ConnectionMode::Private);
    const struct {
        const char* status;
        bool ready, offline, conflict;
    } rows[] = {{"ready", true, false, false},
                {"offline", false, true, false},
                {"conflict_is_master", false, false, true},
                {"conflict_other_master", false, false, true},
                {"isc_failure", false, false, false}};
    for (const auto& row : rows) {
        store.put("swx", 2,
                  R"("upgradeStatus":"idle","usage":"usable","status":")" + std::string(row.status) + "\"");
        const auto swx = readSwxState(2);
        ASSERT_TRUE(swx) << row.status;
        EXPECT_EQ(swx->ready(), row.ready) << row.status;
        EXPECT_EQ(swx->offline(), row.offline) << row.status;
        EXPECT_EQ(swx->inConflict(), row.conflict) << row.status;
    }
    EXPECT_FALSE(readSwxState(99, errors));
    EXPECT_EQ(errors.size(), 1U);
}

TEST_F(DbLookups, ValuesOfAMonitor) {
    // The header, "BWV", 0xCA28, digital; the rest is zero.
    store.put("edid", 6, R"("name":"mon","data":{"$binary":"AP///////wAK9ijKAAAAAAAAAACA"})");
    std::string manufacturer;
    std::string product;
    EXPECT_EQ(Db::db.getEdidInfo(6, manufacturer, product, text, errors), 0U);
    EXPECT_EQ(manufacturer + " " + product + " " + text, "BWV CA28 [RSnnn]DVI");
    EXPECT_EQ(Db::db.getEdidInfo(99, manufacturer, product, text, errors), 1U);
    EXPECT_EQ(errors.size(), 1U);
}

TEST_F(DbLookups, RoleOfThisSwitch) {
    EXPECT_TRUE(Db::db.thisSwxIsMaster());
    EXPECT_TRUE(Db::db.thisSwxIsCascadeController());
    EXPECT_FALSE(Db::db.thisSwxIsBackupCascadeController());
    EXPECT_FALSE(Db::db.thisSwxIsManaged());
    store.put("systemGlobals", 0, R"("managedSetting":"enrolling")");
    EXPECT_TRUE(Db::db.thisSwxIsManaged());
    store.put("swx", 2, R"("mode":"slave")");
    const struct {
        Db::Indexes indexes;
        bool slave;
    } rows[] = {{{}, true},      {{1}, false},  {{2}, true},     {{1, 2}, true},
                {{1, 1}, false}, {{99}, false}, {{1, 99}, false}};
    for (const auto& r : rows)
        EXPECT_EQ(Db::db.slaveSwxIsInSet(r.indexes, errors), r.slave) << testing::PrintToString(r.indexes);
    store.hangUp();
    EXPECT_FALSE(Db::db.thisSwxIsMaster());
    EXPECT_FALSE(Db::db.thisSwxIsManaged());
    EXPECT_EQ(log.messages(1).back(), "Unable to read Managed setting.");
}

TEST_F(DbLookups, NewsIsToldOnceToEachReader) {
    store.put("changeStatus", 7, R"("lastChange":41)");
    unsigned mine = 0;
    unsigned yours = 0;
    EXPECT_TRUE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Receivers, mine));
    EXPECT_EQ(mine, 41U);
    EXPECT_FALSE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Receivers, mine));
    EXPECT_TRUE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Receivers, yours));
    store.put("changeStatus", 7, R"("lastChange":40)");
    EXPECT_FALSE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Receivers, mine)) << "never backwards";
    EXPECT_EQ(mine, 41U);
    store.hangUp();
    EXPECT_TRUE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Receivers, mine)) << "unknown counts as changed";
    EXPECT_EQ(mine, 41U);
}

} // namespace
