#include "tests/platform/support/ZeqdProcess.h"

#include "platform/client/Connection.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

constexpr auto kStartLimit = 30s;
constexpr auto kStopLimit = 20s;
constexpr auto kEndLimit = 30s;
constexpr auto kGreetingLimit = 1s;
constexpr auto kPause = 5ms;
constexpr int kStillRunning = -1000;

/// True once `done` holds; false after `limit`.
template <class Condition>
bool waitUntil(std::chrono::seconds limit, Condition done) {
    const auto until = std::chrono::steady_clock::now() + limit;
    while (!done()) {
        if (std::chrono::steady_clock::now() > until) return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

[[noreturn]] void becomeService(const std::vector<std::string>& arguments, const std::string& logFile) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // a crashed test leaves nothing behind
    const int log = ::open(logFile.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    ::dup2(log, STDOUT_FILENO);
    ::dup2(log, STDERR_FILENO);
    std::vector<char*> argv;
    for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    ::execv(argv[0], argv.data());
    ::_exit(127);
}

} // namespace

ZeqdProcess::ZeqdProcess(std::vector<std::string> installation) : mInstallation(std::move(installation)) {
    std::filesystem::create_directories(dataFolder());
    std::filesystem::create_directories(settingsFolder());
    ::setenv("ZEQ_SOCKET", socketPath().c_str(), 1);
    ::setenv("MIRL_SETTINGS_DIR", settingsFolder().c_str(), 1);
    ::setenv("ZEQ_TIMEOUT_MS", "30000", 0); // a busy machine is no reason for a test to fail
    ::setenv("ZEQD_ADMIN_PASSWORD", kAdminPassword, 1);
    try {
        start();
    } catch (...) {
        kill();
        throw;
    }
}

ZeqdProcess::~ZeqdProcess() {
    stop();
    ::unsetenv("ZEQ_SOCKET");
    ::unsetenv("MIRL_SETTINGS_DIR");
}

void ZeqdProcess::start() {
    std::vector<std::string> arguments = {MIRL_BINARY_DIR "/platform/zeqd",
                                          "--socket",
                                          socketPath(),
                                          "--data",
                                          dataFolder(),
                                          "--settings-dir",
                                          settingsFolder()};
    arguments.insert(arguments.end(), mInstallation.begin(), mInstallation.end());
    const std::string logFile = mFolder.path() / "zeqd.log";
    mPid = ::fork();
    if (mPid == 0) becomeService(arguments, logFile);
    std::string why;
    const bool ready = waitUntil(kStartLimit, [&] {
        return !running() || zeq::Connection::open(socketPath(), kGreetingLimit, why) != nullptr;
    });
    if (!running()) throw std::runtime_error("zeqd ended at once:\n" + log());
    if (!ready) throw std::runtime_error("zeqd is not ready (" + why + "):\n" + log());
}

bool ZeqdProcess::running() {
    return mPid > 0 && reap() == kStillRunning;
}

/// The end of the process if it has ended, else kStillRunning.
int ZeqdProcess::reap() {
    int status = 0;
    if (mPid <= 0) return mLastStatus;
    if (::waitpid(mPid, &status, WNOHANG) == 0) return kStillRunning;
    mPid = 0;
    mLastStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return mLastStatus;
}

int ZeqdProcess::endWith(int signal) {
    if (mPid > 0) ::kill(mPid, signal);
    if (!waitUntil(kStopLimit, [&] { return !running(); })) {
        ::kill(mPid, SIGKILL);
        waitUntil(kStopLimit, [&] { return !running(); });
    }
    return mLastStatus;
}

int ZeqdProcess::stop() {
    thaw();
    return endWith(SIGTERM);
}

int ZeqdProcess::kill() {
    return endWith(SIGKILL);
}

void ZeqdProcess::freeze() {
    if (mPid > 0) ::kill(mPid, SIGSTOP);
}

void ZeqdProcess::thaw() {
    if (mPid > 0) ::kill(mPid, SIGCONT);
}

int ZeqdProcess::waitForEnd() {
    return waitUntil(kEndLimit, [&] { return !running(); }) ? mLastStatus : kStillRunning;
}

std::string ZeqdProcess::log() const {
    std::ifstream file(mFolder.path() / "zeqd.log");
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}
