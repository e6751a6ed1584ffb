// Those who are too slow, with deadlines a hundred times shorter than a server's.
#include "server/Deadline.h"
#include "server/Limits.h"
#include "tests/toolkit/support/TestClient.h"
#include "tests/toolkit/support/TestServer.h"

#include <gtest/gtest.h>

#include <fstream>

namespace Wt::Impl {
namespace {

class DeadlineTest : public testing::Test {
protected:
    DeadlineTest() { Deadline::hurry(100); }
    ~DeadlineTest() override { Deadline::hurry(1); }

    /// One connection is allowed, so this comes true when the one before has been closed.
    static bool answers(const TestServer& server) {
        return comesTrue([&] { return ask(server.port(), "GET", "/").status == 200; });
    }
    static void onlyOne(ServerConfig& config) { config.maxConnectionsPerAddress = 1; }
};

TEST_F(DeadlineTest, HalfARequestIsAnsweredAndClosed) {
    TestServer server(onlyOne);
    const std::string form = "POST /wt-session/start HTTP/1.1\r\nHost: h\r\nOrigin: http://h\r\n"
                             "Content-Length: 100\r\n";
    const struct {
        const char* what;
        std::string bytes;
        std::vector<int> answers; ///< 0: closed without one
    } rows[] = {
        {"nothing at all", "", {0}},
        {"half a header", "GET / HTTP/1.1\r\nHo", {408, 0}},
        {"half a form", form + "\r\n{", {408, 0}},
        {"a form that waits to be told to go on", form + "Expect: 100-continue\r\n\r\n", {100, 408, 0}},
        {"nothing after an answer", "GET / HTTP/1.1\r\nHost: h\r\n\r\n", {200, 0}},
    };
    for (const auto& row : rows) {
        TestClient client(server.port());
        client.send(row.bytes);
        for (const int status : row.answers)
            EXPECT_EQ(client.readAnswer(status == 100).status, status) << row.what;
        EXPECT_TRUE(answers(server)) << row.what;
    }
}

TEST_F(DeadlineTest, AnUploadThatStopsLeavesNothingInTheSpoolFolder) {
    TestServer server;
    const TestPage page(server.port());
    TestClient client(server.port());
    client.send("POST /wt-resource/" + page.session() + "/upload/x HTTP/1.1\r\nHost: 127.0.0.1:" +
                std::to_string(server.port()) + "\r\n" + page.cookieHeader() + page.originHeader() +
                "Content-Type: multipart/form-data; boundary=XX\r\nContent-Length: 100000\r\n\r\n"
                "--XX\r\nContent-Disposition: form-data; name=\"f\"; filename=\"a\"\r\n\r\n" +
                std::string(50'000, 'x'));
    EXPECT_EQ(client.readAnswer().status, 408);
    EXPECT_TRUE(comesTrue([&] { return server.spooledFiles() == 0; }));
}

TEST_F(DeadlineTest, ABrowserThatTakesNothingIsCutOff) {
    TestServer server(onlyOne);
    std::ofstream(server.docRoot() / "big.bin", std::ios::binary) << std::string(40'000'000, 'x');
    TestClient client(server.port());
    client.send("GET /big.bin HTTP/1.1\r\nHost: h\r\n\r\n");
    EXPECT_TRUE(answers(server));
    EXPECT_LT(client.readAnswer().body.size(), 40'000'000u);
}

TEST_F(DeadlineTest, ASilentWebSocketIsClosedAndItsSessionStays) {
    TestServer server;
    const TestPage page(server.port());
    TestClient silent(server.port());
    page.connect(silent);
    while (!silent.readText().empty()) {
    } // it does not answer pings
    EXPECT_TRUE(silent.isClosed());
    EXPECT_EQ(server.sessions().size(), 1u);
    TestClient again(server.port());
    page.connect(again);
    EXPECT_NE(again.readText().find("hello"), std::string::npos);

    TestClient mute(server.port()); // never says which session it belongs to
    mute.send("GET /wt-session/ws HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(server.port()) + "\r\n" +
              page.originHeader() + page.cookieHeader() +
              "Connection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
              "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n");
    EXPECT_EQ(mute.readAnswer().status, 101);
    while (!mute.readText().empty()) {
    }
    EXPECT_TRUE(mute.isClosed());
}

} // namespace
} // namespace Wt::Impl
