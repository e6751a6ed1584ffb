#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Wt::Impl {

/// The answer to one request, without the headers that every answer has.
struct HttpResponse {
    int status = 200;
    std::string headers; ///< complete lines, each with its "\r\n"
    std::shared_ptr<const std::string> body = nullptr;
    bool close = false; ///< end the connection behind it

    HttpResponse& add(std::string_view name, std::string_view value);
    HttpResponse& setBody(std::string_view contentType, std::string content);
};

/// A short page that says what went wrong, or the operator's own page for that status (--errroot).
HttpResponse errorResponse(int status);

/// "404 Not Found".
std::string_view statusText(int status);

/// Status line, Date, security headers, Connection; then `response.headers`; then the empty line.
/// `bodyBytes`: for Content-Length; -1: the headers tell the length themselves (chunks), -2: there is none
/// (1xx, 204, 304).
std::string responseHead(const HttpResponse& response, bool tls, bool keepAlive, std::int64_t bodyBytes);

/// The head lines that every answer carries, TLS or not.
std::string_view securityHeaders(bool tls);

/// Seconds since 1970 as in "Sun, 06 Nov 1994 08:49:37 GMT" (RFC 9110 5.6.7).
std::string httpDate(std::int64_t seconds);

/// Whether a name and a value can stand in a header: no control characters, name a token.
bool isHeaderSafe(std::string_view name, std::string_view value);

/// Before the server starts: `folder` holds STATUS.html files that replace the pages of errorResponse();
/// may be empty.
void loadErrorPages(const std::string& folder);

} // namespace Wt::Impl
