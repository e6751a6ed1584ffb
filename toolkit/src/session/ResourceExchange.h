#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace Wt::Impl {

/// A file that came with a multipart request, already in its spool file. The exchange removes the file when
/// it ends, unless somebody stole it.
struct SpooledFile {
    std::string field;      ///< name of the form field
    std::string clientName; ///< as the browser gave it: hostile
    std::string mimeType;   ///< as the browser gave it
    std::string spoolPath;  ///< absolute, in /tmp or the configured spool folder, mode 0600
    std::uint64_t size = 0; ///< bytes
    bool stolen = false;
};

/// One HTTP request for a resource of a session and its answer. Handed to the session's thread; made and
/// finished by the server. Losing the last reference without finish() answers 500.
class ResourceExchange {
public:
    virtual ~ResourceExchange() = default;

    std::string method;     ///< "GET" or "POST"
    std::string resourceId; ///< path element behind the resource base
    std::map<std::string, std::vector<std::string>> parameters;
    std::map<std::string, std::string> headers; ///< lower-case names
    std::vector<SpooledFile> files;
    std::uint64_t tooLarge =
        0; ///< not 0: the body was refused for its size (bytes announced); there are no files

    /// Status and headers; before the first write. `contentLength` in bytes, or -1 for chunks.
    virtual void start(int status, const std::vector<std::pair<std::string, std::string>>& headers,
                       std::int64_t contentLength) = 0;

    /// Sends a piece. `sent` runs on an I/O thread when the browser has taken it (post back to the session
    /// there); it gets false when the connection is gone, and nothing further is to be written then.
    virtual void write(std::string data, std::function<void(bool)> sent) = 0;

    virtual void finish() = 0;
};

} // namespace Wt::Impl
