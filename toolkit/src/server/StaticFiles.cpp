#include "server/StaticFiles.h"

#include "core/Limits.h"
#include "server/Gzip.h"

#include <Wt/WServer.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Wt::Impl {

namespace {

struct MimeRow {
    std::string_view extension;
    std::string_view type;
    bool compressible;
};

constexpr MimeRow kMimeTypes[] = {
    {"html", "text/html; charset=utf-8", true},
    {"css", "text/css; charset=utf-8", true},
    {"js", "text/javascript; charset=utf-8", true},
    {"mjs", "text/javascript; charset=utf-8", true},
    {"json", "application/json", true},
    {"xml", "text/xml; charset=utf-8", true},
    {"txt", "text/plain; charset=utf-8", true},
    {"csv", "text/csv; charset=utf-8", true},
    {"svg", "image/svg+xml", true},
    {"ico", "image/x-icon", true},
    {"png", "image/png", false},
    {"gif", "image/gif", false},
    {"jpg", "image/jpeg", false},
    {"jpeg", "image/jpeg", false},
    {"webp", "image/webp", false},
    {"woff", "font/woff", false},
    {"woff2", "font/woff2", false},
    {"pdf", "application/pdf", false},
};
constexpr MimeRow kUnknownType = {"", "application/octet-stream", false};
constexpr std::size_t kWorthPacking = 256; ///< bytes; less gains nothing

const MimeRow& mimeRowOf(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    if (dot == path.npos) return kUnknownType;
    const auto* row =
        std::find_if(std::begin(kMimeTypes), std::end(kMimeTypes),
                     [&](const MimeRow& candidate) { return candidate.extension == path.substr(dot + 1); });
    return row != std::end(kMimeTypes) ? *row : kUnknownType;
}

std::int64_t modifiedNanoseconds(const struct stat& status) {
    return status.st_mtim.tv_sec * 1'000'000'000LL + status.st_mtim.tv_nsec;
}

std::string hex(std::uint64_t number) {
    char text[17];
    std::snprintf(text, sizeof text, "%llx", static_cast<unsigned long long>(number));
    return text;
}

// Where an open file really lies; empty if that can't be told.
std::string realPlace(int descriptor) {
    char place[PATH_MAX];
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = ::readlink(link.c_str(), place, sizeof place);
    return length > 0 ? std::string(place, static_cast<std::size_t>(length)) : std::string();
}

std::string readWhole(int descriptor, std::uint64_t size) {
    std::string content(size, '\0');
    std::size_t got = 0;
    while (got < content.size()) {
        const ssize_t n =
            ::pread(descriptor, content.data() + got, content.size() - got, static_cast<off_t>(got));
        if (n <= 0) break;
        got += static_cast<std::size_t>(n);
    }
    content.resize(got);
    return content;
}

} // namespace

std::string_view mimeTypeOf(std::string_view path) {
    return mimeRowOf(path).type;
}

StaticFiles::OpenFile::OpenFile(OpenFile&& other) noexcept
    : descriptor(std::exchange(other.descriptor, -1)), size(other.size) {}

StaticFiles::OpenFile& StaticFiles::OpenFile::operator=(OpenFile&& other) noexcept {
    std::swap(descriptor, other.descriptor);
    size = other.size;
    return *this;
}

StaticFiles::OpenFile::~OpenFile() {
    if (descriptor >= 0) ::close(descriptor);
}

std::size_t StaticFiles::Entry::cost() const {
    return sizeof(Entry) + path.size() + headers.size() + gzipHeaders.size() + (body ? body->size() : 0) +
           (gzipBody ? gzipBody->size() : 0);
}

bool StaticFiles::Entry::isOf(const struct stat& status) const {
    return inode == status.st_ino && size == static_cast<std::uint64_t>(status.st_size) &&
           modified == modifiedNanoseconds(status);
}

StaticFiles::StaticFiles(const std::string& root, std::vector<std::string> onlyBelow, bool compress)
    : mOnlyBelow(std::move(onlyBelow)), mCompress(compress) {
    if (root.empty()) return;
    char* resolved = ::realpath(root.c_str(), nullptr);
    if (!resolved) throw WServer::Exception("--docroot: '" + root + "': " + std::strerror(errno));
    mRoot = resolved;
    std::free(resolved);
    if (::access(mRoot.c_str(), R_OK | X_OK) != 0)
        throw WServer::Exception("--docroot: '" + root + "': " + std::strerror(errno));
    if (mRoot == "/") throw WServer::Exception("--docroot: '/' would serve the whole system");
}

