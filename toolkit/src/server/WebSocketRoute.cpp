#include "core/Limits.h"
#include "server/FrameMeter.h"
#include "server/HttpConnection.h"
#include "server/Reload.h"
#include "server/Routes.h"
#include "server/Site.h"
#include "server/Wakeup.h"

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/detached.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/string_body.hpp>
#include <boost/beast/websocket/stream.hpp>

namespace Wt::Impl {

namespace http = boost::beast::http;
namespace websocket = boost::beast::websocket;

namespace {

// Without compression: its sizes tell what a message holds, a password among it (docs/decisions.md).
using WebSocket = websocket::stream<Stream&, false>;

constexpr std::size_t kKeptBuffer = 4096; ///< a larger one is given back after its message

/// The page's connection: a reader and a writer on the same I/O thread. The reader owns it.
class PageSocket : public ChannelPeer, public std::enable_shared_from_this<PageSocket> {
public:
    explicit PageSocket(const std::shared_ptr<HttpConnection>& connection)
        : mConnection(connection), mSocket(connection->stream()),
          mWakeup(std::make_shared<Wakeup>(connection->stream().get_executor())),
          mWriterDone(std::make_shared<Wakeup>(connection->stream().get_executor())) {}

    void wake() override { mWakeup->signal(); }

    Awaitable<void> run();

private:
    void configure();
    Awaitable<bool> accept();
    Awaitable<bool> hello();
    Awaitable<void> readAll();
    Awaitable<void> writeAll();
    Awaitable<bool> write(std::string_view text);
    Awaitable<void> close(websocket::close_code code);
    std::optional<PageInput> takeInput();

