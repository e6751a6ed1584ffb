#include "platform/service/sim/Fetch.h"

#include <curl/curl.h>
#include <fstream>
#include <memory>
#include <mutex>

namespace zeqd {

namespace {

constexpr long kConnectSeconds = 15;
constexpr long kTotalSeconds = 300;
constexpr long kStallSeconds = 30; ///< without a byte a second

struct Sink {
    std::string bytes;
    std::size_t limit;
};

std::size_t take(char* data, std::size_t size, std::size_t count, void* user) {
    auto* sink = static_cast<Sink*>(user);
    if (sink->bytes.size() + size * count > sink->limit) return 0;
    sink->bytes.append(data, size * count);
    return size * count;
}

std::optional<std::string> readLocal(const std::string& path, std::size_t limit) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const std::streamoff size = file ? static_cast<std::streamoff>(file.tellg()) : -1;
    if (size < 0 || static_cast<std::size_t>(size) > limit) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.seekg(0);
    file.read(bytes.data(), size);
    return file ? std::optional(std::move(bytes)) : std::nullopt;
}

std::string addressOf(const FetchSource& source) {
    std::string address = source.protocol + "://" + source.location;
    if (!address.ends_with('/') && !source.filename.starts_with('/')) address += '/';
    return address + source.filename;
}

} // namespace

std::optional<std::string> fetchFile(const FetchSource& source, std::size_t limit) {
    if (source.protocol == "file") return readLocal(source.filename, limit);
    static std::once_flag started;
    std::call_once(started, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), curl_easy_cleanup);
    if (!curl) return std::nullopt;
    Sink sink{{}, limit};
    const std::string address = addressOf(source);
    curl_easy_setopt(curl.get(), CURLOPT_URL, address.c_str());
    // The address alone decides: no redirection to another protocol, no proxy of the environment.
    curl_easy_setopt(curl.get(), CURLOPT_PROTOCOLS_STR, source.protocol.c_str());
    curl_easy_setopt(curl.get(), CURLOPT_PROXY, "");
    curl_easy_setopt(curl.get(), CURLOPT_PATH_AS_IS, 1L);
    curl_easy_setopt(curl.get(), CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(curl.get(), CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl.get(), CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
    curl_easy_setopt(curl.get(), CURLOPT_TIMEOUT, kTotalSeconds);
    curl_easy_setopt(curl.get(), CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(curl.get(), CURLOPT_LOW_SPEED_TIME, kStallSeconds);
    curl_easy_setopt(curl.get(), CURLOPT_WRITEFUNCTION, take);
    curl_easy_setopt(curl.get(), CURLOPT_WRITEDATA, &sink);
    if (!source.username.empty()) {
        curl_easy_setopt(curl.get(), CURLOPT_USERNAME, source.username.c_str());
        curl_easy_setopt(curl.get(), CURLOPT_PASSWORD, source.password.c_str());
    }
    if (curl_easy_perform(curl.get()) != CURLE_OK) return std::nullopt;
    return std::move(sink.bytes);
}

} // namespace zeqd
