#include "server/Stream.h"

#include <openssl/ssl.h>

namespace Wt::Impl {

Awaitable<bool> Stream::handshake(asio::ssl::context& context) {
    mTls.emplace(mSocket, context);
    const auto [ec] = co_await mTls->async_handshake(asio::ssl::stream_base::server, kAsTuple);
    co_return !ec;
}

void Stream::shutdownSend() {
    error_code ignored;
    mSocket.shutdown(Tcp::socket::shutdown_send, ignored);
}

} // namespace Wt::Impl
