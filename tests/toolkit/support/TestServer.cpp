#include "tests/toolkit/support/TestServer.h"

#include "tests/toolkit/support/FakeHost.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <thread>

namespace Wt::Impl {

TestServer::TestServer(const std::function<void(ServerConfig&)>& adjust) : mCore(makeFakeHost) {
    std::signal(SIGPIPE, SIG_IGN);
    char folder[] = "/tmp/wt-server-test-XXXXXX";
    mFolder = ::mkdtemp(folder);
    mRoot = mFolder / "root";
    mSpool = mFolder / "spool";
    std::filesystem::create_directories(mRoot);
    std::filesystem::create_directories(mSpool);
    ServerConfig& config = mCore.config;
    config.docRoot = mRoot;
    config.spoolFolder = mSpool;
    config.accessLog = "-";
    config.httpAddress = "127.0.0.1";
    config.httpPort = 0;
    config.maxAnonymousConnectionsPerAddress = 1000;
    if (adjust) adjust(config);
    mCore.entries.push_back({"/", {}, "/favicon.ico"});
    mCore.start();
}

TestServer::~TestServer() {
    mCore.stop();
    std::filesystem::remove_all(mFolder);
}

std::size_t TestServer::spooledFiles() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(mSpool), {}));
}

bool comesTrue(const std::function<bool()>& condition) {
    for (int i = 0; i < 2000; ++i) {
        if (condition()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

} // namespace Wt::Impl
