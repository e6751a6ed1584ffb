// Those who are too slow, with deadlines twenty times shorter than a server's.
#include "core/Limits.h"
#include "server/Deadline.h"
#include "tests/toolkit/support/TestClient.h"
#include "tests/toolkit/support/TestServer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include <fstream>
#include <memory>
#include <stdexcept>
#include <vector>

namespace Wt::Impl {
namespace {

class DeadlineTest : public testing::Test {
protected:
    DeadlineTest() { Deadline::hurry(20); }
    ~DeadlineTest() override { Deadline::hurry(1); }

    /// One connection is allowed, so this comes true when the one before has been closed.
    static bool answers(const TestServer& server) {
        return comesTrue([&] { return ask(server.port(), "GET", "/").status == 200; });
    }
    static void onlyOne(ServerConfig& config) { config.maxConnectionsPerAddress = 1; }
};

TEST_F(DeadlineTest, HalfARequestIsAnsweredAndClosed) {
    TestServer server;
    const std::string form =
        "POST /wt-session/start HTTP/1.1\r\nHost: localhost\r\nOrigin: http://localhost\r\n"
        "Content-Length: 100\r\n";
    const struct {
        const char* what;
        std::string bytes;
        std::vector<int> answers; ///< before it is closed
    } rows[] = {
        {"nothing at all", "", {}},
        {"half a header", "GET / HTTP/1.1\r\nHo", {408}},
        {"half a form", form + "\r\n{", {408}},
        {"a form that waits to be told to go on", form + "Expect: 100-continue\r\n\r\n", {100, 408}},
        {"nothing after an answer", "GET / HTTP/1.1\r\nHost: localhost\r\n\r\n", {200}},
    };
    for (const auto& row : rows) {
        TestClient client(server.port());
        client.send(row.bytes);
        for (const int status : row.answers)
            EXPECT_EQ(client.readAnswer(status == 100).status, status) << row.what;
        EXPECT_TRUE(client.isClosed()) << row.what;
    }
}

TEST_F(DeadlineTest, AnUploadThatStopsLeavesNothingInTheSpoolFolder) {
    Deadline::hurry(1);
    TestServer server;
    const TestPage page(server.port());
    page.claim();
    Deadline::hurry(20);
    TestClient client(server.port());
    client.send("POST /wt-resource/" + page.session() + "/upload/x HTTP/1.1\r\nHost: 127.0.0.1:" +
                std::to_string(server.port()) + "\r\n" + page.cookieHeader() + page.originHeader() +
                "Content-Type: multipart/form-data; boundary=XX\r\nContent-Length: 100000\r\n\r\n"
                "--XX\r\nContent-Disposition: form-data; name=\"f\"; filename=\"a\"\r\n\r\n" +
                std::string(50'000, 'x'));
    EXPECT_EQ(client.readAnswer().status, 408);
    EXPECT_TRUE(comesTrue([&] { return server.spooledFiles() == 0; }));
}

TEST_F(DeadlineTest, AnUploadThatTricklesIsEndedAlthoughItNeverPauses) {
    Deadline::hurry(1);
    TestServer server;
    const TestPage page(server.port());
    page.claim();
    Deadline::hurry(20); // 1.5 s before the rate counts, 1 s between pieces
    TestClient client(server.port());
    client.send("POST /wt-resource/" + page.session() + "/upload/x HTTP/1.1\r\nHost: 127.0.0.1:" +
                std::to_string(server.port()) + "\r\n" + page.cookieHeader() + page.originHeader() +
                "Content-Type: multipart/form-data; boundary=XX\r\nContent-Length: 100000\r\n\r\n"
                "--XX\r\nContent-Disposition: form-data; name=\"f\"; filename=\"a\"\r\n\r\n");
    std::atomic<bool> answered = false;
    std::thread trickle([&] {
        for (int i = 0; i < 2000 && !answered; ++i) {
            client.send("x");
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    });
    EXPECT_EQ(client.readAnswer().status, 408);
    answered = true;
    trickle.join();
    EXPECT_TRUE(comesTrue([&] { return server.spooledFiles() == 0; }));
}

TEST_F(DeadlineTest, ABrowserThatTakesNothingIsCutOff) {
    TestServer server(onlyOne);
    std::ofstream(server.docRoot() / "big.bin", std::ios::binary) << std::string(40'000'000, 'x');
    TestClient client(server.port());
    client.send("GET /big.bin HTTP/1.1\r\nHost: localhost\r\n\r\n");
    EXPECT_TRUE(answers(server));
    EXPECT_LT(client.readAnswer().body.size(), 40'000'000u);
}

TEST_F(DeadlineTest, ASilentWebSocketIsClosedAndItsSessionStays) {
    Deadline::hurry(1);
    TestServer server;
    const TestPage page(server.port());
    Deadline::hurry(20);
    std::unique_ptr<TestClient> silent;
    EXPECT_TRUE(comesTrue([&] { // a machine that is busy may be too slow for the short deadline of the hello
        try {
            silent = std::make_unique<TestClient>(server.port());
            page.connect(*silent);
        } catch (const std::runtime_error&) {
            return false;
        }
        silent->readText(); // the acknowledgement
        return silent->readText().find("hello") != std::string::npos;
    }));
    while (!silent->readText().empty()) {
    } // it does not answer pings
    EXPECT_TRUE(silent->isClosed());
    EXPECT_EQ(server.sessions().size(), 1u);

    TestClient mute(server.port()); // never says which session it belongs to
    mute.send("GET /wt-session/ws HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(server.port()) + "\r\n" +
              page.originHeader() + page.cookieHeader() +
              "Connection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
              "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n");
    mute.readAnswer();
    while (!mute.readText().empty()) {
    }
    EXPECT_TRUE(mute.isClosed());

    Deadline::hurry(1);
    TestClient again(server.port());
    page.connect(again);
    again.readText();
    EXPECT_NE(again.readText().find("hello"), std::string::npos);
}

} // namespace
} // namespace Wt::Impl
