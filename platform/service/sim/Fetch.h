// Fetching of files, from this machine or from a server.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace zeqd {

struct FetchSource {
    std::string protocol; ///< ftp, http, https, tftp or file
    std::string location; ///< server, with a port behind a colon if need be
    std::string filename; ///< path on the server, or on this machine
    std::string username;
    std::string password;
};

struct FetchRules {
    std::size_t limit;         ///< bytes; a larger file is refused
    std::string folder = {};   ///< that files of this machine may come from
    bool localServers = false; ///< servers may be on this machine or its own link
    std::chrono::seconds connect{15};
    std::chrono::seconds total{300};
    std::chrono::seconds stall{30}; ///< without a byte a second
    std::string authorities = {};   ///< PEM file that HTTPS servers are held against; empty = the system's
};

/// The whole file, or nothing with the reason in `why`, which holds neither login nor password. Takes as long
/// as the server does, up to its deadlines; not for the event loop.
std::optional<std::string> fetchFile(const FetchSource& source, const FetchRules& rules, std::string& why);

/// The process is about to end: fetches that run, and all later ones, give up within a second or two.
void abandonFetches();

} // namespace zeqd
