// What the request operations put on the wire, row by row.
#include "platform/client/ZeqClient.h"
#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqReq.h"
#include "tests/platform/support/FakePeer.h"
#include "tests/platform/support/LogCapture.h"

#include <gtest/gtest.h>

using zeq::JsonPtr;

namespace {

class ZeqRequests : public testing::Test {
protected:
    ~ZeqRequests() override { ZeqClient_close(mClient); }

    /// Sends the request, if it is one of those to be sent by the caller, and frees request and answer.
    std::string sent(json_t* request) {
        const JsonPtr owner(request);
        const JsonPtr answer(ZeqReqUtil_submit(request, mClient));
        return lastRequest();
    }
    std::string lastRequest() const {
        const auto all = mPeer.requests();
        return all.empty() ? "nothing" : all.back();
    }
    FakePeer mPeer{R"({"rows":[]})"};
    ZeqClient_s* mClient = ZeqClient_new();
    LogCapture mLog;
};

TEST_F(ZeqRequests, TypedRetrieves) {
    const char* names = R"(["index","eid","name"])";
    const struct {
        json_t* answer;
        const char* request;
    } rows[] = {
        {ZeqReq_swxRetrieve(mClient, names),
         R"({"method":"get","resource":"swx","select":["index","eid","name"]})"},
        {ZeqReq_rxRetrieve(mClient, names),
         R"({"method":"get","resource":"rx","select":["index","eid","name"]})"},
        {ZeqReq_txRetrieve(mClient, " [\"index\"]"),
         R"({"method":"get","resource":"tx","select":["index"]})"},
        {ZeqReq_userRetrieve(mClient, "[]"), R"({"method":"get","resource":"user"})"},
        {ZeqReq_connectionRetrieve(mClient, nullptr), R"({"method":"get","resource":"connection"})"},
        {ZeqReq_userSessionRetrieve(mClient, R"(["index","index","rxIndex"])"),
         R"({"method":"get","resource":"userSession","select":["index","index","rxIndex"]})"},
        {ZeqReq_historicalAlertsRetrieve(mClient, R"("date","originatorEid")"),
         R"({"method":"get","resource":"historicalAlerts","select":["date","originatorEid"]})"},
        {ZeqReq_unacknowledgedAlertsRetrieve(mClient, R"("severity", "alertMsg")"),
         R"({"method":"get","resource":"unacknowledgedAlerts","select":["severity","alertMsg"]})"},
        {ZeqReq_edidRetrieve(mClient, nullptr), R"({"method":"get","resource":"edid"})"},
        {ZeqReq_upgradeRetrieve(mClient, ""), R"({"method":"get","resource":"upgrade"})"},
        {ZeqReq_cfgDefaultsRetrieve(mClient), R"({"method":"get","resource":"cfgDefaults"})"},
        {ZeqReq_systemGlobalsRetrieve(mClient), R"({"method":"get","resource":"systemGlobals"})"},
        {ZeqReq_connectionRetrieveByIndex(mClient, 7),
         R"({"method":"get","query":{"index":7},"resource":"connection"})"},
        {ZeqReq_edidRetrieveByIndex(mClient, 4294967295u),
         R"({"method":"get","query":{"index":4294967295},"resource":"edid"})"},
        {ZeqReq_edidRetrieveByName(mClient, "A \"4K\""),
         R"({"method":"get","query":{"name":"A \"4K\""},"resource":"edid"})"},
        {ZeqReq_portStatusRetrieveByIndex(mClient, 50),
         R"({"method":"get","query":{"index":50},"resource":"portStatus"})"},
        {ZeqReq_portStatusRetrieveBySwxIndex(mClient, 2),
         R"({"method":"get","query":{"swxIndex":2},"resource":"portStatus"})"},
        {ZeqReq_userTargetListRetrieveByIndex(mClient, 3),
         R"({"method":"get","query":{"index":3},"resource":"user","select":["index","target"]})"},
    };
    const auto requests = mPeer.requests();
    ASSERT_EQ(requests.size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(requests[i], rows[i].request);
        EXPECT_TRUE(rows[i].answer);
        ZeqReqUtil_free(rows[i].answer);
    }
}

