#pragma once

#include "server/AccessLog.h"
#include "server/AddressCounter.h"
#include "server/EntryPoints.h"
#include "server/HostNames.h"
#include "server/ServerConfig.h"
#include "server/StaticFiles.h"
#include "session/SessionRegistry.h"

#include <memory>
#include <string>
#include <vector>

namespace Wt::Impl {

/// What all connections of a running server share. Constant from the first one on, but for what locks itself.
struct Site {
    Site(const ServerConfig& settings, std::vector<EntryPoint> entryPoints, HostFactory makeHost)
        : config(settings), base(settings.deployPath == "/" ? "" : settings.deployPath),
          entries(std::move(entryPoints)),
          sessions(std::make_shared<SessionRegistry>(SessionLimits{settings.maxSessions,
                                                                   settings.maxSessionsPerAddress,
                                                                   settings.maxAnonymousSessions},
                                                     std::move(makeHost))),
          files(settings.docRoot, settings.staticPaths, settings.compress), accessLog(settings.accessLog),
          connections(settings.maxConnections, settings.maxConnectionsPerAddress,
                      settings.maxAnonymousConnectionsPerAddress),
          hosts(settings.hostNames) {}

    /// The entry point at a path, a trailing slash more or less; null if there is none.
    const EntryPoint* entryAt(const std::string& path) const;

    const ServerConfig config;
    const std::string base; ///< deployment path without its trailing slash
    const std::vector<EntryPoint> entries;
    const std::shared_ptr<SessionRegistry> sessions;
    StaticFiles files;
    AccessLog accessLog;
    AddressCounter connections;
    HostNames hosts;
    int tlsPort = 0; ///< where TLS is spoken; 0: nowhere. Plain requests are sent on to it
};

} // namespace Wt::Impl
