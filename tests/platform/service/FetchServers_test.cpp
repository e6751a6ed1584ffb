// Fetching from real servers of every protocol, good ones and bad ones.
#include "platform/service/sim/Fetch.h"
#include "tests/platform/service/support/FileServer.h"
#include "tests/platform/support/TempFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace zeqd::testing {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kSize = 5000;
constexpr std::size_t kLimit = 6000;

class FetchFrom : public ::testing::TestWithParam<const char*> {
protected:
    FetchFrom() {
        if (GetParam() != std::string("https")) return;
        const std::string command =
            "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -days 2 -subj /CN=x "
            "-addext subjectAltName=IP:127.0.0.1 -keyout " +
            key + " -out " + certificate + " 2>/dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0);
        rules.authorities = certificate;
    }
    FileServer serve(const std::string& fault, std::size_t size = kSize) const {
        return {GetParam(), fault, size, {certificate, key}};
    }
    /// Size of what came, or why nothing did.
    std::string fetch(const FileServer& server, const std::string& file = FileServer::kFile,
                      const std::string& password = FileServer::kPassword) const {
        std::string why;
        const auto bytes =
            fetchFile({GetParam(), server.place(), file, FileServer::kUser, password}, rules, why);
        EXPECT_TRUE(bytes || !why.empty());
        return bytes ? std::to_string(bytes->size()) : why;
    }

    TempFolder folder;
    std::string certificate = folder.path() / "cert.pem";
    std::string key = folder.path() / "key.pem";
    FetchRules rules{.limit = kLimit, .localServers = true};
};

TEST_P(FetchFrom, TheWholeFileOrNothing) {
    {
        const FileServer server = serve("none");
        EXPECT_EQ(fetch(server), "5000");
        EXPECT_EQ(fetch(server, "/dir/f.fw"), "5000") << "a slash at the front is not doubled";
        EXPECT_NE(fetch(server, "dir/other.fw"), "5000");
        EXPECT_NE(fetch(server, "dir/f.fw#1"), "5000")
            << "a name is not cut at what means something in addresses";
    }
    EXPECT_EQ(fetch(serve("none", kLimit)), "6000");
    EXPECT_EQ(fetch(serve("none", kLimit + 1)), "larger than 6000 bytes");
    for (const char* fault : {"refuse", "missing", "cut"}) {
        const std::string why = fetch(serve(fault));
        EXPECT_NE(why, "2500") << fault;
        EXPECT_EQ(why.find(FileServer::kPassword), std::string::npos) << why;
    }
}

TEST_P(FetchFrom, AServerThatStopsInTheMiddleIsGivenUp) {
    rules.total = 1s;
    EXPECT_EQ(fetch(serve("stall")), "Timeout was reached");
}

class FetchWithLogin : public FetchFrom {};

TEST_P(FetchWithLogin, TheWrongOneGetsNothing) {
    EXPECT_NE(fetch(serve("none"), FileServer::kFile, "wrong"), "5000");
}

class FetchWithCertificate : public FetchFrom {};

TEST_P(FetchWithCertificate, AStrangersIsRefused) {
    const FileServer server = serve("none");
    rules.authorities.clear();
    EXPECT_EQ(fetch(server), "SSL peer certificate or SSH remote key was not OK");
}

std::string protocolOf(const ::testing::TestParamInfo<const char*>& row) {
    return row.param;
}
INSTANTIATE_TEST_SUITE_P(Protocols, FetchFrom, ::testing::Values("ftp", "http", "https", "tftp"), protocolOf);
INSTANTIATE_TEST_SUITE_P(Protocols, FetchWithLogin, ::testing::Values("ftp", "http", "https"), protocolOf);
INSTANTIATE_TEST_SUITE_P(Protocols, FetchWithCertificate, ::testing::Values("https"), protocolOf);

} // namespace
} // namespace zeqd::testing
