#pragma once

#include "server/Io.h"

#include <string>

namespace Wt::Impl {

class HttpConnection;

/// Answers the request that the connection has read: exactly one answer, or the connection is ended.
Awaitable<void> route(HttpConnection& connection);

// By address, each in a file of its own. `path` is normalised;
// `rest` is what follows the folder of that kind.
Awaitable<void> serveClientFile(HttpConnection& connection, const std::string& rest); // "HASH/FILE"
Awaitable<void> serveSession(HttpConnection& connection, const std::string& rest); // "start", "poll", "bye"
Awaitable<void> serveWebSocket(HttpConnection& connection);
Awaitable<void> serveResource(HttpConnection& connection, const std::string& rest); // "SESSION/KEY/NAME"

} // namespace Wt::Impl
