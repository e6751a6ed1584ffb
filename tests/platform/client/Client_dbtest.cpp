// The client library against the real service: every typed operation,
// and what happens when the service goes away.
#include "platform/client/Message.h"
#include "platform/client/ZeqClient.h"
#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "tests/platform/support/LogCapture.h"
#include "tests/platform/support/ZeqdProcess.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>

using zeq::JsonPtr;

namespace {

struct ClientClose {
    void operator()(ZeqClient_s* client) const { ZeqClient_close(client); }
};
using ClientPtr = std::unique_ptr<ZeqClient_s, ClientClose>;

/// What an answer's first error is; 0 for success, -1 for no answer.
int errorOf(const JsonPtr& answer) {
    if (!answer) return -1;
    return static_cast<int>(
        ZeqRspUtil_getIndexedIntegerParam(ZeqRspUtil_getObjectParam(answer.get(), "errors"), 0, "errno"));
}

JsonPtr submit(json_t* request, ZeqClient_s* client) {
    const JsonPtr owner(request);
    return JsonPtr(ZeqReqUtil_submit(request, client));
}

JsonPtr setName(ZeqClient_s* client, unsigned index, const char* name) {
    json_t* request = ZeqReqUtil_newSetResource("rx");
    ZeqReqUtil_setIntegerParam(request, "index", index);
    ZeqReqUtil_setStringParam(request, "name", name);
    return submit(request, client);
}

std::string nameOf(ZeqClient_s* client, unsigned index) {
    json_t* request = ZeqReqUtil_newGetResource("rx");
    ZeqObj_setUInt32Object(request, "query", "index", index);
    ZeqObj_setSelect(request, "name");
    const JsonPtr answer = submit(request, client);
    const char* name = ZeqRspUtil_getStringParam(answer.get(), "name");
    return name ? name : "(none)";
}

// One service for the tests that only read, or change what no other looks at.
class ClientOnDemo : public testing::Test {
protected:
    static void SetUpTestSuite() { sZeqd = std::make_unique<ZeqdProcess>(); }
    static void TearDownTestSuite() { sZeqd.reset(); }
    static std::unique_ptr<ZeqdProcess> sZeqd;
    ClientPtr mOwner{ZeqClient_new()};
    ZeqClient_s* mClient = mOwner.get();
};
std::unique_ptr<ZeqdProcess> ClientOnDemo::sZeqd;

TEST_F(ClientOnDemo, EveryTypedRetrieveIsUnderstood) {
    const char* devices =
        R"(["index","eid","name","status","upgradeStatus","usage","firmwareVersion","detailedDeviceType"])";
    const char* transmitters =
        R"(["index","eid","name","status","upgradeStatus","upgradePercent","usage","firmwareVersion","detailedDeviceType"])";
    const char* alerts = R"("date","originatorEid","severity","alertMsg")";
    const struct {
        const char* name;
        json_t* answer;
        int atLeast; ///< rows
    } rows[] = {
        {"swx", ZeqReq_swxRetrieve(mClient, devices), 2},
        {"rx", ZeqReq_rxRetrieve(mClient, devices), 10},
        {"tx", ZeqReq_txRetrieve(mClient, transmitters), 10},
        {"user", ZeqReq_userRetrieve(mClient, R"(["index","name","mgrName","fullName","role"])"), 2},
        {"user favorites", ZeqReq_userRetrieve(mClient, R"(["index","favorite"])"), 2},
        {"connection",
         ZeqReq_connectionRetrieve(mClient, R"(["rxIndex","rxEid","txEid","sessionStartTime"])"), 1},
        {"connection, all keys", ZeqReq_connectionRetrieve(mClient, nullptr), 1},
        {"userSession",
         ZeqReq_userSessionRetrieve(mClient, R"(["index","index","rxIndex","sessionStartTime"])"), 1},
        {"history", ZeqReq_historicalAlertsRetrieve(mClient, alerts), 1},
        {"alerts", ZeqReq_unacknowledgedAlertsRetrieve(mClient, alerts), 1},
        {"edid", ZeqReq_edidRetrieve(mClient, nullptr), 5},
        {"upgrade", ZeqReq_upgradeRetrieve(mClient, nullptr), 0},
        {"cfgDefaults", ZeqReq_cfgDefaultsRetrieve(mClient), 1},
        {"systemGlobals", ZeqReq_systemGlobalsRetrieve(mClient), 1},
        {"one connection", ZeqReq_connectionRetrieveByIndex(mClient, 1), 1},
        {"one edid", ZeqReq_edidRetrieveByIndex(mClient, 1), 1},
        {"port status", ZeqReq_portStatusRetrieveByIndex(mClient, 1), 1},
        {"last port status", ZeqReq_portStatusRetrieveByIndex(mClient, 50), 1},
        {"port status of a Switch", ZeqReq_portStatusRetrieveBySwxIndex(mClient, 1), 1},
        {"target list", ZeqReq_userTargetListRetrieveByIndex(mClient, 1), 1},
    };
    for (const auto& row : rows) {
        const JsonPtr answer(row.answer);
        EXPECT_EQ(errorOf(answer), 0) << row.name;
        EXPECT_GE(ZeqRspUtil_numEntries(answer.get()), row.atLeast) << row.name;
    }
}

TEST_F(ClientOnDemo, TypedGettersReadRealRecords) {
    const JsonPtr receivers(ZeqReq_rxRetrieve(mClient, R"(["index","eid","name"])"));
    const json_t* first = ZeqObj_getRow(receivers.get(), 0);
    EXPECT_EQ(ZeqRsp_rxGetIndex(first), 1u);
    EXPECT_EQ(std::strlen(ZeqRsp_rxGetEid(first)), 13u);
    EXPECT_EQ(nameOf(mClient, 1), ZeqRsp_rxGetName(first));

    const JsonPtr switches(ZeqReq_swxRetrieve(mClient, nullptr));
    EXPECT_EQ(ZeqRsp_swxGetMode(switches.get()), 1) << "Switch 1 is the master";
    EXPECT_EQ(ZeqRsp_swxGetStatus(switches.get()), 6) << "and ready";
    EXPECT_EQ(ZeqRsp_swxGetUsage(switches.get()), 1);

    const JsonPtr users(ZeqReq_userRetrieve(mClient, nullptr));
    EXPECT_STREQ(ZeqRsp_userGetName(users.get()), "admin");
    EXPECT_EQ(ZeqRsp_userGetRole(users.get()), 2);
    EXPECT_EQ(ZeqRsp_userGetAllTargetAccess(users.get()), 2);
    EXPECT_GE(ZeqRsp_userGetModeAllowed(users.get()), 1);

    const JsonPtr connections(ZeqReq_connectionRetrieve(mClient, nullptr));
    EXPECT_GT(ZeqRsp_connectionGetTxIndex(connections.get()), 0u);
    EXPECT_GT(ZeqRsp_connectionGetSessionStartTime(connections.get()), 1'000'000'000);
}

TEST_F(ClientOnDemo, CollapseOfNestedRecordsAndLists) {
    const JsonPtr request(ZeqReqUtil_newGetResource("swx"));
    for (const int index : {1, 2}) ZeqReqUtil_setIntegerQuery(request.get(), "index", index);
    for (const char* key : {"index", "network"}) ZeqReqUtil_setSelect(request.get(), key);
    const JsonPtr answer(ZeqClient_getResponse(mClient, request.get()));
    const JsonPtr network(ZeqObj_collapse(answer.get(), "index", "network"));
    const JsonPtr ipv4(ZeqObj_collapse(network.get(), "index", "ipv4"));
    ASSERT_EQ(ZeqRspUtil_numEntries(ipv4.get()), 2);
    EXPECT_EQ(ZeqRspUtil_getIndexedIntegerParam(ipv4.get(), 1, "index"), 2);
    EXPECT_TRUE(ZeqRspUtil_getIndexedStringParam(ipv4.get(), 1, "ipAddress"));

    const JsonPtr status(ZeqReq_portStatusRetrieveBySwxIndex(mClient, 1));
    const JsonPtr ports(ZeqObj_collapse(status.get(), "swxIndex", "ports"));
    ASSERT_GT(ZeqRspUtil_numEntries(ports.get()), 0);
    EXPECT_EQ(ZeqRspUtil_getIntegerParam(ports.get(), "swxIndex"), 1);
    EXPECT_TRUE(ZeqRspUtil_getStringParam(ports.get(), "portState"));
}

TEST_F(ClientOnDemo, TargetListsAndBinaryValuesSurviveAWrite) {
    json_t* update = ZeqReq_userTargetListNewUpdateReq(3);
    json_t* list = ZeqObj_newArray();
    ZeqReqUtil_setObjectParam(update, "target", list);
    for (const unsigned tx : {4u, 2u}) {
        json_t* entry = ZeqObj_new();
        ZeqObj_setInteger(entry, "txIndex", tx);
        ZeqObj_arrayAppendObject(list, entry);
    }
    EXPECT_EQ(errorOf(submit(update, mClient)), 0);
    const JsonPtr user(ZeqReq_userTargetListRetrieveByIndex(mClient, 3));
    const JsonPtr targets(ZeqObj_collapse(user.get(), "index", "target"));
    EXPECT_EQ(ZeqRspUtil_numEntries(targets.get()), 2);
    EXPECT_EQ(ZeqRspUtil_getIntegerParam(targets.get(), "index"), 3);

    const JsonPtr edid(ZeqReq_edidRetrieveByIndex(mClient, 1));
    const JsonPtr named(ZeqReq_edidRetrieveByName(mClient, ZeqRsp_edidGetName(edid.get())));
    unsigned char data[256] = {}, again[256] = {};
    EXPECT_GE(ZeqRspUtil_getBinaryParam(edid.get(), "data", data, sizeof data), 128u);
    ZeqRspUtil_getBinaryParam(named.get(), "data", again, sizeof again);
    EXPECT_EQ(std::memcmp(data, "\x00\xFF\xFF\xFF\xFF\xFF\xFF\x00", 8), 0) << "header of an EDID block";
    EXPECT_EQ(std::memcmp(data, again, sizeof data), 0);

    json_t* keys = ZeqReqUtil_newSetResource("systemGlobals");
    json_t* custom = ZeqObj_new();
    ZeqObj_setBinary(custom, "sequence", "\x29\x00", 2);
    ZeqObj_setUInt32(custom, "length", 1);
    ZeqReqUtil_setObjectParam(keys, "customKeys", custom);
    EXPECT_EQ(errorOf(submit(keys, mClient)), 0);
    const JsonPtr globals(ZeqReq_systemGlobalsRetrieve(mClient));
    const json_t* stored = ZeqRspUtil_getObjectParam(globals.get(), "customKeys");
    EXPECT_EQ(ZeqRspUtil_getBinaryParam(stored, "sequence", data, sizeof data), 2u);
    EXPECT_EQ(data[0], 0x29);
}

TEST_F(ClientOnDemo, RefusalsAreAnswersAndTheConnectionLives) {
    const struct {
        const char* name;
        json_t* request;
        int error;
    } rows[] = {
        {"no such resource", ZeqReqUtil_newGetResource("nonsense"), 1005},
        {"no such record", ZeqReq_connectionNewDeleteReq(4'000'000), 7},
        {"no method", json_pack("{s:s}", "resource", "rx"), 1002},
        {"odd method", json_pack("{s:s, s:s}", "method", "patch", "resource", "rx"), 1004},
        {"mode without a word",
         json_pack("{s:s, s:s, s:{s:i, s:i, s:i}}", "method", "create", "resource", "connection", "params",
                   "rxIndex", 4, "txIndex", 3, "mode", 9),
         9},
    };
    for (const auto& row : rows) EXPECT_EQ(errorOf(submit(row.request, mClient)), row.error) << row.name;
    EXPECT_EQ(errorOf(setName(mClient, 1, std::string(100'000, 'x').c_str())), 14);
    EXPECT_TRUE(ZeqClient_isValid(mClient));
}

// From here on every test has a service of its own, because it harms it.

TEST(ClientAndService, AnsweredWritesSurviveAStopAndAPowerCut) {
    ZeqdProcess zeqd;
    ClientPtr client(ZeqClient_new());
    EXPECT_EQ(errorOf(setName(client.get(), 3, "Before the stop")), 0);
    EXPECT_EQ(zeqd.stop(), 0);
    zeqd.start();
    client.reset(ZeqClient_new());
    EXPECT_EQ(nameOf(client.get(), 3), "Before the stop");
    EXPECT_EQ(errorOf(setName(client.get(), 3, "Before the power cut")), 0);
    EXPECT_EQ(zeqd.kill(), -SIGKILL);
    zeqd.start();
    client.reset(ZeqClient_new());
    EXPECT_EQ(nameOf(client.get(), 3), "Before the power cut");
}

TEST(ClientAndService, ASilentServiceStallsOnlyTheCallerAndOnlyForTheDeadline) {
    LogCapture log;
    ZeqdProcess zeqd;
    ::setenv("ZEQ_TIMEOUT_MS", "300", 1);
    const ClientPtr client(ZeqClient_new());
    const ClientPtr idle(ZeqClient_new());
    zeqd.freeze();
    EXPECT_EQ(nameOf(client.get(), 1), "(none)");
    EXPECT_FALSE(ZeqClient_isValid(client.get()));
    EXPECT_TRUE(ZeqClient_isValid(idle.get())) << "nothing was asked on it";
    EXPECT_EQ(ZeqClient_new(), nullptr) << "no greeting";
    zeqd.thaw();
    ::unsetenv("ZEQ_TIMEOUT_MS");
    EXPECT_NE(nameOf(idle.get(), 1), "(none)");
    EXPECT_EQ(log.messages(2).size(), 1u);
}

TEST(ClientAndService, ADeadServiceIsNoticedAtOnceAndANewClientWorksAfterwards) {
    ZeqdProcess zeqd;
    ClientPtr client(ZeqClient_new());
    const ClientPtr other(ZeqClient_new());
    ASSERT_TRUE(ZeqClient_isValid(client.get()));
    zeqd.kill();
    EXPECT_FALSE(ZeqClient_isValid(client.get()));
    EXPECT_EQ(nameOf(other.get(), 1), "(none)");
    EXPECT_EQ(ZeqClient_new(), nullptr);
    zeqd.start();
    client.reset(ZeqClient_new());
    EXPECT_TRUE(ZeqClient_isValid(client.get()));
    EXPECT_NE(nameOf(client.get(), 1), "(none)");
}

TEST(ClientAndService, AtTheLimitOfClientsOpeningFailsUntilOneCloses) {
    LogCapture log;
    ZeqdProcess zeqd({"--demo", "--clients", "2"});
    ClientPtr first(ZeqClient_new());
    const ClientPtr second(ZeqClient_new());
    ASSERT_TRUE(ZeqClient_isValid(first.get()));
    ASSERT_TRUE(ZeqClient_isValid(second.get()));
    EXPECT_EQ(ZeqClient_new(), nullptr);
    ASSERT_FALSE(log.messages(4).empty());
    EXPECT_NE(log.messages(4).back().find("limit of clients"), std::string::npos) << log.messages(4).back();
    EXPECT_NE(nameOf(second.get(), 1), "(none)") << "the others are not disturbed";
    first.reset();
    for (int i = 0; i < 200 && !first; ++i) first.reset(ZeqClient_new());
    EXPECT_TRUE(ZeqClient_isValid(first.get()));
}

} // namespace
