// Events on their way to a syslog server.
#include "platform/service/net/Syslog.h"
#include "tests/platform/service/support/Harness.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zeqd::testing {
namespace {

/// A server on loopback that takes what comes.
class Listener {
public:
    explicit Listener(int family) : mSocket(socket(family, SOCK_DGRAM, 0)) {
        sockaddr_in four{
            .sin_family = AF_INET, .sin_port = 0, .sin_addr = {htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
        sockaddr_in6 six{};
        six.sin6_family = AF_INET6;
        six.sin6_addr = in6addr_loopback;
        const bool is4 = family == AF_INET;
        const auto* address =
            is4 ? reinterpret_cast<const sockaddr*>(&four) : reinterpret_cast<const sockaddr*>(&six);
        mGood = bind(mSocket, address, is4 ? sizeof four : sizeof six) == 0;
        sockaddr_in6 bound{};
        socklen_t size = sizeof bound;
        getsockname(mSocket, reinterpret_cast<sockaddr*>(&bound), &size);
        mPort = ntohs(bound.sin6_port); // at the same place in both
    }
    ~Listener() { close(mSocket); }

    bool good() const { return mGood; }
    std::uint16_t port() const { return mPort; }
    std::string next() {
        pollfd ready{mSocket, POLLIN, 0};
        if (poll(&ready, 1, 10'000) != 1) return "nothing came";
        char text[4096];
        const ssize_t got = recv(mSocket, text, sizeof text, 0);
        return {text, static_cast<std::size_t>(std::max<ssize_t>(got, 0))};
    }

private:
    int mSocket;
    bool mGood = false;
    std::uint16_t mPort = 0;
};

TEST(Syslog, AMessageIsWhatTheStandardSays) {
    const struct {
        const char* severity;
        const char* begin;
    } rows[] = {{"error", "<187>1 "}, {"warning", "<188>1 "}, {"info", "<190>1 "}, {"other", "<189>1 "}};
    for (const auto& row : rows)
        EXPECT_EQ(syslogMessage({row.severity, "00A702-020011", "Fan fault", 1236218649}, "00A701-010001"),
                  std::string(row.begin) + "2009-03-05T02:04:09Z 00A701-010001 zeqd - - - \xEF\xBB\xBF"
                                           "00A702-020011: Fan fault");
    EXPECT_EQ(syslogMessage({"info", "", "a\nb\x7F\tc \xC3\xA9", 0}, ""),
              "<190>1 1970-01-01T00:00:00Z - zeqd - - - \xEF\xBB\xBF"
              "a b  c \xC3\xA9");
}

TEST(Syslog, GoesToTheServerAndTellsOnceThatItCannot) {
    std::vector<std::string> said;
    const struct {
        int family;
        const char* server;
    } rows[] = {{AF_INET, "127.0.0.1"}, {AF_INET6, "::1"}};
    for (const auto& row : rows) {
        Listener listener(row.family);
        if (!listener.good()) continue; // a machine without IPv6
        SyslogSender sender(listener.port(), [&](const std::string& line) { said.push_back(line); });
        sender.send("", "nobody");
        sender.send("no address", "x");
        sender.send("no address", "y");
        EXPECT_EQ(said.size(), 1U) << "once";
        sender.send(row.server, "one");
        sender.send("no address", "z");
        EXPECT_EQ(said.size(), 2U) << "and again after one that went";
        sender.send(row.server, "two");
        EXPECT_EQ(listener.next(), "one");
        EXPECT_EQ(listener.next(), "two");
        said.clear();
    }
}

TEST(Syslog, SeveritiesThatAreOnAreSentAndOnlyWhenKept) {
    Harness service;
    ASSERT_EQ(service.set("systemGlobals", R"({"syslogDest":"10.0.0.9"})").error(), 0);
    ASSERT_EQ(service.set("eventLogControl", R"({"warning":"disabled"})").error(), 0);
    service.syslog.clear();
    const auto raise = [&](const char* severity) {
        return service
            .set("simControl",
                 std::string(R"({"action":"alert","message":"hello","severity":")") + severity + "\"}")
            .error();
    };
    ASSERT_EQ(raise("error"), 0);
    ASSERT_EQ(raise("warning"), 0);
    service.disk.failures = 1;
    EXPECT_EQ(raise("error"), 1);
    ASSERT_EQ(raise("info"), 0);
    const std::string eid = service.value("swx", 1, "eid");
    EXPECT_EQ(service.syslog,
              (std::vector<std::string>{"10.0.0.9 error hello " + eid, "10.0.0.9 info hello " + eid}));
}

} // namespace
} // namespace zeqd::testing
