#pragma once

#include "server/ServerCore.h"

#include <filesystem>
#include <string>

namespace Wt::Impl {

/// A server with fake sessions on a port of its own, plain HTTP, and an empty document root and spool folder.
class TestServer {
public:
    /// `adjust` may change the configuration before the start.
    explicit TestServer(const std::function<void(ServerConfig&)>& adjust = {});
    ~TestServer();

    int port() const { return mCore.httpPort(); }
    std::string origin() const { return "http://127.0.0.1:" + std::to_string(port()); }
    SessionRegistry& sessions() { return *mCore.sessions(); }
    const std::filesystem::path& docRoot() const { return mRoot; }
    const std::filesystem::path& spool() const { return mSpool; }
    std::size_t spooledFiles() const;
    void stop() { mCore.stop(); }

private:
    std::filesystem::path mFolder, mRoot, mSpool;
    ServerCore mCore;
};

/// Waits for what another thread does; false after ten seconds.
bool comesTrue(const std::function<bool()>& condition);

} // namespace Wt::Impl
