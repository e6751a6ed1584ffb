#include "server/HttpConnection.h"

#include "core/Limits.h"
#include "core/Log.h"
#include "server/Routes.h"
#include "server/Site.h"

#include <boost/asio/write.hpp>

#include <array>
#include <vector>

#include <unistd.h>

namespace Wt::Impl {

namespace {

constexpr char kTlsHandshakeRecord = 0x16; ///< first byte of every TLS connection (RFC 8446 5.1)
constexpr std::size_t kBodyBuffer = 64 * 1024;
constexpr std::size_t kFilePiece = 64 * 1024;
constexpr std::size_t kJoinBelow =
    16 * 1024; ///< body that is copied behind its head, for one record and one call

} // namespace

HttpConnection::HttpConnection(Site& site, Socket socket, asio::ip::address address)
    : mSite(site), mStream(std::move(socket)), mAddress(std::move(address)),
      mDeadline(mStream.get_executor(), [this] {
          mTimedOut = true;
          error_code ignored;
          mStream.socket().cancel(ignored);
      }) {}

HttpConnection::~HttpConnection() {
    mSite.connections.leave(mAddress, mOfUser);
}

void HttpConnection::becomesUsers() {
    if (mOfUser) return;
    mOfUser = true;
    mSite.connections.recognise(mAddress);
}

Awaitable<void> HttpConnection::run(Speaks speaks, asio::ssl::context* tls) {
    const bool speaksHttp = co_await greet(speaks, tls);
    if (!speaksHttp) co_return;
    error_code gone;
    mCookieName = mStream.tls() ? "__Host-session"
                                : "session" + std::to_string(mStream.socket().local_endpoint(gone).port());
    while (!mEnding) {
        mParser.reset();
        const bool asked = co_await readHead();
        if (!asked) break;
        co_await route(*this);
        mDeadline.off();
    }
    if (mRefused) co_await linger();
    mStream.shutdownSend();
}

Awaitable<bool> HttpConnection::greet(Speaks speaks, asio::ssl::context* tls) {
    mDeadline.in(kTlsDeadline);
    if (speaks == Speaks::Either) {
        char first = 0;
        const auto [ec, count] = co_await mStream.socket().async_receive(asio::buffer(&first, 1),
                                                                         Tcp::socket::message_peek, kAsTuple);
        if (ec || count == 0) co_return false;
        speaks = first == kTlsHandshakeRecord ? Speaks::Tls : Speaks::Plain;
    }
    if (speaks == Speaks::Plain) co_return true;
    const bool shaken = co_await mStream.handshake(*tls);
    co_return shaken;
}

Awaitable<bool> HttpConnection::readHead() {
    mHeadRead = false;
    mTimedOut = false;
    bool began = false;
    mDeadline.in(kIdleDeadline);
    while (true) {
        if (!mInput.empty()) {
            if (!began) mDeadline.in(kHeaderDeadline);
            began = true;
            mInput.consume(mParser.putHead(mInput.view()));
            if (mParser.status() != 0) break;
            if (mParser.headDone()) {
                mHeadRead = true;
                mRefused = mEnding = request().hasBody; // until readBody() has read it
                co_return true;
            }
        }
        const bool more = co_await fill(kHeaderBytes + 1);
        if (!more) {
            if (!mTimedOut || !began) co_return false;
            mRefused = true;
            co_await respond(errorResponse(408));
            co_return false;
        }
    }
    mRefused = true;
    co_await respond(errorResponse(mParser.status()));
    co_return false;
}

Awaitable<bool> HttpConnection::fill(std::size_t limit) {
    const InBuffer::Room room = mInput.prepare(limit);
    if (room.size == 0) co_return false;
    const auto [ec, count] = co_await mStream.async_read_some(asio::buffer(room.data, room.size), kAsTuple);
    if (ec) co_return false;
    mInput.commit(count);
    co_return true;
}

Awaitable<void> HttpConnection::respond(HttpResponse response) {
    const bool bodyless = response.status == 204 || response.status == 304;
    const std::string_view body =
        response.body && !bodyless ? std::string_view(*response.body) : std::string_view();
    const bool sendsBody = !mHeadRead || request().method != "HEAD";
    const auto length = bodyless ? -2 : static_cast<std::int64_t>(body.size());
    const bool staysOpen = keepsAlive(response);
    std::string head = responseHead(response, mStream.tls(), staysOpen, length);
    mEnding = !staysOpen;
    if (!sendsBody || body.empty()) {
        co_await send(head);
    } else if (body.size() <= kJoinBelow) {
        head.append(body);
        co_await send(head);
    } else {
        const bool sent = co_await send(head);
        if (sent) co_await send(body);
    }
    logRequest(response.status, sendsBody ? body.size() : 0);
}

Awaitable<void> HttpConnection::respondFile(HttpResponse response, StaticFiles::OpenFile file) {
    const bool began = co_await sendHead(response, static_cast<std::int64_t>(file.size));
    if (!began) co_return;
    std::uint64_t sent = 0;
    if (request().method != "HEAD") {
        std::vector<char> piece(kFilePiece);
        while (sent < file.size) {
            const std::size_t wanted = std::min<std::uint64_t>(piece.size(), file.size - sent);
            const ssize_t got = ::pread(file.descriptor, piece.data(), wanted, static_cast<off_t>(sent));
            if (got <= 0) {
                end(); // less than promised: the browser must see that it is incomplete
                break;
            }
            const bool taken = co_await send({piece.data(), static_cast<std::size_t>(got)});
            if (!taken) break;
            sent += static_cast<std::uint64_t>(got);
        }
    }
    logRequest(response.status, sent);
}

Awaitable<bool> HttpConnection::sendHead(const HttpResponse& response, std::int64_t bodyBytes) {
    const bool staysOpen = keepsAlive(response);
    const std::string head = responseHead(response, mStream.tls(), staysOpen, bodyBytes);
    mEnding = !staysOpen;
    const bool sent = co_await send(head);
    co_return sent;
}

Awaitable<bool> HttpConnection::send(std::string_view bytes) {
    mTimedOut = false;
    mDeadline.in(kWriteStall);
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const std::string_view rest = bytes.substr(sent, kFilePiece);
        const auto [ec, count] =
            co_await mStream.async_write_some(asio::buffer(rest.data(), rest.size()), kAsTuple);
        if (ec) {
            mEnding = true;
            mRefused = false; // nobody listens
            co_return false;
        }
        sent += count;
        if (sent < bytes.size()) mDeadline.in(kWriteStall);
    }
    mDeadline.off();
    co_return true;
}

