#pragma once

#include "server/FrameMeter.h"
#include "server/Io.h"

#include <boost/asio/async_result.hpp>
#include <boost/asio/ssl/stream.hpp>
#include <boost/beast/core/role.hpp>
#include <boost/beast/websocket/teardown.hpp>

#include <algorithm>
#include <optional>
#include <string>

namespace Wt::Impl {

/// A TCP connection that may have put on TLS: one type for both, so that HTTP and WebSocket are compiled
/// once. Satisfies Asio's AsyncStream. One I/O thread.
class Stream {
public:
    using executor_type = IoExecutor;

    explicit Stream(Socket socket) : mSocket(std::move(socket)) {}

    IoExecutor get_executor() { return mSocket.get_executor(); }
    Socket& socket() { return mSocket; }
    bool tls() const { return mTls.has_value(); }

    /// The server's part of the handshake. False if it failed; the connection is of no use then.
    Awaitable<bool> handshake(asio::ssl::context& context);

    /// Says goodbye as far as it goes at once, and closes for sending.
    void shutdownSend();

    /// Shows everything that is read to a meter, or to none (null); what it refuses ends the connection.
    void meter(FrameMeter* one) { mMeter = one; }

    template <typename Buffers, typename Token>
    auto async_read_some(const Buffers& buffers, Token&& token) {
        return asio::async_initiate<Token, void(error_code, std::size_t)>(
            [this](auto handler, const auto& into) {
                if (!mMeter) return readInto(into, std::move(handler));
                const auto executor =
                    asio::get_associated_executor(handler, get_executor()); // before the move
                readInto(into, asio::bind_executor(executor, [this, into, handler = std::move(handler)](
                                                                 error_code ec, std::size_t count) mutable {
                             if (!ec && !metered(into, count)) ec = asio::error::message_size;
                             handler(ec, count);
                         }));
            },
            token, buffers);
    }

    template <typename Buffers, typename Token>
    auto async_write_some(const Buffers& buffers, Token&& token) {
        return asio::async_initiate<Token, void(error_code, std::size_t)>(
            [this](auto handler, const auto& from) {
                if (mTls)
                    mTls->async_write_some(from, std::move(handler));
                else
                    mSocket.async_write_some(from, std::move(handler));
            },
            token, buffers);
    }

    // How Beast's WebSocket ends a stream that it does not know.
    friend void beast_close_socket(Stream& stream) {
        error_code ignored;
        stream.mSocket.close(ignored);
    }

    friend void teardown(boost::beast::role_type, Stream& stream, error_code& ec) {
        stream.shutdownSend();
        ec = {};
    }

    template <typename Handler>
    friend void async_teardown(boost::beast::role_type, Stream& stream, Handler&& handler) {
        stream.shutdownSend();
        const auto executor =
            asio::get_associated_executor(handler, stream.get_executor()); // before the move
        asio::post(stream.get_executor(),
                   asio::bind_executor(executor, [handler = std::forward<Handler>(handler)]() mutable {
                       handler(error_code());
                   }));
    }

private:
    template <typename Buffers, typename Handler>
    void readInto(const Buffers& into, Handler&& handler) {
        if (mTls)
            mTls->async_read_some(into, std::forward<Handler>(handler));
        else
            mSocket.async_read_some(into, std::forward<Handler>(handler));
    }

    template <typename Buffers>
    bool metered(const Buffers& from, std::size_t count) {
        const auto now = FrameMeter::Clock::now();
        for (auto piece = asio::buffer_sequence_begin(from); count > 0; ++piece) {
            const asio::const_buffer bytes = *piece;
            const std::size_t taken = std::min(count, bytes.size());
            if (mMeter && !mMeter->take({static_cast<const char*>(bytes.data()), taken}, now)) return false;
            count -= taken;
        }
        return true;
    }

    Socket mSocket;
    FrameMeter* mMeter = nullptr;
    std::optional<asio::ssl::stream<Socket&>> mTls;
};

} // namespace Wt::Impl
