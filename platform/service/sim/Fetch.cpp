#include "platform/service/sim/Fetch.h"

#include <atomic>
#include <curl/curl.h>
#include <fstream>
#include <memory>
#include <mutex>

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

std::optional<std::string> readLocal(const std::string& path, std::size_t limit, std::string& why) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const std::streamoff size = file ? static_cast<std::streamoff>(file.tellg()) : -1;
    why = "cannot be read";
    if (size < 0) return std::nullopt;
    if (static_cast<std::size_t>(size) > limit) {
        why = tooLarge(limit);
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.seekg(0);
    file.read(bytes.data(), size);
    return file ? std::optional(std::move(bytes)) : std::nullopt;
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
    if (!rules.authorities.empty()) curl_easy_setopt(curl, CURLOPT_CAINFO, rules.authorities.c_str());
}

} // namespace

std::optional<std::string> fetchFile(const FetchSource& source, const FetchRules& rules, std::string& why) {
    if (source.protocol == "file") return readLocal(source.filename, rules.limit, why);
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