StaticFiles::Answer StaticFiles::get(const std::string& path, const HttpRequest& request) {
    Answer answer{errorResponse(404), {}};
    if (!isServed(path)) return answer;
    EntryPtr entry = fromCache(path);
    if (!entry) {
        struct stat status {};
        answer.file = open(path, status);
        if (answer.file.descriptor < 0) return answer;
        auto fresh = std::make_shared<Entry>(describe(path, status));
        if (answer.file.size <= kCachedFileBytes) {
            const OpenFile file = std::move(answer.file);
            fresh->body = std::make_shared<const std::string>(readWhole(file.descriptor, file.size));
            if (fresh->body->size() != file.size) return answer; // it is being written just now
            if (mCompress && mimeRowOf(path).compressible && file.size >= kWorthPacking) {
                auto packed = gzip(*fresh->body, 6);
                if (!packed.empty() && packed.size() < fresh->body->size())
                    fresh->gzipBody = std::make_shared<const std::string>(std::move(packed));
            }
            keep(fresh);
        }
        entry = std::move(fresh);
    }

    const bool packed = entry->gzipBody && request.headerHasToken("accept-encoding", "gzip");
    answer.response = HttpResponse();
    answer.response.headers = packed ? entry->gzipHeaders : entry->headers;
    const std::string_view known = request.header("if-none-match");
    if (!known.empty() && (known.find(entry->etag) != known.npos || known == "*")) {
        answer.response.status = 304;
        answer.file = OpenFile();
    } else {
        answer.response.body = packed ? entry->gzipBody : entry->body;
    }
    return answer;
}

bool StaticFiles::isServed(const std::string& path) const {
    if (mRoot.empty() || path.empty() || path.back() == '/' || path.find("/.") != path.npos) return false;
    const auto isBelow = [&](const std::string& top) {
        return top == "/" || (path.compare(0, top.size(), top) == 0 && path[top.size()] == '/') ||
               path == top;
    };
    return mOnlyBelow.empty() || std::any_of(mOnlyBelow.begin(), mOnlyBelow.end(), isBelow);
}

StaticFiles::EntryPtr StaticFiles::fromCache(const std::string& path) {
    const std::lock_guard lock(mMutex);
    const auto found = mByPath.find(path);
    if (found == mByPath.end()) return nullptr;
    Slot& slot = *found->second;
    const auto now = std::chrono::steady_clock::now();
    if (now - slot.checked > kFileCheckPeriod) {
        struct stat status {};
        if (::stat((mRoot + path).c_str(), &status) != 0 || !slot.entry->isOf(status)) {
            forget(path);
            return nullptr;
        }
        slot.checked = now;
    }
    mRecent.splice(mRecent.begin(), mRecent, found->second);
    return slot.entry;
}

void StaticFiles::keep(EntryPtr entry) {
    const std::lock_guard lock(mMutex);
    forget(entry->path);
    mBytes += entry->cost();
    mRecent.push_front({entry, std::chrono::steady_clock::now()});
    mByPath[entry->path] = mRecent.begin();
    while (mBytes > kFileCacheBytes) forget(std::string(mRecent.back().entry->path));
}

void StaticFiles::forget(const std::string& path) {
    const auto found = mByPath.find(path);
    if (found == mByPath.end()) return;
    mBytes -= found->second->entry->cost();
    mRecent.erase(found->second);
    mByPath.erase(found);
}

StaticFiles::OpenFile StaticFiles::open(const std::string& path, struct stat& status) const {
    OpenFile file;
    OpenFile none;
    // Not blocked by a FIFO; checked after opening, so that nobody can swap what was checked.
    file.descriptor = ::open((mRoot + path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file.descriptor < 0 || ::fstat(file.descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return none;
    if (realPlace(file.descriptor).compare(0, mRoot.size() + 1, mRoot + "/") != 0) return none;
    file.size = static_cast<std::uint64_t>(status.st_size);
    return file;
}

StaticFiles::Entry StaticFiles::describe(const std::string& path, const struct stat& status) const {
    Entry entry;
    entry.path = path;
    entry.inode = status.st_ino;
    entry.size = static_cast<std::uint64_t>(status.st_size);
    entry.modified = modifiedNanoseconds(status);
    entry.etag =
        hex(entry.inode) + "-" + hex(entry.size) + "-" + hex(static_cast<std::uint64_t>(entry.modified));
    HttpResponse common;
    common.add("Content-Type", mimeTypeOf(path));
    common.add("Last-Modified", httpDate(status.st_mtim.tv_sec));
    common.add("Cache-Control", "no-cache"); // kept, and asked for again: a new firmware shows at once
    common.add("Vary", "Accept-Encoding");
    entry.headers = common.headers + "ETag: \"" + entry.etag + "\"\r\n";
    entry.gzipHeaders = common.headers + "ETag: \"" + entry.etag + "-gz\"\r\nContent-Encoding: gzip\r\n";
    return entry;
}

} // namespace Wt::Impl
