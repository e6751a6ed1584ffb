#include "platform/service/sim/Fetch.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <curl/curl.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <mutex>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zeqd {

namespace {

std::atomic<bool> abandoned{false};

struct Sink {
    std::string bytes;
    std::size_t limit;
    bool full = false;
};

std::size_t take(char* data, std::size_t size, std::size_t count, void* user) {
    auto* sink = static_cast<Sink*>(user);
    sink->full = sink->bytes.size() + size * count > sink->limit;
    if (sink->full) return 0;
    sink->bytes.append(data, size * count);
    return size * count;
}

/// Called about once a second; anything but 0 ends the fetch.
int goesOn(void*, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    return abandoned ? 1 : 0;
}

std::string tooLarge(std::size_t limit) {
    return "larger than " + std::to_string(limit) + " bytes";
}

class File {
public:
    explicit File(int fd) : mFd(fd) {}
    ~File() {
        if (mFd >= 0) close(mFd);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    int get() const { return mFd; }

private:
    int mFd;
};

/// Where the open file really is, whatever links led there.
bool liesIn(int fd, const std::string& folder) {
    std::error_code failure;
    const std::string place = std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(fd), failure);
    const std::string root = failure ? "" : std::filesystem::canonical(folder, failure).string();
    return !failure && root.size() > 1 && place.starts_with(root + '/');
}

/// A pipe would wait for a writer, a device has no end: plain files only, opened without waiting.
std::optional<std::string> readLocal(const std::string& path, const FetchRules& rules, std::string& why) {
    const File file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat info {};
    why = "cannot be read";
    if (file.get() < 0 || fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    if (!liesIn(file.get(), rules.folder)) {
        why = "is not in the folder of uploads";
        return std::nullopt;
    }
    if (static_cast<std::size_t>(info.st_size) > rules.limit) {
        why = tooLarge(rules.limit);
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
    constexpr std::size_t kChunk = 1U << 20;
    for (std::size_t at = 0; at < bytes.size();) {
        if (abandoned) return std::nullopt;
        const ssize_t got = read(file.get(), bytes.data() + at, std::min(kChunk, bytes.size() - at));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return std::nullopt;
        at += static_cast<std::size_t>(got);
    }
    return bytes;
}

bool isLocal(const in6_addr& address) {
    if (IN6_IS_ADDR_V4MAPPED(&address) || IN6_IS_ADDR_V4COMPAT(&address) ||
        IN6_IS_ADDR_UNSPECIFIED(&address) || IN6_IS_ADDR_LOOPBACK(&address)) {
        const unsigned char* four = address.s6_addr + 12;
        return four[0] == 0 || four[0] == 127 || (four[0] == 169 && four[1] == 254);
    }
    return IN6_IS_ADDR_LINKLOCAL(&address);
}

/// An address of this machine or of its own link, where what answers often trusts its neighbours.
bool isLocal(const sockaddr* address) {
    in6_addr six{};
    if (address->sa_family == AF_INET6) {
        six = reinterpret_cast<const sockaddr_in6*>(address)->sin6_addr;
    } else if (address->sa_family == AF_INET) {
        six.s6_addr[10] = six.s6_addr[11] = 0xFF; // as it is mapped into IPv6
        std::memcpy(six.s6_addr + 12, &reinterpret_cast<const sockaddr_in*>(address)->sin_addr, 4);
    } else {
        return true;
    }
    return isLocal(six);
}

/// Judged when the name has been looked up, so that no name leads there.
curl_socket_t openSocket(void*, curlsocktype, curl_sockaddr* address) {
    if (isLocal(&address->addr)) return CURL_SOCKET_BAD;
    return socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

/// By FTP and TFTP the name is a file's, whatever it holds; by HTTP it may have a query, and only what no
/// address can hold is escaped (RFC 3986, section 2).
std::string escaped(const std::string& name, bool http) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    const std::string_view kept = http ? "/-._~!$&'()*+,;=:@%?" : "/-._~";
    std::string out;
    for (const char c : name) {
        const bool plain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        if (plain || kept.find(c) != std::string_view::npos)
            out += c;
        else
            out += {'%', kHex[c >> 4 & 15], kHex[c & 15]};
    }
    return out;
}

std::string addressOf(const FetchSource& source) {
    std::string address = source.protocol + "://" + source.location;
    if (!address.ends_with('/') && !source.filename.starts_with('/')) address += '/';
    return address + escaped(source.filename, source.protocol.starts_with("http"));
}

void setRules(CURL* curl, const FetchRules& rules) {
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, static_cast<long>(rules.connect.count()));
    curl_easy_setopt(curl, CURLOPT_TIMEOUT, static_cast<long>(rules.total.count()));
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_TIME, static_cast<long>(rules.stall.count()));
    curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, goesOn);
    if (!rules.localServers) curl_easy_setopt(curl, CURLOPT_OPENSOCKETFUNCTION, openSocket);
    if (!rules.authorities.empty()) curl_easy_setopt(curl, CURLOPT_CAINFO, rules.authorities.c_str());
}

} // namespace

std::optional<std::string> fetchFile(const FetchSource& source, const FetchRules& rules, std::string& why) {
    if (source.protocol == "file") return readLocal(source.filename, rules, why);
    static std::once_flag started;
    std::call_once(started, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), curl_easy_cleanup);
    why = "out of memory";
    if (!curl) return std::nullopt;
    Sink sink{{}, rules.limit};
    const std::string address = addressOf(source);
    curl_easy_setopt(curl.get(), CURLOPT_URL, address.c_str());
    // The address alone decides: no redirection to another protocol, no proxy of the environment.
    curl_easy_setopt(curl.get(), CURLOPT_PROTOCOLS_STR, source.protocol.c_str());
    curl_easy_setopt(curl.get(), CURLOPT_PROXY, "");
    curl_easy_setopt(curl.get(), CURLOPT_PATH_AS_IS, 1L);
    curl_easy_setopt(curl.get(), CURLOPT_FAILONERROR, 1L);
    setRules(curl.get(), rules);
    curl_easy_setopt(curl.get(), CURLOPT_WRITEFUNCTION, take);
    curl_easy_setopt(curl.get(), CURLOPT_WRITEDATA, &sink);
    if (!source.username.empty()) {
        curl_easy_setopt(curl.get(), CURLOPT_USERNAME, source.username.c_str());
        curl_easy_setopt(curl.get(), CURLOPT_PASSWORD, source.password.c_str());
    }
    const CURLcode result = curl_easy_perform(curl.get());
    constexpr long kFirstRedirection = 300; // of HTTP; FTP has such codes for other things
    long status = 0;
    curl_easy_getinfo(curl.get(), CURLINFO_RESPONSE_CODE, &status);
    const bool elsewhere = source.protocol.starts_with("http") && status >= kFirstRedirection;
    if (result == CURLE_OK && !elsewhere) return std::move(sink.bytes);
    why = sink.full            ? tooLarge(rules.limit)
          : result == CURLE_OK ? "the server points elsewhere"
                               : curl_easy_strerror(result);
    return std::nullopt;
}

void abandonFetches() {
    abandoned = true;
}

} // namespace zeqd
