#include "server/Listener.h"

#include "core/Limits.h"
#include "core/Log.h"
#include "server/IoPool.h"
#include "server/Site.h"

#include <Wt/WServer.h>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/post.hpp>

#include <utility>

namespace Wt::Impl {

namespace {

constexpr int kBacklog = 1024;
constexpr Millis kAfterFailure{100}; ///< out of descriptors: let some be closed

void logFailure(const std::exception_ptr& failure) {
    if (!failure) return;
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& error) {
        log(LogLevel::Error, "connection", error.what());
    }
}

} // namespace

Listener::Listener(IoPool& pool, Site& site, const std::string& address, int port,
                   HttpConnection::Speaks speaks, asio::ssl::context* tls)
    : mPool(pool), mSite(site), mAcceptor(pool.first().get_executor()), mSpeaks(speaks), mTls(tls) {
    const auto orRefuse = [&](const error_code& ec) {
        if (ec)
            throw WServer::Exception("can't listen on " + address + " port " + std::to_string(port) + ": " +
                                     ec.message());
    };
    error_code ec;
    const auto ip = asio::ip::make_address(address, ec);
    orRefuse(ec);
    const Tcp::endpoint endpoint(ip, static_cast<unsigned short>(port));
    orRefuse(mAcceptor.open(endpoint.protocol(), ec));
    mAcceptor.set_option(asio::socket_base::reuse_address(true), ec);
    orRefuse(mAcceptor.bind(endpoint, ec));
    orRefuse(mAcceptor.listen(kBacklog, ec));
    mPort = mAcceptor.local_endpoint().port();
}

void Listener::start() {
    asio::co_spawn(
        mAcceptor.get_executor(), [this] { return acceptAll(); }, logFailure);
}

void Listener::close() {
    asio::post(mAcceptor.get_executor(), [this] {
        error_code ignored;
        mAcceptor.close(ignored);
    });
}

Awaitable<void> Listener::acceptAll() {
    while (mAcceptor.is_open()) {
        const IoExecutor executor = mPool.next().get_executor();
        auto [ec, socket] = co_await mAcceptor.async_accept(executor, kAsTuple);
        if (ec) {
            if (!mAcceptor.is_open()) break;
            Timer pause(mAcceptor.get_executor(), kAfterFailure);
            co_await pause.async_wait(kAsTuple);
            continue;
        }
        error_code gone;
        const auto peer = socket.remote_endpoint(gone);
        if (gone || !mSite.connections.enter(peer.address())) continue; // closed with the socket object
        socket.set_option(Tcp::no_delay(true), gone);
        const auto connection = std::make_shared<HttpConnection>(mSite, std::move(socket), peer.address());
        asio::co_spawn(
            executor, [connection, speaks = mSpeaks, tls = mTls] { return connection->run(speaks, tls); },
            logFailure);
    }
}

} // namespace Wt::Impl