    const std::shared_ptr<HttpConnection> mConnection;
    WebSocket mSocket;
    FrameMeter mMeter;
    const std::shared_ptr<Wakeup> mWakeup;
    const std::shared_ptr<Wakeup> mWriterDone;
    boost::beast::flat_buffer mBuffer;
    std::shared_ptr<Session> mSession;
    bool mAckDue = false;
    bool mWriterEnded = false;
    std::uint64_t mPage = 1; ///< of the hello
    bool mReading = true;    ///< the reader still runs
    websocket::close_code mCloseWith = websocket::close_code::normal;
};

Awaitable<void> PageSocket::run() {
    configure();
    const bool accepted = co_await accept();
    if (!accepted) co_return;
    const bool known = co_await hello();
    if (!known) co_return;
    const auto done = [self = shared_from_this()](const std::exception_ptr&) {
        self->mWriterEnded = true;
        self->mWriterDone->signal();
    };
    asio::co_spawn(
        mSocket.get_executor(), [this] { return writeAll(); }, done);
    co_await readAll();
    mReading = false;
    mConnection->stream().meter(nullptr);
    mSession->channel().detach(this);
    if (mCloseWith == websocket::close_code::normal)
        beast_close_socket(mConnection->stream()); // ends a stuck write
    wake();
    while (!mWriterEnded) co_await mWriterDone->wait(kWriteStall);
}

void PageSocket::configure() {
    websocket::stream_base::timeout timeouts{};
    timeouts.handshake_timeout = Deadline::hurried(kHelloDeadline);
    timeouts.idle_timeout = Deadline::hurried(kWebSocketIdle); // after half of it a ping is sent
    timeouts.keep_alive_pings = true;
    mSocket.set_option(timeouts);
    mSocket.read_message_max(kEventMessageBytes);
    mSocket.auto_fragment(false);
    mSocket.text(true);
    mSocket.set_option(websocket::stream_base::decorator(
        [tls = mConnection->stream().tls()](websocket::response_type& answer) {
            // The same headers as on every answer, given to Beast one by one.
            std::string_view lines = securityHeaders(tls);
            while (!lines.empty()) {
                const std::string_view line = lines.substr(0, lines.find("\r\n"));
                lines.remove_prefix(line.size() + 2);
                const std::size_t colon = line.find(": ");
                const std::string_view value = line.substr(colon + 2);
                answer.insert({line.data(), colon}, {value.data(), value.size()});
            }
            answer.set(http::field::server, "wt"); // instead of the name and version of the library
        }));
}

Awaitable<bool> PageSocket::accept() {
    const HttpRequest& came = mConnection->request();
    http::request<http::string_body> request(http::verb::get, came.target, 11);
    for (const auto& [name, value] : came.headers) request.insert(name, value);
    const auto [ec] = co_await mSocket.async_accept(request, kAsTuple);
    mConnection->logRequest(ec ? 400 : 101, 0);
    mConnection->stream().meter(&mMeter);
    co_return !ec;
}

std::optional<PageInput> PageSocket::takeInput() {
    const auto bytes = mBuffer.data();
    auto input = parsePageInput({static_cast<const char*>(bytes.data()), bytes.size()});
    mBuffer.consume(mBuffer.size());
    if (mBuffer.capacity() > kKeptBuffer) mBuffer.shrink_to_fit();
    return input;
}

Awaitable<bool> PageSocket::hello() {
    mConnection->deadline().in(kHelloDeadline);
    const auto [ec, count] = co_await mSocket.async_read(mBuffer, kAsTuple);
    mConnection->deadline().off();
    if (ec) co_return false;
    auto input = takeInput();
    if (!input || input->hello.empty()) {
        co_await close(websocket::close_code::policy_error);
        co_return false;
    }
    mSession = mConnection->site().sessions->claim(input->hello,
                                                   mConnection->request().cookie(mConnection->cookieName()));
    if (!mSession) {
        co_await write("{\"gone\":\"unknown\"}");
        co_await close(websocket::close_code::normal);
        co_return false;
    }
    mPage = input->page;
    if (!mayAttach(mConnection->site(), *input) || !mSession->channel().attach(shared_from_this(), *input)) {
        co_await write("{\"gone\":\"unknown\"}");
        co_await close(websocket::close_code::normal);
        co_return false;
    }
    if (mSession->channel().receive(std::move(*input)) != Channel::Verdict::Taken) {
        mSession->channel().detach(this);
        co_await close(websocket::close_code::policy_error);
        co_return false;
    }
    mAckDue = true;
    wake();
    co_return true;
}

Awaitable<void> PageSocket::readAll() {
    Channel& channel = mSession->channel();
    while (true) {
        const auto [ec, count] = co_await mSocket.async_read(mBuffer, kAsTuple);
        if (ec) {
            // The page was left or closed, even if its farewell got lost.
            if (ec == websocket::error::closed && mSocket.reason().code == websocket::close_code::going_away)
                pageWasLeft(mConnection->site(), *mSession, mPage);
            co_return;
        }
        auto input = takeInput();
        if (input) input->page = mPage;
        if (!input)
            mCloseWith = websocket::close_code::bad_payload;
        else if (channel.receive(std::move(*input)) != Channel::Verdict::Taken)
            mCloseWith = websocket::close_code::policy_error;
        if (mCloseWith != websocket::close_code::normal) co_return;
        if (mSession->hasUser) mConnection->becomesUsers();
        mAckDue = true;
        wake();
    }
}

Awaitable<void> PageSocket::writeAll() {
    Channel& channel = mSession->channel();
    std::uint64_t cursor = 0;
    bool begun = false;
    while (mReading && channel.isAttached(this)) {
        // First of all an acknowledgement: what follows may be large, and the page waits for a sign of life.
        if (const auto message = begun ? channel.next(cursor) : std::nullopt) {
            mAckDue = false;
            if (message->text.size() > kAnnouncedBytes) {
                const bool announced =
                    co_await write("{\"size\":" + std::to_string(message->text.size()) + "}");
                if (!announced) co_return;
            }
            const bool written = co_await write(message->text);
            if (!written) co_return;
            if (!message->last) continue;
            break;
        }
        if (mAckDue || !begun) {
            mAckDue = false;
            begun = true;
            const std::string text = channel.acknowledgement();
            const bool written = co_await write(text);
            if (!written) co_return;
            continue;
        }
        co_await mWakeup->wait(std::chrono::hours(1));
    }
    co_await close(mCloseWith);
}

Awaitable<bool> PageSocket::write(std::string_view text) {
    mConnection->deadline().in(kWriteStall);
    const auto [ec, count] = co_await mSocket.async_write(asio::buffer(text.data(), text.size()), kAsTuple);
    mConnection->deadline().off();
    co_return !ec;
}

Awaitable<void> PageSocket::close(websocket::close_code code) {
    if (!mSocket.is_open()) co_return;
    mConnection->deadline().in(kLingerDeadline);
    co_await mSocket.async_close(websocket::close_reason(code), kAsTuple);
    mConnection->deadline().off();
}

} // namespace

Awaitable<void> serveWebSocket(HttpConnection& connection) {
    const HttpRequest& request = connection.request();
    int refusal = 0;
    if (request.method != "GET")
        refusal = 405;
    else if (!request.headerHasToken("upgrade", "websocket"))
        refusal = 426;
    else if (!connection.comesFromOwnPage() || request.header("origin").empty())
        refusal = 403;
    else if (request.cookie(connection.cookieName()).empty())
        refusal = 403;
    else if (!connection.input().empty())
        refusal = 400; // nothing may come before our answer
    if (refusal != 0) {
        HttpResponse response = errorResponse(refusal);
        if (refusal == 426) response.add("Upgrade", "websocket");
        co_await connection.respond(std::move(response));
        co_return;
    }
    connection.end();
    connection.deadline().off();
    const auto socket = std::make_shared<PageSocket>(connection.shared_from_this());
    co_await socket->run();
}

} // namespace Wt::Impl
