#include "server/HttpResponse.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <ctime>
#include <fstream>
#include <map>
#include <sstream>

namespace Wt::Impl {

namespace {

struct StatusRow {
    int status;
    std::string_view line;
    std::string_view explanation; ///< for people; empty: no page of its own
};

constexpr StatusRow kStatuses[] = {
    {200, "200 OK", ""},
    {204, "204 No Content", ""},
    {206, "206 Partial Content", ""},
    {301, "301 Moved Permanently", ""},
    {302, "302 Found", ""},
    {303, "303 See Other", ""},
    {304, "304 Not Modified", ""},
    {307, "307 Temporary Redirect", ""},
    {308, "308 Permanent Redirect", ""},
    {400, "400 Bad Request", "The request is malformed."},
    {401, "401 Unauthorized", "Authentication is required."},
    {403, "403 Forbidden", "The request was refused."},
    {404, "404 Not Found", "There is nothing at this address."},
    {405, "405 Method Not Allowed", "Only GET, HEAD and POST are answered here."},
    {408, "408 Request Timeout", "The request took too long to arrive."},
    {409, "409 Conflict", "The request does not fit the present state."},
    {410, "410 Gone", "The session does not exist any more."},
    {413, "413 Content Too Large", "The request is larger than allowed."},
    {414, "414 URI Too Long", "The address is longer than allowed."},
    {415, "415 Unsupported Media Type", "The request's content type is not accepted."},
    {416, "416 Range Not Satisfiable", "The range lies outside of the content."},
    {421, "421 Misdirected Request", "The server is not known under this name."},
    {426, "426 Upgrade Required", "This address speaks WebSocket only."},
    {429, "429 Too Many Requests", "Too much at once from this address. Try again later."},
    {431, "431 Request Header Fields Too Large", "The request's header is larger than allowed."},
    {500, "500 Internal Server Error", "The server failed to answer."},
    {501, "501 Not Implemented", "The request asks for something that the server does not do."},
    {503, "503 Service Unavailable", "The server is busy. Try again later."},
    {505, "505 HTTP Version Not Supported", "The server speaks HTTP/1.1."},
};

const StatusRow& rowOf(int status) {
    const auto* row =
        std::find_if(std::begin(kStatuses), std::end(kStatuses),
                     [status](const StatusRow& candidate) { return candidate.status == status; });
    return row != std::end(kStatuses) ? *row : rowOf(500);
}

// Nothing but what a page needs, of our own, nothing inline, no frames; scripts can't turn text into markup (Trusted
// Types). 'data:' images: small icons in the style sheets.
constexpr std::string_view kSecurity =
    "Content-Security-Policy: default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' data:; "
    "font-src 'self'; connect-src 'self'; form-action 'none'; base-uri 'none'; frame-ancestors 'none'; "
    "require-trusted-types-for 'script'; trusted-types 'none'\r\n"
    "X-Content-Type-Options: nosniff\r\n"
    "X-Frame-Options: DENY\r\n"
    "Referrer-Policy: no-referrer\r\n"
    "Permissions-Policy: camera=(), geolocation=(), microphone=(), payment=(), usb=()\r\n"
    "Cross-Origin-Opener-Policy: same-origin\r\n"
    "Cross-Origin-Resource-Policy: same-origin\r\n";

constexpr std::string_view kSecurityTls = "Strict-Transport-Security: max-age=31536000\r\n";

// Read-only once the server has started.
std::map<int, std::string>& operatorPages() {
    static auto& pages = *new std::map<int, std::string>; // lives as long as any thread
    return pages;
}

const std::string& dateNow() {
    thread_local std::int64_t second = 0;
    thread_local std::string text;
    const std::int64_t now = std::time(nullptr);
    if (now != second) {
        text = httpDate(now);
        second = now;
    }
    return text;
}

} // namespace

HttpResponse& HttpResponse::add(std::string_view name, std::string_view value) {
    headers.append(name).append(": ").append(value).append("\r\n");
    return *this;
}

HttpResponse& HttpResponse::setBody(std::string_view contentType, std::string content) {
    body = std::make_shared<const std::string>(std::move(content));
    return add("Content-Type", contentType);
}

std::string_view statusText(int status) {
    return rowOf(status).line;
}

HttpResponse errorResponse(int status) {
    const StatusRow& row = rowOf(status);
    HttpResponse response;
    response.status = row.status;
    response.add("Cache-Control", "no-store");
    if (status == 405) response.add("Allow", "GET, HEAD, POST");
    if (status == 429 || status == 503) response.add("Retry-After", "5");
    const auto page = operatorPages().find(status);
    if (page != operatorPages().end()) return response.setBody("text/html; charset=utf-8", page->second);
    std::string text(row.line);
    return response.setBody("text/plain; charset=utf-8",
                            text.append("\n").append(row.explanation).append("\n"));
}

std::string responseHead(const HttpResponse& response, bool tls, bool keepAlive, std::int64_t bodyBytes) {
    std::string head;
    head.reserve(900 + response.headers.size());
    head.append("HTTP/1.1 ").append(statusText(response.status)).append("\r\nDate: ").append(dateNow());
    head.append("\r\n").append(securityHeaders(tls)).append(response.headers);
    if (bodyBytes >= 0) head.append("Content-Length: ").append(std::to_string(bodyBytes)).append("\r\n");
    head.append(keepAlive ? "\r\n" : "Connection: close\r\n\r\n");
    return head;
}

std::string_view securityHeaders(bool tls) {
    static const std::string& both = *new std::string(std::string(kSecurity).append(kSecurityTls));
    return tls ? std::string_view(both) : kSecurity;
}

std::string httpDate(std::int64_t seconds) {
    constexpr std::array kDays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    constexpr std::array kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::time_t time = seconds;
    std::tm utc{};
    gmtime_r(&time, &utc);
    std::array<char, 64> text{};
    // strftime's own names depend on the locale.
    std::snprintf(text.data(), text.size(), "%s, %02d %s %04d %02d:%02d:%02d GMT",
                  kDays[static_cast<std::size_t>(utc.tm_wday)], utc.tm_mday,
                  kMonths[static_cast<std::size_t>(utc.tm_mon)], utc.tm_year + 1900, utc.tm_hour, utc.tm_min,
                  utc.tm_sec);
    return text.data();
}

bool isHeaderSafe(std::string_view name, std::string_view value) {
    const auto isToken = [](unsigned char c) {
        return std::isalnum(c) ||
               std::string_view("!#$%&'*+-.^_`|~").find(static_cast<char>(c)) != std::string_view::npos;
    };
    const auto isText = [](unsigned char c) { return c == '\t' || (c >= 0x20 && c != 0x7f); };
    return !name.empty() && std::all_of(name.begin(), name.end(), isToken) &&
           std::all_of(value.begin(), value.end(), isText);
}

void loadErrorPages(const std::string& folder) {
    operatorPages().clear();
    if (folder.empty()) return;
    for (const StatusRow& row : kStatuses) {
        if (row.explanation.empty()) continue;
        std::ifstream file(folder + "/" + std::to_string(row.status) + ".html", std::ios::binary);
        if (!file) continue;
        std::ostringstream content;
        content << file.rdbuf();
        operatorPages()[row.status] = content.str();
    }
}

} // namespace Wt::Impl