bool HttpConnection::keepsAlive(const HttpResponse& response) const {
    if (!mHeadRead || !request().keepAlive || response.close || mEnding || mRefused) return false;
    return mOfUser || !mSite.connections.isCrowded(mAddress);
}

Awaitable<std::optional<std::string>> HttpConnection::readForm(std::size_t limit) {
    std::string body;
    const auto take = [&body](std::string_view piece) {
        body.append(piece);
        return 0;
    };
    const int status = co_await readBody(limit, kNoStall, take);
    if (status == 0) co_return body;
    co_await respond(errorResponse(status));
    co_return std::nullopt;
}

Awaitable<int> HttpConnection::readBody(std::uint64_t limit, std::chrono::steady_clock::duration perPiece,
                                        const std::function<int(std::string_view)>& take) {
    mTimedOut = false;
    if (!request().hasBody) co_return 0;
    if (!mParser.allowBody(limit)) co_return 413;
    if (request().header("expect") == "100-continue") co_await send("HTTP/1.1 100 Continue\r\n\r\n");
    if (perPiece == kNoStall) mDeadline.in(kFormDeadline);
    const auto began = std::chrono::steady_clock::now();

    std::uint64_t taken = 0;
    while (!mParser.bodyDone()) {
        std::string_view piece;
        const std::size_t used = mInput.empty() ? 0 : mParser.putBody(mInput.view(), piece);
        if (mParser.status() != 0) co_return mParser.status();
        taken += piece.size();
        if (taken > limit) co_return 413;
        if (const int refusal = piece.empty() ? 0 : take(piece); refusal != 0) co_return refusal;
        mInput.consume(used);
        if (used != 0) continue;
        if (perPiece != kNoStall) {
            const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - began;
            const double earned = static_cast<double>(taken) / kUploadLeastRate;
            if (spent > Deadline::hurried(kUploadGrace) + std::chrono::duration<double>(earned))
                co_return 408;
            mDeadline.in(perPiece);
        }
        const bool more = co_await fill(kBodyBuffer);
        if (!more) {
            if (mTimedOut) co_return 408;
            mRefused = false;
            co_return 400; // the connection is gone, or a chunk's header never ends
        }
    }
    mRefused = mEnding = false;
    mDeadline.off();
    co_return 0;
}

bool HttpConnection::comesFromOwnPage() const {
    const std::string_view origin = request().header("origin");
    if (origin.empty()) return request().header("sec-fetch-site") == "same-origin";
    const std::string own = std::string(scheme()) + "://" + std::string(request().header("host"));
    const std::string_view defaultPort = mStream.tls() ? ":443" : ":80";
    const auto plain = [&](std::string_view text) {
        std::string lower(
            text.substr(0, text.ends_with(defaultPort) ? text.size() - defaultPort.size() : text.npos));
        for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        return lower;
    };
    return plain(origin) == plain(own);
}

void HttpConnection::logRequest(int status, std::uint64_t bytes) {
    if (mHeadRead)
        mSite.accessLog.write(clientAddress(), request().method, request().target, status, bytes);
    else
        mSite.accessLog.write(clientAddress(), "-", "-", status, bytes);
}

Awaitable<void> HttpConnection::linger() {
    // Closing with unread bytes resets the connection, and the browser might lose the answer
    // that explains it.
    mStream.shutdownSend();
    mTimedOut = false;
    mDeadline.in(kLingerDeadline);
    std::array<char, 4096> discarded;
    for (std::uint64_t total = 0; total < kLingerBytes;) {
        const auto [ec, count] = co_await mStream.socket().async_read_some(asio::buffer(discarded), kAsTuple);
        if (ec) break;
        total += count;
    }
}

} // namespace Wt::Impl
