#include "server/RequestParser.h"

#include "core/Limits.h"

#include <gtest/gtest.h>

namespace Wt::Impl {
namespace {

using namespace std::string_literals;

struct Result {
    int status = 0;
    bool head = false;
    bool done = false;
    std::string body;
    std::string rest;
};

// Feeds the bytes in pieces of `step`, as a connection does.
Result parse(RequestParser& parser, const std::string& bytes, std::size_t step,
             std::uint64_t bodyLimit = 1000) {
    Result result;
    std::string waiting;
    for (std::size_t at = 0; at < bytes.size() && result.status == 0; at += step) {
        waiting += bytes.substr(at, step);
        bool moved = true;
        while (moved && result.status == 0 && !result.done) {
            std::size_t used = 0;
            if (!result.head) {
                used = waiting.empty() ? 0 : parser.putHead(waiting);
                result.head = parser.status() == 0 && parser.headDone();
                if (result.head && !parser.allowBody(bodyLimit)) result.status = parser.status();
                moved = used > 0 && !result.head;
                if (result.head) moved = true;
            } else {
                std::string_view piece;
                used = waiting.empty() || parser.bodyDone() ? 0 : parser.putBody(waiting, piece);
                result.body += piece;
                moved = used > 0;
            }
            if (parser.status() != 0) result.status = parser.status();
            waiting.erase(0, used);
            result.done = result.head && parser.bodyDone();
        }
    }
    result.rest = waiting;
    return result;
}

TEST(RequestParser, RefusesWithTheRightStatusHoweverTheBytesArrive) {
    const std::string host = "Host: h\r\n";
    const struct {
        const char* what;
        std::string bytes;
        int status;
        const char* body;
    } rows[] = {
        {"plain", "GET / HTTP/1.1\r\n" + host + "\r\n", 0, ""},
        {"http 1.0 without host", "GET / HTTP/1.0\r\n\r\n", 0, ""},
        {"no host", "GET / HTTP/1.1\r\n\r\n", 400, ""},
        {"two hosts", "GET / HTTP/1.1\r\nHost: a\r\nHost: b\r\n\r\n", 400, ""},
        {"version", "GET / HTTP/2.0\r\n" + host + "\r\n", 505, ""},
        {"absolute form", "GET http://h/ HTTP/1.1\r\n" + host + "\r\n", 400, ""},
        {"asterisk", "OPTIONS * HTTP/1.1\r\n" + host + "\r\n", 400, ""},
        {"garbage", "\x16\x03\x01\x02\r\n\r\n", 400, ""},
        {"space in name", "GET / HTTP/1.1\r\nBad Name: x\r\n" + host + "\r\n", 400, ""},
        {"NUL in value", "GET / HTTP/1.1\r\nHost: h\r\nA: b\0c\r\n\r\n"s, 400, ""},
        {"body", "POST / HTTP/1.1\r\n" + host + "Content-Length: 5\r\n\r\nhello", 0, "hello"},
        {"chunks",
         "POST / HTTP/1.1\r\n" + host +
             "Transfer-Encoding: chunked\r\n\r\n3\r\nhel\r\n2\r\nlo\r\n0\r\nT: 1\r\n\r\n",
         0, "hello"},
        {"no chunk but the last",
         "POST / HTTP/1.1\r\n" + host + "Transfer-Encoding: chunked\r\n\r\n0\r\n\r\n", 0, ""},
        {"bad chunk", "POST / HTTP/1.1\r\n" + host + "Transfer-Encoding: chunked\r\n\r\nzz\r\nhel", 400, ""},
        {"two lengths", "POST / HTTP/1.1\r\n" + host + "Content-Length: 5\r\nContent-Length: 6\r\n\r\nhello",
         400, ""},
        {"negative length", "POST / HTTP/1.1\r\n" + host + "Content-Length: -5\r\n\r\n", 400, ""},
        {"huge length", "POST / HTTP/1.1\r\n" + host + "Content-Length: 99999999999999999999\r\n\r\n", 400,
         ""},
        {"length and chunks",
         "POST / HTTP/1.1\r\n" + host + "Content-Length: 5\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n",
         400, ""},
        {"chunks and length",
         "POST / HTTP/1.1\r\n" + host + "Transfer-Encoding: chunked\r\nContent-Length: 5\r\n\r\n0\r\n\r\n",
         400, ""},
        {"the same length twice",
         "POST / HTTP/1.1\r\n" + host + "Content-Length: 5\r\nContent-Length: 5\r\n\r\nhello", 400, ""},
        {"listed length", "POST / HTTP/1.1\r\n" + host + "Content-Length: 5, 5\r\n\r\nhello", 400, ""},
        {"length with a sign", "POST / HTTP/1.1\r\n" + host + "Content-Length: +5\r\n\r\nhello", 400, ""},
        {"coding with a parameter",
         "POST / HTTP/1.1\r\n" + host + "Transfer-Encoding: chunked;q=1\r\n\r\n0\r\n\r\n", 501, ""},
        {"two codings", "POST / HTTP/1.1\r\n" + host + "Transfer-Encoding: gzip, chunked\r\n\r\n0\r\n\r\n",
         501, ""},
        {"chunked twice",
         "POST / HTTP/1.1\r\n" + host +
             "Transfer-Encoding: chunked\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n",
         400, ""},
        {"coding in capitals", "POST / HTTP/1.1\r\n" + host + "Transfer-Encoding: CHUNKED\r\n\r\n0\r\n\r\n",
         501, ""},
        {"chunk with a parameter",
         "POST / HTTP/1.1\r\n" + host + "Transfer-Encoding: chunked\r\n\r\n2;x=y\r\nlo\r\n0\r\n\r\n", 400,
         ""},
        {"last chunk with a parameter",
         "POST / HTTP/1.1\r\n" + host + "Transfer-Encoding: chunked\r\n\r\n0;x\r\n\r\n", 400, ""},
        {"folded line", "GET / HTTP/1.1\r\n" + host + "A: b\r\n c\r\n\r\n", 400, ""},
        {"line folded by a tab", "GET / HTTP/1.1\r\nA: b\r\n\tc\r\n" + host + "\r\n", 400, ""},
        {"folded first line", "GET / HTTP/1.1\r\n A: b\r\n" + host + "\r\n", 400, ""},
        {"blank before the colon", "GET / HTTP/1.1\r\nHost : h\r\n\r\n", 400, ""},
        {"body that begins with a blank", "POST / HTTP/1.1\r\n" + host + "Content-Length: 2\r\n\r\n x", 0,
         " x"},
        {"host with path", "GET / HTTP/1.1\r\nHost: h/x\r\n\r\n", 400, ""},
        {"host with user", "GET / HTTP/1.1\r\nHost: u@h\r\n\r\n", 400, ""},
        {"host with blank", "GET / HTTP/1.1\r\nHost: h i\r\n\r\n", 400, ""},
        {"list of hosts", "GET / HTTP/1.1\r\nHost: h,i\r\n\r\n", 400, ""},
        {"no name", "GET / HTTP/1.1\r\nHost:\r\n\r\n", 400, ""},
        {"port alone", "GET / HTTP/1.1\r\nHost: :80\r\n\r\n", 400, ""},
        {"port that is none", "GET / HTTP/1.1\r\nHost: h:8x\r\n\r\n", 400, ""},
        {"open bracket", "GET / HTTP/1.1\r\nHost: [::1\r\n\r\n", 400, ""},
        {"text behind a bracket", "GET / HTTP/1.1\r\nHost: [::1]x:80\r\n\r\n", 400, ""},
        {"address and port", "GET / HTTP/1.1\r\nHost: [fe80::1]:8443\r\n\r\n", 0, ""},
        {"name and port", "GET / HTTP/1.1\r\nHost: Switch-1.local:8443\r\n\r\n", 0, ""},
        {"two origins", "GET / HTTP/1.1\r\n" + host + "Origin: http://h\r\nOrigin: http://h\r\n\r\n", 400,
         ""},
        {"unknown coding",
         "POST / HTTP/1.1\r\n" + host + "Transfer-Encoding: gzip\r\n\r\nGET /x HTTP/1.1\r\n\r\n", 501, ""},
        {"chunks in 1.0", "POST / HTTP/1.0\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n", 400, ""},
        {"body too long", "POST / HTTP/1.1\r\n" + host + "Content-Length: 1001\r\n\r\n", 413, ""},
    };
    for (const auto& row : rows) {
        for (const std::size_t step : {std::size_t(1), std::size_t(7), row.bytes.size()}) {
            RequestParser parser;
            const Result result = parse(parser, row.bytes, step);
            EXPECT_EQ(result.status, row.status) << row.what << " in steps of " << step;
            if (row.status == 0) {
                EXPECT_TRUE(result.done) << row.what << " in steps of " << step;
            }
            EXPECT_EQ(result.body, row.body) << row.what << " in steps of " << step;
        }
    }
}

TEST(RequestParser, HeadLimits) {
    const std::string start = "GET / HTTP/1.1\r\nHost: h\r\n";
    std::string manyLines = start;
    for (std::size_t i = 0; i < kHeaderCount; ++i) manyLines += "A: b\r\n";
    const struct {
        const char* what;
        std::string bytes;
        int status;
    } rows[] = {
        {"long header line", start + "A: " + std::string(kHeaderBytes, 'x') + "\r\n\r\n", 431},
        {"endless header line", start + "A: " + std::string(kHeaderBytes, 'x'), 431},
        {"many lines", manyLines + "\r\n", 431},
        {"just too large",
         start + "A: " + std::string(9000, 'x') + "\r\nB: " + std::string(9000, 'x') + "\r\n\r\n", 431},
        {"large enough",
         start + "A: " + std::string(7000, 'x') + "\r\nB: " + std::string(7000, 'x') + "\r\n\r\n", 0},
        {"long target", "GET /" + std::string(kTargetBytes, 'x') + " HTTP/1.1\r\nHost: h\r\n\r\n", 414},
        {"endless target", "GET /" + std::string(kHeaderBytes, 'x'), 414},
    };
    for (const auto& row : rows) {
        for (const std::size_t step : {std::size_t(1000), row.bytes.size()}) {
            RequestParser parser;
            EXPECT_EQ(parse(parser, row.bytes, step).status, row.status)
                << row.what << " in steps of " << step;
        }
    }
}

TEST(RequestParser, LeavesTheNextRequestAlone) {
    RequestParser parser;
    const Result first = parse(
        parser, "POST /a?q HTTP/1.1\r\nHost: h\r\nX-Y: Z\r\nContent-Length: 2\r\n\r\nhiGET /b HTTP/1.1\r\n",
        1000);
    EXPECT_TRUE(first.done);
    EXPECT_EQ(first.body, "hi");
    EXPECT_EQ(first.rest, "GET /b HTTP/1.1\r\n");
    EXPECT_EQ(parser.request().header("x-y"), "Z");
    EXPECT_EQ(parser.request().query(), "q");
    EXPECT_TRUE(parser.request().keepAlive);
}

TEST(HttpRequest, CookiesAndTokens) {
    const struct {
        const char* header;
        const char* found;
    } cookies[] = {
        {"session=a", "a"},
        {"x=1; session=a; y=2", "a"},
        {" session = a ;", "a"},
        {"session=a; session=b", ""},
        {"xsession=a", ""},
        {"session", ""},
        {"", ""},
        {"session=", ""},
        {"a=session=b", ""},
        {"session=a=b", "a=b"},
    };
    for (const auto& row : cookies) EXPECT_EQ(findCookie(row.header, "session"), row.found) << row.header;

    const struct {
        const char* header;
        bool accepts;
    } encodings[] = {{"gzip", true},           {"br, GZIP;q=0.5", true}, {"gzip;q=0", false},
                     {"gzip; q=0.000", false}, {"xgzip", false},         {"", false},
                     {"deflate,gzip", true}};
    for (const auto& row : encodings) {
        HttpRequest request;
        request.headers.emplace_back("accept-encoding", row.header);
        EXPECT_EQ(request.headerHasToken("accept-encoding", "gzip"), row.accepts) << row.header;
    }
}

} // namespace
} // namespace Wt::Impl
