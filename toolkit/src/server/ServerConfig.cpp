#include "server/ServerConfig.h"

#include "server/ConfigFile.h"

#include <Wt/WServer.h>

#include <boost/program_options.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

namespace Wt::Impl {

namespace po = boost::program_options;

namespace {

template <typename T>
po::typed_value<T>* into(T& target) {
    return po::value<T>(&target)->value_name("ARG");
}

po::options_description describe(ServerConfig& config, std::string& docRoot, std::string& ignored,
                                 bool& noCompression) {
    // Options that many will know are spelled as they know them; a repeated one: the last wins for none of
    // them, the parser refuses it.
    po::options_description general("General options");
    general.add_options()("help,h", "print this and exit")("threads,t", into(config.threads),
                                                           "number of threads (default 4)")(
        "host", po::value(&config.hostNames)->value_name("NAME"),
        "name by which browsers may reach this server, beside its addresses, its own name and those of its "
        "certificate; may be repeated")("servername", into(config.serverName),
                                        "name of this host in messages (default: the system's)")(
        "docroot", into(docRoot),
        "folder of static files; \"DIR;/a,/b\": only /a and /b below it are served")(
        "approot", into(config.appRoot), "folder of the application's private files")(
        "errroot", into(config.errRoot), "folder of error pages, STATUS.html")(
        "accesslog", into(config.accessLog), "access log file (default: standard output); \"-\" for none")(
        "no-compression", po::bool_switch(&noCompression), "do not compress answers")(
        "deploy-path", into(config.deployPath), "path of the application (default /)")(
        "session-id-prefix", into(config.sessionIdPrefix),
        "put before every session's name")("pid-file,p", into(config.pidFile), "file for the process id")(
        "config,c", into(ignored),
        "configuration file of the toolkit (XML); reload-is-new-session is read from it")(
        "max-memory-request-size", into(ignored), "accepted; uploads always go to the spool folder")(
        "max-request-size", into(config.maxRequestSize), "largest upload in bytes (default 128 MiB)")(
        "spool-folder", into(config.spoolFolder), "folder of uploads (default /tmp)")(
        "gdb", po::bool_switch(&config.gdb), "leave SIGINT to the debugger");
    po::options_description http("HTTP");
    http.add_options()("http-address", into(config.httpAddress),
                       "numeric IPv4 or IPv6 address, 0.0.0.0 for all")("http-port", into(config.httpPort),
                                                                        "port (default 80)");
    po::options_description https("HTTPS");
    https.add_options()("https-address", into(config.httpsAddress),
                        "numeric address; with the same port as HTTP both are spoken on it")(
        "https-port", into(config.httpsPort), "port (default 443)")(
        "ssl-certificate", into(config.sslCertificate), "PEM file with the certificate chain")(
        "ssl-private-key", into(config.sslPrivateKey), "PEM file with the private key")(
        "ssl-tmp-dh", into(config.sslTmpDh), "PEM file with Diffie-Hellman parameters")(
        "ssl-cipherlist", into(config.sslCipherList), "ciphers of TLS 1.2, in OpenSSL's notation");
    po::options_description limits("Limits");
    limits.add_options()("max-sessions", into(config.maxSessions), "sessions of users (default 2000)")(
        "max-sessions-per-address", into(config.maxSessionsPerAddress),
        "sessions of one address (default 200)")("max-anonymous-sessions", into(config.maxAnonymousSessions),
                                                 "sessions that nobody has logged in to (default 500)")(
        "max-connections", into(config.maxConnections), "connections in all (default 10000)")(
        "max-connections-per-address", into(config.maxConnectionsPerAddress), "of one address (default 256)")(
        "max-anonymous-connections-per-address", into(config.maxAnonymousConnectionsPerAddress),
        "of one address, of browsers where nobody has logged in (default 32)");
    po::options_description all;
    return all.add(general).add(http).add(https).add(limits);
}

[[noreturn]] void refuse(const std::string& option, const std::string& why) {
    throw WServer::Exception("--" + option + ": " + why);
}

void checkPort(const char* option, int port) {
    if (port < 0 || port > 65535) refuse(option, "'" + std::to_string(port) + "' is no port; use 0 to 65535");
}

void splitDocRoot(const std::string& value, ServerConfig& config) {
    const std::size_t mark = value.find(';');
    config.docRoot = value.substr(0, mark);
    if (mark == value.npos) return;
    std::istringstream paths(value.substr(mark + 1));
    for (std::string path; std::getline(paths, path, ',');) {
        if (path.empty()) continue;
        if (path.front() != '/') refuse("docroot", "the path '" + path + "' must begin with '/'");
        while (path.size() > 1 && path.back() == '/') path.pop_back();
        config.staticPaths.push_back(path);
    }
}

void check(ServerConfig& config, const std::string& configFile) {
    checkPort("http-port", config.httpPort);
    checkPort("https-port", config.httpsPort);
    if (config.threads < 1 || config.threads > 64) refuse("threads", "use 1 to 64");
    if (config.deployPath.empty() || config.deployPath.front() != '/')
        refuse("deploy-path", "must begin with '/'");
    if (config.httpAddress.empty() && config.httpsAddress.empty())
        throw WServer::Exception("give --http-address or --https-address, or both");
    if (!config.httpsAddress.empty() && config.sslCertificate.empty())
        refuse("ssl-certificate", "needed with --https-address");
    if (!config.httpsAddress.empty() && config.sslPrivateKey.empty())
        refuse("ssl-private-key", "needed with --https-address");
    if (!configFile.empty()) readConfigFile(configFile, config);
    const bool plainPrefix =
        std::all_of(config.sessionIdPrefix.begin(), config.sessionIdPrefix.end(), [](unsigned char c) {
            return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' ||
                   c == '_';
        });
    if (!plainPrefix || config.sessionIdPrefix.size() > 32)
        refuse("session-id-prefix", "use up to 32 letters, digits, '-' and '_'");
    std::error_code ec;
    if (!std::filesystem::is_directory(config.spoolFolder, ec))
        refuse("spool-folder", "'" + config.spoolFolder + "' is no folder");
}

} // namespace

ServerConfig readServerConfig(int argc, const char* const argv[], const std::string& file) {
    ServerConfig config;
    std::string docRoot;
    std::string ignored;
    bool noCompression = false;
    const po::options_description options = describe(config, docRoot, ignored, noCompression);
    po::variables_map values;
    try {
        // No guessing: an abbreviation that is unambiguous today need not be so tomorrow.
        const int style = po::command_line_style::default_style & ~po::command_line_style::allow_guessing;
        const po::positional_options_description none;
        po::store(po::command_line_parser(argc, argv).options(options).positional(none).style(style).run(),
                  values);
        if (values.count("help") != 0) {
            std::cout << options << std::flush;
            std::exit(0);
        }
        if (!file.empty()) {
            std::ifstream stream(file);
            if (!stream) throw WServer::Exception("can't read the configuration file '" + file + "'");
            po::store(po::parse_config_file(stream, options), values);
        }
        po::notify(values);
    } catch (const po::error& error) {
        throw WServer::Exception(std::string(error.what()) + " (--help lists the options)");
    }
    config.compress = !noCompression;
    splitDocRoot(docRoot, config);
    check(config, values.count("config") != 0 ? values["config"].as<std::string>() : std::string());
    return config;
}

} // namespace Wt::Impl
