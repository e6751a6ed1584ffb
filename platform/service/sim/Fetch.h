// Fetching of files, from this machine or from a server.
#pragma once

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

/// The whole file, or nothing. Takes as long as the server does, up to its deadlines; not for the event loop.
std::optional<std::string> fetchFile(const FetchSource& source, std::size_t limit);

} // namespace zeqd
