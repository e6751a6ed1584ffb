#pragma once

#include <string>

namespace Wt::Impl {

struct ServerConfig;

/// Takes from the toolkit's configuration file (XML) what this server heeds of it:
/// `<server><application-settings><session-management><reload-is-new-session>true|false`.
/// Throws WServer::Exception when the file cannot be read, or the setting is neither.
void readConfigFile(const std::string& file, ServerConfig& config);

} // namespace Wt::Impl
