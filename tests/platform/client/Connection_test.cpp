// The client against peers that misbehave: what it says, and that it never crashes,
// hangs or mixes answers up.
#include "platform/client/Connection.h"
#include "platform/client/ZeqClient.h"
#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "tests/platform/support/FakePeer.h"
#include "tests/platform/support/LogCapture.h"

#include <cstdlib>
#include <gtest/gtest.h>

using zeq::JsonPtr;
using namespace std::chrono_literals;

namespace {

struct ClientClose {
    void operator()(ZeqClient_s* client) const { ZeqClient_close(client); }
};
using ClientPtr = std::unique_ptr<ZeqClient_s, ClientClose>;

JsonPtr getRx() {
    return JsonPtr(ZeqReqUtil_newGetResource("rx"));
}

class ZeqClient : public testing::Test {
protected:
    void SetUp() override { ::setenv("ZEQ_TIMEOUT_MS", "200", 1); }
    void TearDown() override { ::unsetenv("ZEQ_TIMEOUT_MS"); }
    LogCapture mLog;
};

TEST_F(ZeqClient, MalformedAnswersEndTheConnectionAndSayWhy) {
    const auto raw = [](std::string bytes) {
        return [=](const json_t*) { return FakePeer::Reply{bytes, false}; };
    };
    const auto cut = [](std::string bytes) {
        return [=](const json_t*) { return FakePeer::Reply{bytes, true}; };
    };
    const auto payload = [](std::string text) {
        return [=](const json_t*) { return FakePeer::frame(text); };
    };
    const auto answer = [](std::string members) {
        return [=](const json_t* request) { return FakePeer::answer(request, members); };
    };
    const std::string deep = std::string(40, '[') + std::string(40, ']');
    const struct {
        const char* name;
        FakePeer::Handler handler;
        const char* reason;
    } rows[] = {
        {"silent", [](const json_t*) { return FakePeer::silence(); }, "no answer within 200 ms"},
        {"closes", [](const json_t*) { return FakePeer::hangUp(); }, "the service closed it"},
        {"closes in the header", cut(std::string("\0\0", 2)), "in the middle of an answer"},
        {"closes in the payload", cut(std::string("\0\0\0\x20{\"id\"", 9)), "in the middle of an answer"},
        {"stops in the payload", raw(std::string("\0\0\0\x20{\"id\"", 9)), "no answer within"},
        {"length 0", raw(std::string("\0\0\0\0", 4)), "impossible length"},
        {"length 64 MiB + 1", raw(std::string("\x04\0\0\x01", 4)), "impossible length"},
        {"length 4 GiB - 1", raw("\xff\xff\xff\xff"), "impossible length"},
        {"not JSON", payload("hello"), "not JSON"},
        {"NUL in a text", payload(R"({"id":2,"rows":[{"a":"\u0000"}]})"), "not JSON"},
        {"broken UTF-8", payload("{\"id\":2,\"rows\":[{\"a\":\"\xff\"}]}"), "not JSON"},
        {"doubled key", payload(R"({"id":2,"rows":[],"rows":[]})"), "not JSON"},
        {"array", payload("[]"), "not an object"},
        {"too deep", payload(R"({"id":2,"rows":[{"a":)" + deep + "}]}"), "nested too deep"},
        {"recursion bomb", payload(std::string(1'000'000, '[')), "nested too deep"},
        {"no id", payload(R"({"rows":[]})"), "without id"},
        {"another id", payload(R"({"id":1,"rows":[]})"), "another request"},
        {"at its limit", payload(R"({"id":0,"errors":[{"errno":8}]})"), "limit of clients"},
        {"neither rows nor errors", answer("{}"), "neither or both"},
        {"both", answer(R"({"rows":[],"errors":[{"errno":1}]})"), "neither or both"},
        {"rows not an array", answer(R"({"rows":{}})"), "not an array of objects"},
        {"row not an object", answer(R"({"rows":[{},3]})"), "not an array of objects"},
        {"no error in errors", answer(R"({"errors":[]})"), "not an array of objects"},
        {"error not an object", answer(R"({"errors":[7]})"), "not an array of objects"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FakePeer peer(row.handler);
        const ClientPtr client(ZeqClient_new());
        ASSERT_TRUE(ZeqClient_isValid(client.get()));
        const std::size_t before = mLog.messages(2).size();
        const JsonPtr request = getRx();
        EXPECT_EQ(ZeqClient_getResponse(client.get(), request.get()), nullptr);
        EXPECT_FALSE(ZeqClient_isValid(client.get()));
        EXPECT_EQ(ZeqClient_getResponse(client.get(), request.get()), nullptr) << "a dead client stays dead";
        ASSERT_EQ(mLog.messages(2).size(), before + 1) << "logged once";
        EXPECT_NE(mLog.messages(2).back().find(row.reason), std::string::npos) << mLog.messages(2).back();
    }
}

TEST_F(ZeqClient, AnAnswerWithMoreBehindItIsTheLastOne) {
    FakePeer peer([](const json_t* request) {
        FakePeer::Reply reply = FakePeer::answer(request, R"({"rows":[{"index":1}]})");
        reply.bytes += "x";
        return reply;
    });
    const ClientPtr client(ZeqClient_new());
    const JsonPtr request = getRx();
    const JsonPtr answer(ZeqClient_getResponse(client.get(), request.get()));
    EXPECT_EQ(ZeqRspUtil_getIntegerParam(answer.get(), "index"), 1);
    EXPECT_FALSE(ZeqClient_isValid(client.get()));
}

TEST_F(ZeqClient, OpeningFailsWithoutAHandle) {
    const auto greeting = [](std::string members) {
        return [=](const json_t* request) { return FakePeer::answer(request, members); };
    };
    const struct {
        const char* name;
        FakePeer::Handler handler;
        const char* reason;
    } rows[] = {
        {"full",
         [](const json_t*) {
             FakePeer::Reply full = FakePeer::frame(R"({"id":0,"errors":[{"errno":8}]})");
             full.close = true;
             return full;
         },
         "limit of clients"},
        {"silent", [](const json_t*) { return FakePeer::silence(); }, "no answer"},
        {"refuses", greeting(R"({"errors":[{"errno":1005}]})"), "version"},
        {"newer", greeting(R"({"rows":[{"protocol":2}]})"), "version"},
        {"empty", greeting(R"({"rows":[]})"), "version"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FakePeer peer(row.handler, false);
        std::string why;
        EXPECT_EQ(zeq::Connection::open(peer.socketPath(), 200ms, why), nullptr);
        EXPECT_NE(why.find(row.reason), std::string::npos) << why;
        EXPECT_EQ(ZeqClient_new(), nullptr);
    }
    std::string why;
    EXPECT_EQ(zeq::Connection::open("/nonexistent/zeq.sock", 200ms, why), nullptr);
    EXPECT_NE(why.find("No such file"), std::string::npos) << why;
    EXPECT_EQ(zeq::Connection::open(std::string(200, 'x'), 200ms, why), nullptr);
    EXPECT_EQ(why, "socket path is too long");
}

TEST_F(ZeqClient, NoticesAServiceThatWentAwayWhileIdleAndReconnects) {
    FakePeer peer(R"({"rows":[{"name":"Desk"}]})");
    ClientPtr client(ZeqClient_new());
    ASSERT_TRUE(ZeqClient_isValid(client.get()));
    peer.dropConnections();
    for (int i = 0; i < 1000 && ZeqClient_isValid(client.get()); ++i) std::this_thread::sleep_for(1ms);
    EXPECT_FALSE(ZeqClient_isValid(client.get()));
    client.reset(ZeqClient_new());
    const JsonPtr request = getRx();
    const JsonPtr answer(ZeqClient_getResponse(client.get(), request.get()));
    EXPECT_STREQ(ZeqRspUtil_getStringParam(answer.get(), "name"), "Desk");
}

TEST_F(ZeqClient, WritingToAServiceThatClosedNeitherRaisesASignalNorHangs) {
    FakePeer peer(R"({"rows":[]})");
    const ClientPtr client(ZeqClient_new());
    peer.dropConnections();
    const JsonPtr request(ZeqReqUtil_newSetResource("rx"));
    ZeqReqUtil_setStringParam(request.get(), "notes", std::string(900'000, 'x').c_str());
    EXPECT_EQ(ZeqClient_getResponse(client.get(), request.get()), nullptr);
    EXPECT_FALSE(ZeqClient_isValid(client.get()));
}

TEST_F(ZeqClient, ARequestThatCannotBeSentLeavesTheConnectionUsable) {
    FakePeer peer(R"({"rows":[{"index":5}]})");
    const ClientPtr client(ZeqClient_new());
    const auto expectUnsent = [&](json_t* request) {
        const JsonPtr owner(request);
        EXPECT_EQ(ZeqClient_getResponse(client.get(), request), nullptr);
    };
    json_t* large = ZeqReqUtil_newSetResource("rx");
    ZeqReqUtil_setStringParam(large, "notes", std::string(zeq::kRequestMaxBytes, 'x').c_str());
    expectUnsent(large);
    json_t* broken = ZeqReqUtil_newSetResource("rx");
    ZeqReqUtil_setStringParam(broken, "name", "\xff");
    expectUnsent(broken);
    json_t* deep = ZeqObj_new();
    for (int i = 0; i < zeq::kJsonMaxDepth; ++i) {
        json_t* outer = ZeqObj_new();
        ZeqObj_setObject(outer, "inner", deep);
        deep = outer;
    }
    expectUnsent(deep);
    expectUnsent(ZeqObj_newArray());
    EXPECT_TRUE(peer.requests().empty());
    EXPECT_EQ(mLog.messages(1).size(), 4u);

    const JsonPtr request = getRx();
    const JsonPtr answer(ZeqClient_getResponse(client.get(), request.get()));
    EXPECT_EQ(ZeqRspUtil_getIntegerParam(answer.get(), "index"), 5);
}

TEST_F(ZeqClient, LargeAnswersArriveWholeAndRequestsCanBeSentAgain) {
    std::string rows;
    for (int i = 1; i <= 20'000; ++i) {
        rows += (i > 1 ? "," : "") + (R"({"index":)" + std::to_string(i)) +
                R"(,"name":"Receiver of a desk in row )" + std::to_string(i) + "\"}";
    }
    ::setenv("ZEQ_TIMEOUT_MS", "20000", 1);
    FakePeer peer("{\"rows\":[" + rows + "]}");
    const ClientPtr client(ZeqClient_new());
    const JsonPtr request = getRx();
    for (int i = 0; i < 3; ++i) {
        const JsonPtr answer(ZeqClient_getResponse(client.get(), request.get()));
        ASSERT_EQ(ZeqRspUtil_numEntries(answer.get()), 20'000);
        EXPECT_EQ(ZeqRspUtil_getIndexedIntegerParam(answer.get(), 19'999, "index"), 20'000);
    }
    EXPECT_EQ(peer.requests().size(), 3u);
}

TEST_F(ZeqClient, NullIsHarmlessEverywhere) {
    EXPECT_FALSE(ZeqClient_isValid(nullptr));
    ZeqClient_close(nullptr);
    const JsonPtr request = getRx();
    EXPECT_EQ(ZeqClient_getResponse(nullptr, request.get()), nullptr);
    FakePeer peer(R"({"rows":[]})");
    const ClientPtr client(ZeqClient_new());
    EXPECT_EQ(ZeqClient_getResponse(client.get(), nullptr), nullptr);
    EXPECT_TRUE(ZeqClient_isValid(client.get()));
}

TEST(ZeqEnvironment, OddDeadlinesAreIgnored) {
    for (const char* odd : {"", "0", "-5", "20x", "99999999999999999999", " 5"}) {
        ::setenv("ZEQ_TIMEOUT_MS", odd, 1);
        EXPECT_EQ(zeq::answerDeadline(), zeq::kAnswerDeadline) << odd;
    }
    ::setenv("ZEQ_TIMEOUT_MS", "1500", 1);
    EXPECT_EQ(zeq::answerDeadline(), 1500ms);
    ::unsetenv("ZEQ_TIMEOUT_MS");
}

} // namespace
