#pragma once

#include "core/Limits.h"

#include <string>
#include <vector>

namespace Wt::Impl {

/// What the command line configures. Checked for form; ports, folders and certificates are tried by start().
struct ServerConfig {
    std::string docRoot; ///< folder; empty: no static files
    std::vector<std::string>
        staticPaths; ///< "/resources": if not empty, only what lies below these is a static file
    std::string appRoot;
    std::string errRoot;
    std::string accessLog;        ///< file; empty: standard output; "-": none
    std::string deployPath = "/"; ///< begins with '/'
    std::string sessionIdPrefix;
    std::string pidFile;
    std::string serverName;
    std::vector<std::string> hostNames; ///< further names under which browsers may ask
    std::string spoolFolder = "/tmp";
    bool compress = true;
    bool gdb = false;
    bool reloadIsNewSession = true; ///< false: a page that is loaded anew goes on with its session
    int threads = 4;

    std::string httpAddress;  ///< numeric; empty: no plain HTTP
    int httpPort = 80;        ///< 0: the system chooses
    std::string httpsAddress; ///< numeric; empty: no TLS
    int httpsPort = 443;
    std::string sslCertificate; ///< PEM, the whole chain
    std::string sslPrivateKey;  ///< PEM
    std::string sslTmpDh;       ///< PEM; empty: the library's own parameters
    std::string sslCipherList;  ///< for TLS 1.2; empty: the library's choice, forward secrecy only

    std::uint64_t maxRequestSize = kUploadBytes;
    std::size_t maxSessions = kSessions;
    std::size_t maxSessionsPerAddress = kSessionsPerAddress;
    std::size_t maxAnonymousSessions = kAnonymousSessions;
    std::size_t maxConnections = kConnections;
    std::size_t maxConnectionsPerAddress = kConnectionsPerAddress;
    std::size_t maxAnonymousConnectionsPerAddress = kAnonymousPerAddress;

    /// Both listeners are one socket whose first byte tells what is spoken.
    bool sharesPort() const {
        return !httpAddress.empty() && httpAddress == httpsAddress && httpPort == httpsPort;
    }
};

/// Reads a command line (argv[0] included) and, below it, a file of `name = value` lines ("" for none).
/// Throws WServer::Exception that names the option. `--help` prints to standard output and exits with 0.
ServerConfig readServerConfig(int argc, const char* const argv[], const std::string& file);

} // namespace Wt::Impl
