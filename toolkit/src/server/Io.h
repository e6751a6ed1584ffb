#pragma once

#include <boost/asio/as_tuple.hpp>
#include <boost/asio/awaitable.hpp>
#include <boost/asio/basic_waitable_timer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/use_awaitable.hpp>

#include <chrono>

/// The names under which the server uses Asio. Each connection lives on one I/O thread with an io_context of
/// its own, so nothing of a connection needs a lock or a strand; other threads reach it by post() alone.
///
/// g++ 12 miscompiles a co_await inside a condition: its result gets a name first, everywhere.
namespace Wt::Impl {

namespace asio = boost::asio;
using boost::system::error_code;
using Tcp = asio::ip::tcp;

using IoExecutor = asio::io_context::executor_type;
using Socket = asio::basic_stream_socket<Tcp, IoExecutor>;
using Acceptor = asio::basic_socket_acceptor<Tcp, IoExecutor>;
using Timer = asio::basic_waitable_timer<std::chrono::steady_clock,
                                         asio::wait_traits<std::chrono::steady_clock>, IoExecutor>;

template <typename T>
using Awaitable = asio::awaitable<T, IoExecutor>;

/// Completion of an operation as a tuple of its error code and results; nothing is thrown.
constexpr asio::as_tuple_t<asio::use_awaitable_t<IoExecutor>> kAsTuple{};

} // namespace Wt::Impl
