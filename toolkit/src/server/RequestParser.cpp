#include "server/RequestParser.h"

#include "core/Limits.h"

#include <boost/asio/buffer.hpp>
#include <boost/beast/http/basic_parser.hpp>

#include <algorithm>
#include <optional>

namespace Wt::Impl {

namespace {

bool isDigits(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// "host", "host:port" or "[address]:port" (RFC 9110 7.2), and nothing that could be read in two ways.
bool isHostAndPort(std::string_view text) {
    const bool bracketed = text.starts_with('[');
    const std::size_t end = bracketed ? text.find(']') : text.find(':');
    const std::string_view host = text.substr(bracketed ? 1 : 0, bracketed ? end - 1 : end);
    std::string_view port = end == text.npos ? std::string_view() : text.substr(end + (bracketed ? 1 : 0));
    if (host.empty() || (bracketed && end == text.npos)) return false;
    const auto fits = [bracketed](char c) {
        const bool hex = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
        if (bracketed) return hex || c == ':' || c == '.';
        return hex || (c >= 'g' && c <= 'z') || (c >= 'G' && c <= 'Z') || c == '-' || c == '.' || c == '_';
    };
    if (!std::all_of(host.begin(), host.end(), fits)) return false;
    if (port.empty()) return true;
    port.remove_prefix(1);
    return text[text.size() - port.size() - 1] == ':' && isDigits(port) && port.size() <= 5;
}

// A line that begins with a blank goes on with the one before (RFC 9112 5.2: refused, since not everybody
// reads it so).
bool hasFoldedLine(std::string_view head) {
    for (std::size_t at = head.find("\r\n"); at != head.npos; at = head.find("\r\n", at + 2)) {
        const std::string_view next = head.substr(at + 2, 2);
        if (next == "\r\n") return false; // the end of the head
        if (next.starts_with(' ') || next.starts_with('\t')) return true;
    }
    return false;
}

} // namespace

namespace http = boost::beast::http;
using boost::beast::error_code;
using boost::beast::string_view;

class RequestParser::Parser : public http::basic_parser<true> {
public:
    Parser() {
        header_limit(kHeaderBytes);
        body_limit(boost::none); // the caller sets its own once the head is known
    }

    HttpRequest request;
    std::string_view piece;
    std::size_t headBytes = 0;
    int status = 0;

private:
    void on_request_impl(http::verb, string_view method, string_view target, int version,
                         error_code& ec) override {
        request.method.assign(method.data(), method.size());
        request.target.assign(target.data(), target.size());
        request.http11 = version >= 11;
        if (version < 10 || version > 11)
            refuse(505, ec);
        else if (target.size() > kTargetBytes)
            refuse(414, ec);
        else if (target.empty() || target.front() != '/')
            refuse(400, ec);
    }

