#pragma once

#include <Wt/WGlobal.h>

#include <exception>
#include <memory>
#include <string>

namespace Wt {

class WIOService;

namespace Impl {
class ServerCore;
}

/// The built-in web server: listens, speaks HTTP(S) and WebSocket, keeps the sessions.
/// One at a time in a process.
///
///     Wt::WServer server(argv[0], "");
///     server.setServerConfiguration(argc, argv, "");
///     server.addEntryPoint(Wt::Application, createApplication, "", "favicon.ico");
///     if (server.start()) { Wt::WServer::waitForShutdown(0); server.stop(); }
class WServer {
public:
    /// What a wrong configuration or a server that can't start throws.
    class Exception : public std::exception {
    public:
        explicit Exception(const std::string& what);
        ~Exception() noexcept override;

        const char* what() const noexcept override;

    private:
        std::string mWhat;
    };

    /// `wtApplicationPath`: argv[0]. `wtConfigurationFile`: accepted for the interface's sake; nothing is
    /// read from it.
    explicit WServer(const std::string& wtApplicationPath = std::string(),
                     const std::string& wtConfigurationFile = std::string());

    /// As above with setServerConfiguration() included.
    WServer(int argc, char* argv[], const std::string& wtConfigurationFile = std::string());

    /// Stops the server if it runs.
    virtual ~WServer();

    WServer(const WServer&) = delete;
    WServer& operator=(const WServer&) = delete;

    /// The server of this process, or null.
    static WServer* instance();

    /// The command line, argv[0] included. `serverConfigurationFile`: a file of `name = value` lines with the
    /// same names, may be empty; the command line wins. Throws Exception, with the option's name, for what is
    /// unknown or wrong. `--help` prints the options and ends the process with status 0.
    void setServerConfiguration(int argc, char* argv[],
                                const std::string& serverConfigurationFile = std::string());

    /// Before start(). `path` is relative to the deployment path, "" the deployment path itself. `favicon`:
    /// relative to the document root.
    void addEntryPoint(EntryPointType type, ApplicationCreator callback,
                       const std::string& path = std::string(), const std::string& favicon = std::string());

    void removeEntryPoint(const std::string& path);

    void setAppRoot(const std::string& path);
    std::string appRoot() const;

    /// Opens the ports and starts the threads. False if the server runs already; throws Exception if a port,
    /// the document root or the certificate can't be used.
    bool start();
    bool isRunning() const;

    /// Ends every session, closes every connection, ends the threads; waits for all of it.
    /// Not from a session.
    void stop();

    /// start(), waitForShutdown(), stop().
    void run();

    /// The port in use (chosen by the system if 0 was configured); -1 if the server does not run.
    int httpPort() const;

    /// Blocks until SIGINT, SIGTERM or SIGQUIT arrives, and returns the signal's number. SIGHUP is ignored
    /// while it waits. `restartWatchFile` is not watched.
    static int waitForShutdown(const char* restartWatchFile = nullptr);

    /// Ends the sessions whose page has been silent for too long. True while sessions are left.
    bool expireSessions();

    /// Runs the function inside the session, as one of its events; from any thread. If there is no such
    /// session, or it ends first, the fallback is run instead, outside of any session.
    void post(const std::string& sessionId, const boost::function<void()>& function,
              const boost::function<void()>& fallbackFunction = boost::function<void()>());

    /// Runs the function inside every session.
    void postAll(const boost::function<void()>& function);

    /// The pool for timers and work outside of sessions.
    WIOService& ioService();

private:
    std::unique_ptr<Impl::ServerCore> mCore;
};

} // namespace Wt
