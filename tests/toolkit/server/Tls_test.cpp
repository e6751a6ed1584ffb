#include "server/Deadline.h"
#include "tests/toolkit/support/TestClient.h"
#include "tests/toolkit/support/TestServer.h"

#include <Wt/WServer.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace Wt::Impl {
namespace {

class TlsTest : public testing::Test {
protected:
    TlsTest() {
        char folder[] = "/tmp/wt-tls-test-XXXXXX";
        mFolder = ::mkdtemp(folder);
        const std::string command =
            "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -days 2 "
            "-subj /CN=x -keyout " +
            mFolder + "/key.pem -out " + mFolder + "/cert.pem 2>/dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0);
    }
    ~TlsTest() override { std::filesystem::remove_all(mFolder); }

    void bothOnOnePort(ServerConfig& config) const {
        config.httpsAddress = config.httpAddress;
        config.httpsPort = config.httpPort;
        config.sslCertificate = mFolder + "/cert.pem";
        config.sslPrivateKey = mFolder + "/key.pem";
    }

    static std::string run(const std::string& command) {
        std::string output;
        FILE* pipe = ::popen(command.c_str(), "r");
        std::array<char, 4096> piece;
        for (std::size_t got = 0; (got = std::fread(piece.data(), 1, piece.size(), pipe)) > 0;)
            output.append(piece.data(), got);
        ::pclose(pipe);
        return output;
    }

    std::string mFolder;
};

TEST_F(TlsTest, PlainRequestsAreSentOnAndGetNothingElse) {
    TestServer server([this](ServerConfig& config) { bothOnOnePort(config); });
    std::ofstream(server.docRoot() / "a.txt") << "hello";
    const std::string port = std::to_string(server.port());
    const std::string own = "Origin: http://127.0.0.1:" + port + "\r\n";
    const struct {
        const char* method;
        const char* target;
        std::string headers, body;
    } rows[] = {
        {"GET", "/", "", ""},
        {"GET", "/a.txt?b=c&d=%20", "", ""},
        {"HEAD", "/a.txt", "", ""},
        {"POST", "/wt-session/start", own, "{\"path\":\"/\"}"},
        {"GET", "/wt-session/ws", own + "Cookie: session=x\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n",
         ""},
        {"DELETE", "/x", "", ""},
        {"GET", "/%2e%2e/etc/passwd", "", ""},
    };
    for (const auto& row : rows) {
        const Answer answer = ask(server.port(), row.method, row.target, row.headers, row.body);
        EXPECT_EQ(answer.status, 308) << row.method << " " << row.target;
        EXPECT_EQ(answer.headers.at("location"), "https://127.0.0.1:" + port + row.target);
        EXPECT_EQ(answer.headers.at("connection"), "close");
        EXPECT_EQ(answer.headers.count("set-cookie"), 0u);
        EXPECT_EQ(answer.headers.count("strict-transport-security"), 0u); // RFC 6797 7.2
        EXPECT_EQ(answer.body, "");
    }
    EXPECT_EQ(server.sessions().size(), 0u);
    TestClient foreign(server.port()); // nobody is sent on to another's name
    foreign.send("GET / HTTP/1.1\r\nHost: evil.example\r\n\r\n");
    EXPECT_EQ(foreign.readAnswer().status, 421);
    TestClient nameless(server.port());
    nameless.send("GET / HTTP/1.0\r\n\r\n");
    EXPECT_EQ(nameless.readAnswer().status, 400);
}

TEST_F(TlsTest, APlainListenerOfItsOwnNamesThePortOfTls) {
    TestServer server([this](ServerConfig& config) {
        bothOnOnePort(config);
        config.httpsAddress = "127.0.0.2";
    });
    const std::string location = ask(server.port(), "GET", "/x").headers["location"];
    EXPECT_TRUE(location.starts_with("https://127.0.0.1:")) << location;
    EXPECT_TRUE(location.ends_with("/x")) << location;
    EXPECT_NE(location, "https://127.0.0.1:" + std::to_string(server.port()) + "/x");
}

TEST_F(TlsTest, OnePortSpeaksBothAndTlsHasItsOwnHeaders) {
    TestServer server([this](ServerConfig& config) { bothOnOnePort(config); });
    const std::string port = std::to_string(server.port());
    const std::string url = "https://127.0.0.1:" + port;
    EXPECT_NE(run("curl -skim 10 " + url + "/").find("Strict-Transport-Security: max-age="),
              std::string::npos);
    const std::string started =
        run("curl -skim 10 " + url + "/wt-session/start -H 'Origin: " + url + "' -d '{\"path\":\"/\"}'");
    EXPECT_NE(started.find("Set-Cookie: __Host-session="), std::string::npos);
    for (const char* attribute : {"; Path=/", "; HttpOnly", "; SameSite=Strict", "; Secure"})
        EXPECT_NE(started.find(attribute), std::string::npos) << attribute;
    // The plain page's origin is a foreign one for TLS.
    EXPECT_NE(
        run("curl -skim 10 " + url + "/wt-session/start -H 'Origin: http://127.0.0.1:" + port + "' -d '{}'")
            .find(" 403 "),
        std::string::npos);
    EXPECT_EQ(run("curl -sk --tls-max 1.1 --ciphers DEFAULT@SECLEVEL=0 -o /dev/null -w '%{http_code}' " +
                  url + "/"),
              "000");
    EXPECT_EQ(run("curl -sk --tls-max 1.2 -o /dev/null -w '%{http_code}' " + url + "/"), "200");

    Deadline::hurry(20);
    for (const std::string& begun : {std::string(), std::string("\x16\x03\x01\x02", 4)}) {
        TestClient slow(server.port()); // never ends its handshake
        slow.send(begun);
        EXPECT_TRUE(slow.isClosed());
    }
    Deadline::hurry(1);

    TestClient broken(server.port());
    broken.send(std::string("\x16\x03\x01\x00\x05hello", 10));
    EXPECT_EQ(broken.readAnswer().status, 0);
    EXPECT_EQ(ask(server.port(), "GET", "/").status, 308);
}

TEST_F(TlsTest, WhatCanNotBeUsedIsNamed) {
    const struct {
        std::function<void(ServerConfig&)> change;
        const char* named;
    } rows[] = {
        {[](ServerConfig& config) { config.sslCertificate = "/nowhere"; }, "--ssl-certificate"},
        {[](ServerConfig& config) { config.sslPrivateKey = config.sslCertificate; }, "--ssl-private-key"},
        {[](ServerConfig& config) { config.sslTmpDh = "/nowhere"; }, "--ssl-tmp-dh"},
        {[](ServerConfig& config) { config.sslCipherList = "nonsense"; }, "--ssl-cipherlist"},
        {[](ServerConfig& config) { config.httpAddress = "nonsense"; }, "nonsense"},
        {[](ServerConfig& config) { config.pidFile = "/nowhere/pid"; }, "--pid-file"},
        {[](ServerConfig& config) { config.accessLog = "/nowhere/log"; }, "--accesslog"},
    };
    for (const auto& row : rows) {
        try {
            TestServer server([&](ServerConfig& config) {
                bothOnOnePort(config);
                row.change(config);
            });
            ADD_FAILURE() << "started in spite of " << row.named;
        } catch (const WServer::Exception& error) {
            EXPECT_NE(std::string(error.what()).find(row.named), std::string::npos) << error.what();
        }
    }
    TestServer first;
    EXPECT_THROW(TestServer([&](ServerConfig& config) { config.httpPort = first.port(); }),
                 WServer::Exception);
}

} // namespace
} // namespace Wt::Impl
