#include <Wt/WServer.h>

#include "core/Limits.h"
#include "core/Log.h"
#include "server/ServerCore.h"
#include "session/SessionRegistry.h"

#include <atomic>
#include <csignal>
#include <utility>

#include <pthread.h>

namespace Wt {

namespace {

std::atomic<WServer*> theServer = nullptr;
std::atomic<bool> leaveInterruptToDebugger = false;

/// Runs the fallback unless the function has been run: also when the event is dropped with a mailbox.
class Posted {
public:
    Posted(boost::function<void()> function, boost::function<void()> fallback)
        : mFunction(std::move(function)), mFallback(std::move(fallback)) {}
    Posted(const Posted&) = delete;
    Posted& operator=(const Posted&) = delete;
    ~Posted() {
        if (mDone || !mFallback) return;
        try {
            mFallback();
        } catch (const std::exception& error) {
            Impl::log(Impl::LogLevel::Error, "server", std::string("a fallback of post(): ") + error.what());
        } catch (...) {
            Impl::log(Impl::LogLevel::Error, "server", "a fallback of post() threw something");
        }
    }

    void run() {
        mDone = true;
        mFunction();
    }

private:
    boost::function<void()> mFunction;
    boost::function<void()> mFallback;
    bool mDone = false;
};

sigset_t shutdownSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGQUIT, SIGHUP}) sigaddset(&signals, signal);
    if (!leaveInterruptToDebugger) sigaddset(&signals, SIGINT);
    return signals;
}

void postTo(Impl::Session& session, const std::shared_ptr<Posted>& posted) {
    Impl::SessionEvent event;
    event.kind = Impl::SessionEvent::Kind::Call;
    event.call = [posted] { posted->run(); };
    session.mailbox().post(std::move(event));
}

} // namespace

WServer::WServer(const std::string& wtApplicationPath, const std::string&)
    : mCore(std::make_unique<Impl::ServerCore>(Impl::makeSessionHost)) {
    static_cast<void>(wtApplicationPath);
    WServer* none = nullptr;
    if (!theServer.compare_exchange_strong(none, this)) throw Exception("there is a WServer already");
}

WServer::WServer(int argc, char* argv[], const std::string& wtConfigurationFile)
    : WServer(argc > 0 ? argv[0] : "", wtConfigurationFile) {
    setServerConfiguration(argc, argv);
}

WServer::~WServer() {
    stop();
    theServer = nullptr;
}

WServer* WServer::instance() {
    return theServer;
}

void WServer::setServerConfiguration(int argc, char* argv[], const std::string& serverConfigurationFile) {
    mCore->config = Impl::readServerConfig(argc, argv, serverConfigurationFile);
    leaveInterruptToDebugger = mCore->config.gdb;
}

void WServer::addEntryPoint(EntryPointType type, ApplicationCreator callback, const std::string& path,
                            const std::string& favicon) {
    if (type != Application) throw Exception("addEntryPoint(): only Wt::Application is served");
    const std::string& deploy = mCore->config.deployPath;
    const std::string base = deploy == "/" ? "" : deploy;
    Impl::EntryPoint entry;
    entry.path = path.empty() ? deploy : base + (path.front() == '/' ? "" : "/") + path;
    entry.create = std::move(callback);
    if (!favicon.empty()) entry.favicon = favicon.front() == '/' ? favicon : "/" + favicon;
    mCore->entries.push_back(std::move(entry));
}

void WServer::removeEntryPoint(const std::string& path) {
    const std::string& deploy = mCore->config.deployPath;
    const std::string absolute =
        path.empty() ? deploy : (deploy == "/" ? "" : deploy) + (path.front() == '/' ? "" : "/") + path;
    std::erase_if(mCore->entries, [&](const Impl::EntryPoint& entry) { return entry.path == absolute; });
}

void WServer::setAppRoot(const std::string& path) {
    mCore->config.appRoot = path;
}

std::string WServer::appRoot() const {
    return mCore->config.appRoot;
}

bool WServer::start() {
    if (isRunning()) return false;
    // The threads inherit the mask, so that a signal is left for waitForShutdown().
    const sigset_t awaited = shutdownSignals();
    sigset_t before;
    pthread_sigmask(SIG_BLOCK, &awaited, &before);
    std::signal(SIGPIPE, SIG_IGN); // a reader that went away is an error code, not the end of the process
    try {
        mCore->start();
    } catch (...) {
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
        throw;
    }
    return true;
}

bool WServer::isRunning() const {
    return mCore->isRunning();
}

void WServer::stop() {
    mCore->stop();
}

void WServer::run() {
    if (!start()) return;
    waitForShutdown();
    stop();
}

int WServer::httpPort() const {
    return mCore->httpPort();
}

int WServer::waitForShutdown(const char*) {
    const sigset_t awaited = shutdownSignals();
    pthread_sigmask(SIG_BLOCK, &awaited, nullptr);
    int received = SIGHUP;
    while (received == SIGHUP)
        if (sigwait(&awaited, &received) != 0) break;
    return received;
}

bool WServer::expireSessions() {
    const auto sessions = mCore->sessions();
    return sessions && sessions->expire(Impl::SessionRegistry::Clock::now()) > 0;
}

void WServer::post(const std::string& sessionId, const boost::function<void()>& function,
                   const boost::function<void()>& fallbackFunction) {
    const auto posted = std::make_shared<Posted>(function, fallbackFunction);
    const auto sessions = mCore->sessions();
    if (const auto session = sessions ? sessions->findByName(sessionId) : nullptr) postTo(*session, posted);
}

void WServer::postAll(const boost::function<void()>& function) {
    const auto sessions = mCore->sessions();
    if (!sessions) return;
    sessions->forEach([&](Impl::Session& session) {
        postTo(session, std::make_shared<Posted>(function, boost::function<void()>()));
    });
}

WIOService& WServer::ioService() {
    return mCore->ioService;
}

} // namespace Wt
