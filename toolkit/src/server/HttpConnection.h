#pragma once

#include "server/AddressCounter.h"
#include "server/Deadline.h"
#include "server/HttpResponse.h"
#include "server/InBuffer.h"
#include "server/RequestParser.h"
#include "server/StaticFiles.h"
#include "server/Stream.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace Wt::Impl {

struct Site;

/// One connection of a browser: reads requests one after the other and has them answered. Its handlers
/// (Routes.h) run as coroutines on the connection's I/O thread.
class HttpConnection : public std::enable_shared_from_this<HttpConnection> {
public:
    enum class Speaks { Plain, Tls, Either };

    HttpConnection(Site& site, Socket socket, asio::ip::address address);
    ~HttpConnection();

    /// Until the connection ends. `tls` may be null for Speaks::Plain.
    Awaitable<void> run(Speaks speaks, asio::ssl::context* tls);

    Site& site() { return mSite; }
    Stream& stream() { return mStream; }
    Deadline& deadline() { return mDeadline; }
    const HttpRequest& request() const { return mParser.request(); }
    std::string clientAddress() const { return mAddress.to_string(); }
    std::string clientNetwork() const { return AddressCounter::networkOf(mAddress); }
    const char* scheme() const { return mStream.tls() ? "https" : "http"; }
    /// Over plain HTTP with the port: the servers of a machine share their cookies.
    const std::string& cookieName() const { return mCookieName; }

    /// Sends an answer as a whole.
    Awaitable<void> respond(HttpResponse response);

    /// Sends an answer whose body is a file.
    Awaitable<void> respondFile(HttpResponse response, StaticFiles::OpenFile file);

    /// For answers in pieces: any bytes. False when the connection is gone.
    Awaitable<bool> send(std::string_view bytes);

    /// Head of an answer in pieces; the caller sends the body.
    Awaitable<bool> sendHead(const HttpResponse& response, std::int64_t bodyBytes);

    /// The body as a whole, or nothing if the request was refused (and answered) instead.
    Awaitable<std::optional<std::string>> readForm(std::size_t limit);

    /// The body in pieces. `take` may refuse with a status. 0 when all was read, otherwise the status to
    /// answer. `perPiece`: the pause that is allowed between two pieces; kNoStall: the whole body has to come
    /// within kFormDeadline.
    static constexpr std::chrono::steady_clock::duration kNoStall{0};
    Awaitable<int> readBody(std::uint64_t limit, std::chrono::steady_clock::duration perPiece,
                            const std::function<int(std::string_view)>& take);

    /// Whether `Origin` (or, where a browser leaves it out, Sec-Fetch-Site)
    /// says that a page of ours is asking.
    bool comesFromOwnPage() const;

    /// The bytes that came behind the request, for whoever takes the connection over.
    InBuffer& input() { return mInput; }

    /// A user's browser is at its other end: it counts with those of users.
    void becomesUsers();
    bool isOfUser() const { return mOfUser; }

    /// No further request on this connection.
    void end() { mEnding = true; }

    void logRequest(int status, std::uint64_t bytes);

private:
    Awaitable<bool> greet(Speaks speaks, asio::ssl::context* tls);
    Awaitable<bool> readHead();
    Awaitable<bool> fill(std::size_t limit);
    Awaitable<void> linger();
    bool keepsAlive(const HttpResponse& response) const;

    Site& mSite;
    Stream mStream;
    const asio::ip::address mAddress;
    std::string mCookieName;
    Deadline mDeadline;
    RequestParser mParser;
    InBuffer mInput;
    bool mTimedOut = false; ///< the deadline cancelled an operation
    bool mHeadRead = false; ///< request() is one
    bool mEnding = false;
    bool mOfUser = false;
    bool mRefused = false; ///< bytes may still be coming that nobody will read
};

} // namespace Wt::Impl