    void on_field_impl(http::field, string_view name, string_view value, error_code& ec) override {
        if (is_header_done()) return; // trailers of a chunked body say nothing to us
        if (request.headers.size() >= kHeaderCount) return refuse(431, ec);
        std::string lower(name.data(), name.size());
        std::transform(lower.begin(), lower.end(), lower.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        request.headers.emplace_back(std::move(lower), std::string(value.data(), value.size()));
    }

    void on_header_impl(error_code& ec) override {
        const auto count = [this](std::string_view wanted) {
            return std::count_if(request.headers.begin(), request.headers.end(),
                                 [&](const auto& header) { return header.first == wanted; });
        };
        // Whatever two readers of the request could read differently is refused: exactly one Host (RFC 9112
        // 3.2), and a body whose end nobody can mistake for the next request.
        const auto hosts = count("host");
        if (hosts > 1 || (hosts == 0 && request.http11)) return refuse(400, ec);
        if (hosts == 1 && !isHostAndPort(request.header("host"))) return refuse(400, ec);
        if (count("origin") > 1) return refuse(400, ec);
        const auto lengths = count("content-length");
        if (lengths > 1 || (lengths == 1 && !isDigits(request.header("content-length"))))
            return refuse(400, ec);
        if (const auto codings = count("transfer-encoding"); codings > 0) {
            if (codings > 1 || request.header("transfer-encoding") != "chunked") return refuse(501, ec);
            if (!chunked() || !request.http11 || lengths > 0) return refuse(400, ec);
        }
        request.keepAlive = keep_alive();
        request.bodyBytes = content_length().value_or(0);
        request.hasBody = chunked() || request.bodyBytes > 0;
    }

    void on_response_impl(int, string_view, int, error_code&) override {}
    void on_body_init_impl(const boost::optional<std::uint64_t>&, error_code&) override {}
    void on_chunk_header_impl(std::uint64_t, string_view parameters, error_code& ec) override {
        if (!parameters.empty()) refuse(400, ec); // no browser has any to say
    }
    void on_finish_impl(error_code&) override {}

    std::size_t on_body_impl(string_view body, error_code&) override {
        piece = {body.data(), body.size()};
        return body.size();
    }

    std::size_t on_chunk_body_impl(std::uint64_t, string_view body, error_code&) override {
        piece = {body.data(), body.size()};
        return body.size();
    }

    void refuse(int with, error_code& ec) {
        status = with;
        ec = http::error::bad_value;
    }
};

namespace {

int statusOf(const error_code& ec) {
    if (ec == http::error::header_limit) return 431;
    if (ec == http::error::body_limit) return 413;
    if (ec == http::error::bad_version) return 505;
    return 400;
}

} // namespace

RequestParser::RequestParser() : mParser(std::make_unique<Parser>()) {}

RequestParser::~RequestParser() = default;

void RequestParser::reset() {
    mParser = std::make_unique<Parser>();
}

std::size_t RequestParser::putHead(std::string_view bytes) {
    error_code ec;
    const std::size_t used = mParser->put(boost::asio::const_buffer(bytes.data(), bytes.size()), ec);
    mParser->headBytes += used;
    if (mParser->status == 0 && hasFoldedLine(bytes.substr(0, used))) mParser->status = 400;
    const std::size_t pending = headDone() ? 0 : bytes.size() - used;
    if (ec && ec != http::error::need_more && mParser->status == 0) mParser->status = statusOf(ec);
    // A request line that never ends is a target that is too long; it was not used up, unlike header lines.
    if (mParser->status == 0 || mParser->status == 431) {
        const bool inRequestLine = mParser->request.method.empty();
        if (inRequestLine && pending > kTargetBytes + 64)
            mParser->status = 414;
        else if (mParser->headBytes + pending > kHeaderBytes)
            mParser->status = 431;
    }
    return used;
}

bool RequestParser::headDone() const {
    return mParser->is_header_done();
}

int RequestParser::status() const {
    return mParser->status;
}

const HttpRequest& RequestParser::request() const {
    return mParser->request;
}

bool RequestParser::allowBody(std::uint64_t limit) {
    if (mParser->request.bodyBytes > limit) mParser->status = 413;
    mParser->body_limit(limit);
    return mParser->status == 0;
}

std::size_t RequestParser::putBody(std::string_view bytes, std::string_view& piece) {
    mParser->piece = {};
    // Whatever a chunked body has left, "0\r\n\r\n" is still to come. Beast wants to see that much at once:
    // it asserts so when a last chunk arrives in smaller pieces.
    constexpr std::size_t kLastChunkBytes = 5;
    if (mParser->chunked() && bytes.size() < kLastChunkBytes) return 0;
    error_code ec;
    const std::size_t used = mParser->put(boost::asio::const_buffer(bytes.data(), bytes.size()), ec);
    if (ec && ec != http::error::need_more && mParser->status == 0) mParser->status = statusOf(ec);
    piece = mParser->piece;
    return used;
}

bool RequestParser::bodyDone() const {
    return mParser->is_done();
}

} // namespace Wt::Impl
