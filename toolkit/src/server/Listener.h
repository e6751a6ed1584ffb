#pragma once

#include "server/HttpConnection.h"
#include "server/Io.h"

#include <memory>
#include <string>

namespace Wt::Impl {

class IoPool;
struct Site;

/// A listening socket. Connections go to the pool's threads in turn; one more than allowed is closed at once.
class Listener {
public:
    /// Binds and listens. Throws WServer::Exception that names the address.
    Listener(IoPool& pool, Site& site, const std::string& address, int port, HttpConnection::Speaks speaks,
             asio::ssl::context* tls);

    void start();

    /// On any thread, once the pool has been started.
    void close();
    int port() const { return mPort; }

private:
    Awaitable<void> acceptAll();

    IoPool& mPool;
    Site& mSite;
    Acceptor mAcceptor;
    const HttpConnection::Speaks mSpeaks;
    asio::ssl::context* const mTls;
    int mPort = 0;
};

} // namespace Wt::Impl
