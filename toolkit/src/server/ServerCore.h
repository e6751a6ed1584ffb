#pragma once

#include "server/EntryPoints.h"
#include "server/ServerConfig.h"
#include "session/SessionRegistry.h"

#include <Wt/WIOService.h>

#include <memory>
#include <string>
#include <vector>

namespace Wt::Impl {

/// What a WServer holds: the configuration, and while it runs the sockets, threads and sessions.
class ServerCore {
public:
    explicit ServerCore(HostFactory makeHost);
    ~ServerCore();

    /// Throws WServer::Exception; nothing runs then.
    void start();
    void stop();
    bool isRunning() const { return mRunning != nullptr; }
    int httpPort() const;

    /// Null while the server does not run.
    SessionRegistry* sessions() const;

    ServerConfig config;
    std::vector<EntryPoint> entries;
    WIOService ioService;

private:
    struct Running;
    const HostFactory mMakeHost;
    std::unique_ptr<Running> mRunning;
};

} // namespace Wt::Impl
