#include "platform/service/Service.h"

#include "platform/service/OpenDatabase.h"
#include "platform/service/engine/SystemClock.h"
#include "platform/service/net/Server.h"
#include "platform/service/net/Syslog.h"
#include "platform/service/sim/Fetch.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <malloc.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

namespace zeqd {

namespace {

void log(const std::string& line) {
    std::fprintf(stderr, "zeqd: %s\n", line.c_str());
}

/// One data folder serves one service. The lock goes with the process.
void lockFolder(const std::string& folder) {
    std::filesystem::create_directories(folder);
    const std::string path = folder + "/lock";
    const int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0) throw std::system_error(errno, std::generic_category(), path);
    if (flock(fd, LOCK_EX | LOCK_NB) != 0)
        throw std::runtime_error("the data folder " + folder + " is in use by another zeqd");
}

int stopSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&signals, signal);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN); // a limit of file sizes is as good as a full disk, which writers are told
    const int fd = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
    if (fd < 0) throw std::system_error(errno, std::generic_category(), "signalfd");
    return fd;
}

/// Each client takes a descriptor; a few more are the service's own. Answers how many clients there may be.
std::size_t allowClients(std::size_t wanted) {
    constexpr rlim_t kOwn = 64;
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return wanted;
    if (limit.rlim_cur < wanted + kOwn) {
        limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, wanted + kOwn);
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    return limit.rlim_cur > kOwn ? std::min<std::size_t>(wanted, limit.rlim_cur - kOwn) : 1;
}

InstallationPlan planOf(const Options& options, std::int64_t now) {
    InstallationPlan plan;
    plan.kind = options.empty ? InstallationPlan::Kind::Empty : InstallationPlan::Kind::Demo;
    plan.dataDir = options.demoDir;
    plan.adminPassword = options.adminPassword;
    plan.devices = options.devices;
    plan.users = options.users;
    plan.now = now;
    return plan;
}

/// What the start changes is kept before the first client is heard.
void settle(Engine& engine, ThreadExecutor& executor) {
    while (!engine.idle()) {
        pollfd ready{executor.fd(), POLLIN, 0};
        poll(&ready, 1, -1);
        executor.drain();
        engine.flush();
    }
}

} // namespace

int serve(const Options& options) {
    const int stop = stopSignals();
    const std::size_t clients = allowClients(options.clients);
    lockFolder(options.data);
    SystemClock clock;
    Store store;
    const std::string database = options.data + "/zeq.db";
    const auto disk = openDatabase(database, store, planOf(options, clock.now()), log);
    ThreadExecutor executor;
    SyslogSender syslog(static_cast<std::uint16_t>(options.syslogPort), log);
    const auto toSyslog = [&syslog](const std::string& server, const EventLine& event,
                                    const std::string& eid) {
        syslog.send(server, syslogMessage(event, eid));
    };
    Engine engine({clock,
                   *disk,
                   executor,
                   log,
                   options.settingsDir,
                   database,
                   toSyslog,
                   hashPassword,
                   {options.uploadDir, options.localServers || options.demo,
                    options.simControl || options.demo, options.living}},
                  std::move(store));
    const std::filesystem::path folder = std::filesystem::path(options.socket).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder);
    const int listening = listenOn(options.socket);
    Server server(engine, executor, clock, listening, stop, clients);
    engine.start(options.timeFactor);
    settle(engine, executor);
    malloc_trim(0);
    log("serving on " + options.socket);
    server.run();
    abandonFetches(); // the threads' work in hand is waited for
    unlink(options.socket.c_str());
    close(stop);
    if (engine.restartWanted()) log("the Switch reboots; start me again");
    return engine.restartWanted() ? kExitRestart : 0;
}

} // namespace zeqd
