#pragma once

#include "server/HttpRequest.h"
#include "server/HttpResponse.h"

#include <chrono>
#include <cstdint>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct stat;

namespace Wt::Impl {

/// The files below the document root, with a bounded cache of small ones and their compressed forms.
/// Thread-safe. Nothing outside of the root is ever opened for reading: not by "..", not through a symbolic
/// link that leads out; names that begin with a dot do not exist.
class StaticFiles {
public:
    /// `root`: folder, empty for none. `onlyBelow`: paths that are served, empty for all. Throws
    /// WServer::Exception if the root can't be opened.
    StaticFiles(const std::string& root, std::vector<std::string> onlyBelow, bool compress);

    /// A file too large for the cache; the connection reads it piece by piece.
    struct OpenFile {
        int descriptor = -1;
        std::uint64_t size = 0;

        OpenFile() = default;
        OpenFile(OpenFile&& other) noexcept;
        OpenFile& operator=(OpenFile&& other) noexcept;
        ~OpenFile();
    };

    struct Answer {
        HttpResponse response;
        OpenFile file; ///< the body if its descriptor is not -1
    };

    /// `path`: normalised. 200, 304 or 404.
    Answer get(const std::string& path, const HttpRequest& request);

private:
    struct Entry {
        std::string path;
        std::string headers;     ///< of the plain form
        std::string gzipHeaders; ///< of the compressed one
        std::string etag;
        std::shared_ptr<const std::string> body;
        std::shared_ptr<const std::string> gzipBody; ///< null: not worth it
        std::uint64_t inode = 0, size = 0;
        std::int64_t modified = 0; ///< nanoseconds since 1970

        std::size_t cost() const;
        bool isOf(const struct stat& status) const;
    };
    using EntryPtr = std::shared_ptr<const Entry>;
    struct Slot {
        EntryPtr entry;
        std::chrono::steady_clock::time_point checked; ///< against the disk
    };

    bool isServed(const std::string& path) const;
    EntryPtr fromCache(const std::string& path);
    void keep(EntryPtr entry);
    void forget(const std::string& path);
    OpenFile open(const std::string& path, struct stat& status) const;
    Entry describe(const std::string& path, const struct stat& status) const;

    std::string mRoot; ///< resolved, no trailing slash; empty: none
    const std::vector<std::string> mOnlyBelow;
    const bool mCompress;
    std::mutex mMutex;
    std::list<Slot> mRecent; ///< the latest used first
    std::unordered_map<std::string, std::list<Slot>::iterator> mByPath;
    std::size_t mBytes = 0;
};

/// By the extension; "application/octet-stream" if it is unknown.
std::string_view mimeTypeOf(std::string_view path);

} // namespace Wt::Impl
