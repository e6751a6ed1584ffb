#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Wt::Impl {

/// The head of an HTTP request, as it came, within the limits.
struct HttpRequest {
    std::string method;
    std::string target; ///< in origin form: begins with '/'
    std::vector<std::pair<std::string, std::string>>
        headers; ///< names in lower case, in the order of arrival
    bool http11 = true;
    bool keepAlive = true;
    bool hasBody = false;
    std::uint64_t bodyBytes = 0; ///< announced; 0 for a chunked body

    /// The header's value, empty if it is missing. The first one if there are several.
    std::string_view header(std::string_view lowerName) const;

    /// The value of a cookie, empty if it is missing or stands there more than once.
    std::string_view cookie(std::string_view name) const;

    /// The target behind '?'.
    std::string_view query() const;

    /// Whether a comma-separated header names the token, without regard to case. `gzip;q=0` does not count.
    bool headerHasToken(std::string_view lowerName, std::string_view lowerToken) const;
};

/// RFC 6265 `a=1; b=2`. Empty if the name is missing or ambiguous.
std::string_view findCookie(std::string_view cookieHeader, std::string_view name);

} // namespace Wt::Impl
