#pragma once

#include <boost/asio/ssl/context.hpp>

namespace Wt::Impl {

struct ServerConfig;

/// TLS 1.2 and later with the configured certificate, key, parameters and ciphers. Throws WServer::Exception
/// that names the option and the file.
boost::asio::ssl::context makeTlsContext(const ServerConfig& config);

} // namespace Wt::Impl
