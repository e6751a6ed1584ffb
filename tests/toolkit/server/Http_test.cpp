#include "core/Limits.h"
#include "tests/toolkit/support/FakeHost.h"
#include "tests/toolkit/support/TestClient.h"
#include "tests/toolkit/support/TestServer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace Wt::Impl {
namespace {

TEST(Http, AnswersWithTheRightStatusAndAlwaysWithTheSecurityHeaders) {
    TestServer server;
    std::ofstream(server.docRoot() / "a.txt") << "hello";
    const std::string json = "Content-Type: application/json\r\n";
    const std::string origin = "Origin: " + server.origin() + "\r\n";
    const struct {
        const char* method;
        const char* target;
        std::string headers;
        std::string body;
        int status;
    } rows[] = {
        {"GET", "/", "", "", 200},
        {"HEAD", "/", "", "", 200},
        {"GET", "/a.txt", "", "", 200},
        {"GET", "/a.txt?x=%", "", "", 200},
        {"GET", "/nothing", "", "", 404},
        {"GET", "/../../etc/passwd", "", "", 400},
        {"GET", "/%2e%2e/etc/passwd", "", "", 400},
        {"GET", "/%zz", "", "", 400},
        {"POST", "/", "", "x=1", 405},
        {"PUT", "/a.txt", "", "x", 405},
        {"TRACE", "/", "", "", 405},
        {"DELETE", "/a.txt", "", "", 405},
        {"GET", "/wt-client/0/main.js", "", "", 404},
        {"GET", "/wt-session/start", "", "", 405},
        {"POST", "/wt-session/start", json, R"({"path":"/"})", 403},
        {"POST", "/wt-session/start", json + "Origin: http://evil.example\r\n", R"({"path":"/"})", 403},
        {"POST", "/wt-session/start", json + "Origin: null\r\n", R"({"path":"/"})", 403},
        {"POST", "/wt-session/start", json + "Sec-Fetch-Site: same-origin\r\n", R"({"path":"/"})", 200},
        {"POST", "/wt-session/start", json + origin, R"({"path":"/"})", 200},
        {"POST", "/wt-session/start", json + origin, R"({"path":"/nowhere"})", 400},
        {"POST", "/wt-session/start", json + origin, "[", 400},
        {"POST", "/wt-session/start", json + origin, std::string(kFormBytes + 1, ' '), 413},
        {"POST", "/wt-session/poll", json + origin, "{}", 200},
        {"POST", "/wt-session/poll", json + origin, R"({"n":-1,"e":[]})", 400},
        {"POST", "/wt-session/bye", json + origin, R"({"token":"guess"})", 204},
        {"POST", "/wt-session/other", json + origin, "{}", 404},
        {"GET", "/wt-session/ws", "", "", 426},
        {"GET", "/wt-session/ws", "Connection: Upgrade\r\nUpgrade: websocket\r\n", "", 403},
        {"GET", "/wt-session/ws",
         "Connection: Upgrade\r\nUpgrade: websocket\r\nCookie: session=x\r\nOrigin: http://evil.example\r\n",
         "", 403},
        {"GET", "/wt-resource/S/K/name", "", "", 404},
        {"GET", "/wt-resource/", "", "", 404},
        {"GET", "/a.txt", "A: " + std::string(kHeaderBytes, 'x') + "\r\n", "", 431},
    };
    for (const auto& row : rows) {
        const Answer answer = ask(server.port(), row.method, row.target, row.headers, row.body);
        EXPECT_EQ(answer.status, row.status) << row.method << " " << row.target;
        for (const char* header :
             {"content-security-policy", "x-content-type-options", "referrer-policy", "permissions-policy",
              "cross-origin-opener-policy", "cross-origin-resource-policy"})
            EXPECT_EQ(answer.headers.count(header), 1u)
                << row.method << " " << row.target << " lacks " << header;
        EXPECT_EQ(answer.headers.count("strict-transport-security"), 0u);
    }
    EXPECT_EQ(ask(server.port(), "GET", "/" + std::string(kTargetBytes, 'x')).status, 414);
    const std::string policy = ask(server.port(), "GET", "/nothing").headers["content-security-policy"];
    for (const char* rule :
         {"default-src 'none'", "frame-ancestors 'none'", "require-trusted-types-for 'script'"})
        EXPECT_NE(policy.find(rule), std::string::npos) << rule;
    EXPECT_EQ(policy.find("unsafe"), std::string::npos);
}

TEST(Http, TheStartPageIsStaticAndEverythingItNamesIsThere) {
    TestServer server;
    const int before = fakeHostCounts().made;
    const Answer page = ask(server.port(), "GET", "/", "Accept-Encoding: gzip\r\n");
    EXPECT_EQ(page.headers.count("set-cookie"), 0u);
    EXPECT_EQ(ask(server.port(), "GET", "/", "If-None-Match: " + page.headers.at("etag") + "\r\n").status,
              304);
    EXPECT_EQ(page.body.find("<style"), std::string::npos);
    EXPECT_EQ(page.body.find("style="), std::string::npos);
    EXPECT_NE(page.body.find("href=\"/favicon.ico\""), std::string::npos);
    int files = 0;
    for (std::size_t at = page.body.find("/wt-client/"); at != std::string::npos;
         at = page.body.find("/wt-client/", at + 1)) {
        const std::string target = page.body.substr(at, page.body.find('"', at) - at);
        const Answer file = ask(server.port(), "GET", target);
        EXPECT_EQ(file.status, 200) << target;
        EXPECT_NE(file.headers.at("cache-control").find("immutable"), std::string::npos);
        EXPECT_FALSE(file.body.empty()) << target;
        EXPECT_EQ(
            ask(server.port(), "GET", target, "Accept-Encoding: gzip\r\n").headers.at("content-encoding"),
            "gzip");
        ++files;
    }
    EXPECT_GE(files, 3);
    EXPECT_EQ(fakeHostCounts().made, before); // reading makes no session
}

TEST(Http, KeepsConnectionsAliveAndAnswersPipelinedRequestsInOrder) {
    TestServer server;
    std::ofstream(server.docRoot() / "a.txt") << "hello";
    TestClient client(server.port());
    client.send(
        "GET /a.txt HTTP/1.1\r\nHost: localhost\r\n\r\nHEAD /a.txt HTTP/1.1\r\nHost: localhost\r\n\r\nGET /b "
        "HTTP/1.1\r\nHost: localhost\r\n\r\n");
    EXPECT_EQ(client.readAnswer().body, "hello");
    const Answer head = client.readAnswer(true);
    EXPECT_EQ(head.headers.at("content-length"), "5");
    EXPECT_EQ(client.readAnswer().status, 404);
    client.send("GET /a.txt HTTP/1.0\r\n\r\n");
    EXPECT_EQ(client.readAnswer().headers.at("connection"), "close");
    EXPECT_TRUE(client.isClosed());
}

TEST(Http, ABodyThatNobodyReadsIsNotTakenForARequest) {
    TestServer server;
    TestClient client(server.port());
    client.send(
        "POST /nothing HTTP/1.1\r\nHost: localhost\r\nContent-Length: 40\r\n\r\nGET / HTTP/1.1\r\nHost: localhost\r\n\r\n");
    EXPECT_EQ(client.readAnswer().status, 405);
    EXPECT_EQ(client.readAnswer().status, 0);
}

TEST(Http, AFileLargerThanTheCacheArrivesWhole) {
    TestServer server;
    std::string content(3'000'000, '\0');
    for (std::size_t i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i * 31 >> 3);
    std::ofstream(server.docRoot() / "big.bin", std::ios::binary) << content;
    EXPECT_TRUE(ask(server.port(), "GET", "/big.bin").body == content);
}

TEST(Http, MoreConnectionsThanAllowedAreClosedAndTheOthersLive) {
    TestServer server([](ServerConfig& config) { config.maxConnectionsPerAddress = 3; });
    std::vector<std::unique_ptr<TestClient>> clients;
    for (int i = 0; i < 3; ++i) {
        clients.push_back(std::make_unique<TestClient>(server.port()));
        clients.back()->send("GET / HTTP/1.1\r\nHost: localhost\r\n\r\n");
        EXPECT_EQ(clients.back()->readAnswer().status, 200);
    }
    TestClient fourth(server.port());
    EXPECT_TRUE(fourth.isClosed());
    clients.front()->send("GET / HTTP/1.1\r\nHost: localhost\r\n\r\n");
    EXPECT_EQ(clients.front()->readAnswer().status, 200);
    clients.pop_back();
    EXPECT_TRUE(comesTrue([&] { return ask(server.port(), "GET", "/").status == 200; }));
}

/// Entries of a folder of /proc/self.
std::ptrdiff_t entries(const char* folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

// MIRL_CUTS: how many connections (default 300); memory is worth a look with thousands, by hand.
TEST(Http, ConnectionsThatAreCutLeaveNothingBehind) {
    const char* wanted = std::getenv("MIRL_CUTS");
    const int cuts = wanted ? std::atoi(wanted) : 300;
    TestServer server([](ServerConfig& config) { config.maxConnectionsPerAddress = 20; });
    const std::string origin = "Host: localhost\r\nOrigin: http://localhost\r\n";
    const std::string beginnings[] = {"",
                                      "G",
                                      "GET / HTTP/1.1\r\nHo",
                                      "GET / HTTP/1.1\r\nHost: localhost\r\n\r\n",
                                      "POST /wt-session/start HTTP/1.1\r\n" + origin +
                                          "Content-Length: 100\r\n\r\n{",
                                      "\x16\x03\x01"};
    const auto cutOne = [&](int i) {
        TestClient client(server.port());
        client.send(beginnings[i % std::size(beginnings)]);
        client.cut();
    };
    const auto answers = [&] { return ask(server.port(), "GET", "/").status == 200; };
    for (std::size_t i = 0; i < std::size(beginnings); ++i) cutOne(static_cast<int>(i));
    EXPECT_TRUE(comesTrue(answers));
    const auto files = entries("/proc/self/fd"), threads = entries("/proc/self/task");
    for (int i = 0; i < cuts; ++i) {
        cutOne(i);
        if (i % 10 == 9) {
            EXPECT_TRUE(comesTrue(answers));
        }
        if (i % 50 != 49) continue;
        const TestPage page(server.port()); // and one with a session
        TestClient client(server.port());
        page.connect(client);
        client.readText();
        client.cut();
        page.post("/wt-session/bye", R"({"token":")" + page.token() + R"("})");
    }
    EXPECT_TRUE(comesTrue([&] { return server.sessions().size() == 0; }));
    server.sessions().expire(SessionRegistry::Clock::now() + std::chrono::hours(1)); // joins the ended ones
    EXPECT_TRUE(comesTrue([&] { return entries("/proc/self/fd") <= files; })) << entries("/proc/self/fd");
    EXPECT_TRUE(comesTrue([&] { return entries("/proc/self/task") <= threads; }));
}

} // namespace
} // namespace Wt::Impl
