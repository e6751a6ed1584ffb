#include "server/HostNames.h"

#include "tests/toolkit/support/TestClient.h"
#include "tests/toolkit/support/TestServer.h"

#include <gtest/gtest.h>

#include <boost/asio/ssl/context.hpp>

#include <cstdlib>
#include <filesystem>

#include <unistd.h>

namespace Wt::Impl {
namespace {

TEST(HostNames, AddressesAndGivenNamesInAnyCaseWithAnyPortAndNothingElse) {
    HostNames names({"Switch.example", "b:8443"});
    for (const char* host : {"switch.example", "SWITCH.Example:1", "switch.example.", "b", "127.0.0.1",
                             "192.0.2.7:8443", "[::1]", "[fe80::1]:80", "localhost:8443"})
        EXPECT_TRUE(names.allows(host)) << host;
    for (const char* host :
         {"", "evil.example", "x.switch.example", "switch.example.evil", "127.0.0.1.evil.example",
          "0x7f000001", "2130706433", "127.1", "*.example", "[evil]", ":80"})
        EXPECT_FALSE(names.allows(host)) << host;
    char own[256] = {};
    ASSERT_EQ(::gethostname(own, sizeof own - 1), 0);
    EXPECT_TRUE(names.allows(own));
}

TEST(HostNames, TheCertificatesNamesCount) {
    char folder[] = "/tmp/wt-names-test-XXXXXX";
    const std::string at = ::mkdtemp(folder);
    ASSERT_EQ(
        std::system(
            ("openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -days 2 -subj /CN=kvm "
             "-addext subjectAltName=DNS:kvm.example,DNS:*.rack.example,IP:192.0.2.1 -keyout " +
             at + "/k -out " + at + "/c 2>/dev/null")
                .c_str()),
        0);
    boost::asio::ssl::context tls(boost::asio::ssl::context::tls_server);
    tls.use_certificate_chain_file(at + "/c");
    std::filesystem::remove_all(at);
    HostNames names;
    EXPECT_FALSE(names.allows("kvm.example"));
    names.addCertificate(tls.native_handle());
    for (const char* host : {"kvm", "kvm.example:443", "one.rack.example"})
        EXPECT_TRUE(names.allows(host)) << host;
    for (const char* host : {"rack.example", "a.b.rack.example", "*.rack.example", "example"})
        EXPECT_FALSE(names.allows(host)) << host;
}

TEST(HostNames, AnotherNameIsToldHowANameIsAddedAndGetsNothingElse) {
    TestServer server([](ServerConfig& config) { config.hostNames = {"known.example"}; });
    const auto asked = [&](const std::string& host) {
        TestClient client(server.port());
        client.send("GET / HTTP/1.1\r\nHost: " + host + "\r\n\r\n");
        return client.readAnswer();
    };
    EXPECT_EQ(asked("known.example:1").status, 200);
    const Answer refused = asked("evil.example");
    EXPECT_EQ(refused.status, 421);
    EXPECT_NE(refused.body.find("--host evil.example"), std::string::npos) << refused.body;
    EXPECT_EQ(refused.headers.at("connection"), "close");
    // Whatever is asked for, and before the body.
    const std::string origin = "Origin: http://evil.example\r\nContent-Type: application/json\r\n";
    TestClient client(server.port());
    client.send("POST /wt-session/start HTTP/1.1\r\nHost: evil.example\r\n" + origin +
                "Content-Length: 12\r\n\r\n{\"path\":\"/\"}");
    EXPECT_EQ(client.readAnswer().status, 421);
    EXPECT_EQ(server.sessions().size(), 0u);
    TestClient old(server.port()); // HTTP/1.0 need not name a host
    old.send("GET / HTTP/1.0\r\n\r\n");
    EXPECT_EQ(old.readAnswer().status, 200);
}

} // namespace
} // namespace Wt::Impl
