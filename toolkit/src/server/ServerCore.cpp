#include "server/ServerCore.h"

#include "core/Limits.h"
#include "core/Log.h"
#include "server/HttpResponse.h"
#include "server/IoPool.h"
#include "server/Listener.h"
#include "server/Site.h"
#include "server/TlsContext.h"

#include <Wt/WServer.h>

#include <algorithm>
#include <fstream>
#include <optional>
#include <thread>

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

namespace Wt::Impl {

namespace {

constexpr int kIoThreads = 4;    ///< at most; they only move bytes
constexpr int kMallocArenas = 4; ///< instead of eight for each core: a thousand session threads share them
constexpr Millis kFarewell{300}; ///< for the last messages of sessions to leave

void raiseDescriptorLimit() {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
    limit.rlim_cur = limit.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

} // namespace

struct ServerCore::Running {
    Running(const ServerConfig& config, const std::vector<EntryPoint>& entries, const HostFactory& makeHost)
        : site(config, entries, makeHost) {}

    Site site;
    std::optional<asio::ssl::context> tls;
    std::unique_ptr<IoPool>
        pool; ///< goes before what its connections refer to, and after the sockets that listen
    std::vector<std::unique_ptr<Listener>> listeners;
};

ServerCore::ServerCore(HostFactory makeHost) : mMakeHost(std::move(makeHost)) {}

ServerCore::~ServerCore() {
    stop();
}

void ServerCore::start() {
    using Speaks = HttpConnection::Speaks;
    ::mallopt(M_ARENA_MAX, kMallocArenas);
    raiseDescriptorLimit();
    loadErrorPages(config.errRoot);
    auto running = std::make_unique<Running>(config, entries, mMakeHost);
    running->pool = std::make_unique<IoPool>(std::min(config.threads, kIoThreads));
    if (!config.httpsAddress.empty()) running->tls.emplace(makeTlsContext(config));
    asio::ssl::context* tls = running->tls ? &*running->tls : nullptr;
    if (tls) running->site.hosts.addCertificate(tls->native_handle());

    const auto listen = [&](const std::string& address, int port, Speaks speaks) {
        running->listeners.push_back(
            std::make_unique<Listener>(*running->pool, running->site, address, port, speaks, tls));
    };
    if (config.sharesPort()) {
        listen(config.httpAddress, config.httpPort, Speaks::Either);
    } else {
        if (!config.httpAddress.empty()) listen(config.httpAddress, config.httpPort, Speaks::Plain);
        if (!config.httpsAddress.empty()) listen(config.httpsAddress, config.httpsPort, Speaks::Tls);
    }
    if (tls) running->site.tlsPort = running->listeners.back()->port();
    if (!config.pidFile.empty()) {
        std::ofstream file(config.pidFile);
        file << ::getpid() << "\n";
        if (!file.flush()) throw WServer::Exception("--pid-file: can't write '" + config.pidFile + "'");
    }
    ioService.setThreadCount(std::max(1, config.threads / 2));
    ioService.start();
    running->pool->start();
    for (const auto& listener : running->listeners) listener->start();
    mRunning = std::move(running);
}

void ServerCore::stop() {
    if (!mRunning) return;
    for (const auto& listener : mRunning->listeners) listener->close();
    ioService.stop();
    const bool hadSessions = mRunning->site.sessions->size() > 0;
    if (!mRunning->site.sessions->endAll(EndReason::ServerStopping, kStopDeadline))
        log(LogLevel::Warning, "server", "stopped with sessions that are still inside a handler");
    if (hadSessions) std::this_thread::sleep_for(kFarewell);
    mRunning->pool->stop();
    if (!config.pidFile.empty()) ::unlink(config.pidFile.c_str());
    mRunning.reset();
}

int ServerCore::httpPort() const {
    return mRunning ? mRunning->listeners.front()->port() : -1;
}

SessionRegistry* ServerCore::sessions() const {
    return mRunning ? mRunning->site.sessions.get() : nullptr;
}

} // namespace Wt::Impl