TEST_F(ZeqRequests, SelectsThatAreNoListsOfTextsAreNotSent) {
    const std::string deep(100'000, '[');
    for (const char* select :
         {"[", "index", "{}", "[1]", "\"index", "[\"a\"] x", "\"a\"],[\"b\"", deep.c_str()}) {
        EXPECT_EQ(ZeqReq_rxRetrieve(mClient, select), nullptr) << select;
    }
    EXPECT_EQ(ZeqReq_edidRetrieveByName(mClient, nullptr), nullptr);
    EXPECT_TRUE(mPeer.requests().empty());
    EXPECT_TRUE(ZeqClient_isValid(mClient));
}

TEST_F(ZeqRequests, TypedRequests) {
    json_t* connection = ZeqReq_connectionNewCreateReq();
    ZeqReq_connectionSetRxIndex(connection, 3);
    ZeqReq_connectionSetTxIndex(connection, 4);
    ZeqReq_connectionSetMode(connection, 2);
    EXPECT_EQ(
        sent(connection),
        R"({"method":"create","params":{"mode":"private_mode","rxIndex":3,"txIndex":4},"resource":"connection"})");
    EXPECT_EQ(sent(ZeqReq_connectionNewDeleteReq(9)),
              R"({"method":"delete","params":{"index":9},"resource":"connection"})");

    json_t* login = ZeqReq_userSessionNewCreateReq();
    ZeqReq_userSessionSetUserIndex(login, 1);
    ZeqReq_userSessionSetRxIndex(login, 2);
    EXPECT_EQ(sent(login),
              R"({"method":"create","params":{"rxIndex":2,"userIndex":1},"resource":"userSession"})");

    json_t* admin = ZeqReq_adminSessionNewCreateReq();
    ZeqReq_adminSessionSetIpAddress(admin, "10.0.0.1");
    ZeqReqUtil_setStringParam(admin, "username", "admin");
    EXPECT_EQ(
        sent(admin),
        R"({"method":"create","params":{"ipAddress":"10.0.0.1","username":"admin"},"resource":"adminSession"})");
    EXPECT_EQ(sent(ZeqReq_adminSessionNewDeleteReq(1)),
              R"({"method":"delete","params":{"index":1},"resource":"adminSession"})");

    json_t* user = ZeqReq_userNewCreateReq();
    ZeqReq_userSetName(user, "N1");
    ZeqReq_userSetFullName(user, "");
    ZeqReq_userSetRole(user, 2);
    ZeqReq_userSetPassword(user, "p");
    EXPECT_EQ(sent(user),
              R"({"method":"create","params":{"fullName":"","name":"N1","password":"p","role":"admin"},)"
              R"("resource":"user"})");
    EXPECT_EQ(sent(ZeqReq_userNewDeleteReq(2)),
              R"({"method":"delete","params":{"index":2},"resource":"user"})");
    EXPECT_EQ(sent(ZeqReq_userNewUpdateReq(2)), R"({"method":"set","params":{"index":2},"resource":"user"})");
    EXPECT_EQ(sent(ZeqReq_swxNewUpdateReq(1)), R"({"method":"set","params":{"index":1},"resource":"swx"})");
    EXPECT_EQ(sent(ZeqReq_systemGlobalsNewUpdateReq()), R"({"method":"set","resource":"systemGlobals"})");
    EXPECT_EQ(sent(ZeqReq_edidNewDeleteReq(5)),
              R"({"method":"delete","params":{"index":5},"resource":"edid"})");
}

TEST_F(ZeqRequests, ANumberWithoutAWordIsLeftToTheServiceToRefuse) {
    for (const int mode : {0, 4, -1}) {
        json_t* request = ZeqReq_connectionNewCreateReq();
        ZeqReq_connectionSetMode(request, mode);
        EXPECT_EQ(sent(request), R"({"method":"create","params":{"mode":)" + std::to_string(mode) +
                                     R"(},"resource":"connection"})");
    }
}

// A list is attached while still empty and filled through its old pointer, as the favourites and targets are.
TEST_F(ZeqRequests, AttachedChildrenCanStillBeFilled) {
    json_t* request = ZeqReq_userTargetListNewUpdateReq(8);
    json_t* list = ZeqObj_newArray();
    EXPECT_EQ(ZeqReqUtil_setObjectParam(request, "target", list), 0);
    for (const unsigned tx : {5u, 2u}) {
        json_t* entry = ZeqObj_new();
        ZeqObj_setInteger(entry, "txIndex", tx);
        EXPECT_EQ(ZeqObj_arrayAppendObject(list, entry), 0);
    }
    EXPECT_EQ(sent(request), R"({"method":"set","params":{"index":8,"target":[{"txIndex":5},{"txIndex":2}]},)"
                             R"("resource":"user"})");
}

TEST_F(ZeqRequests, OneRequestForSeveralRecordsInTurn) {
    const JsonPtr request(ZeqReqUtil_newGetResource("rx"));
    ZeqObj_setSelect(request.get(), "name");
    ZeqReqUtil_setSelect(request.get(), "eid");
    for (const uint32_t index : {3u, 4294967295u}) {
        ZeqObj_setUInt32Object(request.get(), "query", "index", index);
        ZeqObj_free(ZeqClient_getResponse(mClient, request.get()));
        EXPECT_EQ(lastRequest(), R"({"method":"get","query":{"index":)" + std::to_string(index) +
                                     R"(},"resource":"rx","select":["name","eid"]})");
    }
}

TEST_F(ZeqRequests, QueriesCollectIndexes) {
    json_t* request = ZeqReqUtil_newGetResource("rx");
    const char* expected[] = {"7", "[7,8]", "[7,8,7]"};
    const JsonPtr owner(request);
    for (int i = 0; i < 3; ++i) {
        ZeqReqUtil_setIntegerQuery(request, "index", i == 1 ? 8 : 7);
        ZeqObj_free(ZeqReqUtil_submit(request, mClient));
        EXPECT_EQ(lastRequest(), std::string(R"({"method":"get","query":{"index":)") + expected[i] +
                                     R"(},"resource":"rx"})");
    }
}

TEST_F(ZeqRequests, BuiltByHand) {
    json_t* request = ZeqObj_new();
    ZeqReqUtil_setMethod(request, "SET");
    ZeqReqUtil_setResource(request, "user");
    json_t* params = ZeqObj_new();
    ZeqObj_setInt32(params, "index", -1);
    ZeqObj_setObject(request, "params", params);
    ZeqObj_setBool32(params, "flag", 2);
    ZeqObj_setBool32(params, "unset", 0);
    ZeqObj_setUInt32(params, "length", 4294967295u);
    ZeqObj_setString(params, "name", "first");
    ZeqObj_setString(params, "name", "B\xC3\xBCro");
    ZeqObj_setBinary(params, "sequence", "\x0F\xFF", 2);
    ZeqReqUtil_setBooleanParam(request, "later", 1);
    EXPECT_EQ(sent(request),
              R"({"method":"SET","params":{"flag":true,"index":-1,"later":true,"length":4294967295,)"
              "\"name\":\"B\xC3\xBCro\",\"sequence\":{\"$binary\":\"D/8=\"},\"unset\":false},"
              R"("resource":"user"})");
}

TEST(ZeqObjects, BadArgumentsAreRefusedAndFreeWhatTheyTookOver) {
    const JsonPtr object(ZeqObj_new());
    EXPECT_EQ(ZeqObj_setObject(object.get(), nullptr, ZeqObj_new()), 1);
    EXPECT_EQ(ZeqObj_setObject(nullptr, "key", ZeqObj_new()), 1);
    EXPECT_EQ(ZeqObj_arrayAppendObject(nullptr, ZeqObj_new()), 1);
    EXPECT_EQ(ZeqObj_arrayAppendObject(object.get(), ZeqObj_new()), 1);
    EXPECT_EQ(ZeqReqUtil_setObjectParam(nullptr, "key", ZeqObj_newArray()), 1);
    EXPECT_EQ(ZeqObj_setString(object.get(), "key", nullptr), 1);
    EXPECT_EQ(ZeqObj_setString(nullptr, "key", "text"), 1);
    EXPECT_EQ(ZeqObj_setBinary(object.get(), "key", nullptr, 2), 1);
    EXPECT_EQ(ZeqObj_setUInt32Object(object.get(), nullptr, "key", 1), 1);
    EXPECT_EQ(ZeqObj_setSelect(nullptr, "key"), 1);
    EXPECT_EQ(ZeqObj_setSelect(object.get(), nullptr), 1);
    EXPECT_EQ(ZeqReqUtil_setIntegerQuery(object.get(), nullptr, 1), 1);
    EXPECT_EQ(ZeqReqUtil_newGetResource(nullptr), nullptr);
    EXPECT_EQ(json_object_get(object.get(), "key"), nullptr);
}

} // namespace
