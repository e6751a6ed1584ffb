// A database service of the test's own.
#ifndef TESTS_PLATFORM_SUPPORT_ZEQDPROCESS_H
#define TESTS_PLATFORM_SUPPORT_ZEQDPROCESS_H

#include "tests/platform/support/TempFolder.h"

#include <string>
#include <sys/types.h>
#include <vector>

/// Runs the zeqd of this build on a temporary socket and data folder, with the demo installation unless told
/// otherwise, and points the environment's ZEQ_SOCKET and MIRL_SETTINGS_DIR to it: ZeqClient_new then reaches this service. Ends
/// and removes everything in its destructor. One at a time, made on the test's main thread.
class ZeqdProcess {
public:
    /// Password of the demo installation's user "admin".
    static constexpr const char* kAdminPassword = "test-Admin-1";

    /// Throws std::runtime_error with the service's last words when it is not ready within 30 s.
    explicit ZeqdProcess(std::vector<std::string> installation = {"--demo"});
    ~ZeqdProcess();
    ZeqdProcess(const ZeqdProcess&) = delete;
    ZeqdProcess& operator=(const ZeqdProcess&) = delete;

    /// Starts again on the same data and socket, after an end of any kind.
    void start();
    /// Asks it to stop (SIGTERM) and waits; the exit code, or minus the signal that ended it.
    int stop();
    /// The power cut: SIGKILL.
    int kill();
    /// Stops it from being scheduled (SIGSTOP), so that it is alive but silent; and lets it go on.
    void freeze();
    void thaw();
    /// Waits for it to end by itself, as it does for a reboot of the Switch;
    /// its exit code, or -1000 after 30 s.
    int waitForEnd();

    bool running();
    pid_t pid() const { return mPid; }
    std::string socketPath() const { return mFolder.path() / "zeq.sock"; }
    std::filesystem::path dataFolder() const { return mFolder.path() / "db"; }
    std::filesystem::path settingsFolder() const { return mFolder.path() / "settings"; }
    /// All that the service wrote to its terminal.
    std::string log() const;

private:
    int reap();
    int endWith(int signal);

    TempFolder mFolder;
    std::vector<std::string> mInstallation;
    pid_t mPid = 0; // 0 when it does not run
    int mLastStatus = 0;
};

#endif
