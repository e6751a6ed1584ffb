#include "server/ServerConfig.h"

#include "server/AccessLog.h"
#include "server/AddressCounter.h"

#include <Wt/WServer.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <vector>

#include <unistd.h>

namespace Wt::Impl {
namespace {

ServerConfig read(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "program");
    return readServerConfig(static_cast<int>(arguments.size()), arguments.data(), "");
}

TEST(ServerConfig, ReadsTheDocumentedOptions) {
    const ServerConfig config =
        read({"--docroot", "/srv/www;/resources,/icons/", "--http-address=::", "--http-port", "8080", "-t",
              "3", "-p", "/run/x.pid", "--no-compression", "--deploy-path=/kvm", "--accesslog=-",
              "--max-request-size=1000"});
    EXPECT_EQ(config.docRoot, "/srv/www");
    EXPECT_EQ(config.staticPaths, (std::vector<std::string>{"/resources", "/icons"}));
    EXPECT_EQ(config.httpAddress, "::");
    EXPECT_EQ(config.httpPort, 8080);
    EXPECT_EQ(config.httpsPort, 443);
    EXPECT_EQ(config.threads, 3);
    EXPECT_EQ(config.pidFile, "/run/x.pid");
    EXPECT_FALSE(config.compress);
    EXPECT_EQ(config.deployPath, "/kvm");
    EXPECT_EQ(config.maxRequestSize, 1000u);
    EXPECT_FALSE(config.sharesPort());
    EXPECT_TRUE(read({"--http-address=::", "--https-address=::", "--http-port=1", "--https-port=1",
                      "--ssl-certificate=c", "--ssl-private-key=k"})
                    .sharesPort());
}

TEST(ServerConfig, TheConfigurationFileTellsWhatAReloadIs) {
    const std::string file = testing::TempDir() + "wt_config_" + std::to_string(::getpid()) + ".xml";
    const auto readWith = [&](const std::string& setting) {
        std::ofstream(file) << "<server><application-settings location=\"*\"><session-management>" << setting
                            << "</session-management></application-settings></server>";
        return read({"--http-address=::", "--config", file.c_str()}).reloadIsNewSession;
    };
    const auto tag = [](const char* value) {
        return std::string("<reload-is-new-session>") + value + "</reload-is-new-session>";
    };
    EXPECT_TRUE(readWith(""));
    EXPECT_FALSE(readWith(tag("false")));
    EXPECT_TRUE(readWith(tag("true")));
    EXPECT_THROW(readWith(tag("no")), WServer::Exception);
    EXPECT_THROW(readWith("<broken"), WServer::Exception);
    std::remove(file.c_str());
}

TEST(ServerConfig, RefusalsNameTheOption) {
    const struct {
        std::vector<const char*> arguments;
        const char* named;
    } rows[] = {
        {{}, "--http-address"},
        {{"--http-address=::", "--unknown-option"}, "--unknown-option"},
        {{"--http-address=::", "stray"}, "positional"},
        {{"--http-address=::", "--http-port=x"}, "--http-port"},
        {{"--http-address=::", "--http-port=65536"}, "--http-port"},
        {{"--http-address=::", "--http-port=-1"}, "--http-port"},
        {{"--http-address=::", "--http-port"}, "--http-port"},
        {{"--http-addr=::"}, "--http-addr"},
        {{"--https-address=::"}, "--ssl-certificate"},
        {{"--https-address=::", "--ssl-certificate=c"}, "--ssl-private-key"},
        {{"--http-address=::", "--threads=0"}, "--threads"},
        {{"--http-address=::", "--deploy-path=kvm"}, "--deploy-path"},
        {{"--http-address=::", "--docroot=/a;b"}, "--docroot"},
        {{"--http-address=::", "--session-id-prefix=a/b"}, "--session-id-prefix"},
        {{"--http-address=::", "--spool-folder=/nowhere"}, "--spool-folder"},
        {{"--http-address=::", "--config=/nowhere"}, "--config"},
    };
    for (const auto& row : rows) {
        try {
            read(row.arguments);
            ADD_FAILURE() << "accepted what should name " << row.named;
        } catch (const WServer::Exception& error) {
            EXPECT_NE(std::string(error.what()).find(row.named), std::string::npos) << error.what();
        }
    }
}

TEST(AccessLog, KeepsSecretsAndForgeriesOut) {
    EXPECT_EQ(loggedTarget("/a?token=secret"), "/a");
    EXPECT_EQ(loggedTarget("/wt-resource/SESSION/SECRETKEY/file.csv"), "/wt-resource/SESSION/...");
    EXPECT_EQ(loggedTarget("/a\" 200 \x01"), "/a??200??");
}

TEST(AddressCounter, CountsOneAddressAndAll) {
    const auto ip = [](const char* text) { return boost::asio::ip::make_address(text); };
    AddressCounter counter(5, 2, 2);
    EXPECT_TRUE(counter.enter(ip("10.0.0.1")));
    EXPECT_TRUE(counter.enter(ip("::ffff:10.0.0.1")));
    EXPECT_FALSE(counter.enter(ip("10.0.0.1")));
    EXPECT_TRUE(counter.enter(ip("2001:db8::1")));
    EXPECT_TRUE(counter.enter(ip("2001:db8::2")));
    EXPECT_FALSE(counter.enter(ip("2001:db8::3"))); // the same network
    EXPECT_TRUE(counter.enter(ip("10.0.0.2")));
    EXPECT_FALSE(counter.enter(ip("10.0.0.3"))); // five in all
    counter.leave(ip("10.0.0.1"), false);
    EXPECT_TRUE(counter.enter(ip("10.0.0.1")));
    EXPECT_EQ(counter.count(), 5u);
}

TEST(AddressCounter, WhoHasNoUserHasAShareOfItsOwn) {
    const auto one = boost::asio::ip::make_address("10.0.0.1");
    AddressCounter counter(100, 6, 4);
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(counter.enter(one));
    EXPECT_FALSE(counter.isCrowded(one));
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(counter.enter(one));
    EXPECT_TRUE(counter.isCrowded(one));
    EXPECT_FALSE(counter.enter(one));
    EXPECT_TRUE(counter.enter(boost::asio::ip::make_address("10.0.0.2")));
    counter.recognise(one);
    EXPECT_TRUE(counter.enter(one)); // 4 without a user, 1 with
    EXPECT_FALSE(counter.enter(one));
    counter.leave(one, true);
    EXPECT_FALSE(counter.enter(one));
    counter.leave(one, false);
    EXPECT_TRUE(counter.enter(one));
    EXPECT_EQ(AddressCounter::networkOf(one), "10.0.0.1");
    EXPECT_EQ(AddressCounter::networkOf(boost::asio::ip::make_address("::ffff:10.0.0.1")), "10.0.0.1");
    EXPECT_EQ(AddressCounter::networkOf(boost::asio::ip::make_address("2001:db8:1:2:3::4")),
              AddressCounter::networkOf(boost::asio::ip::make_address("2001:db8:1:2::9")));
    EXPECT_NE(AddressCounter::networkOf(boost::asio::ip::make_address("2001:db8:1:3::4")),
              AddressCounter::networkOf(boost::asio::ip::make_address("2001:db8:1:2::4")));
}

} // namespace
} // namespace Wt::Impl
