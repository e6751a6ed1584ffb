#pragma once

#include "tests/shell/SessionProbe.h"

#include <Wt/Test/WTestEnvironment>

#include <atomic>
#include <ctime>
#include <functional>
#include <memory>
#include <string>

/// A time of day that the test moves; the whole process reads it while this lives.
class TestClock {
public:
    TestClock();
    ~TestClock();

    void advance(long seconds) {
        sNow += seconds;
        sSteadyMs += seconds * 1000;
    }
    /// Somebody sets the time of day.
    void set(long seconds) { sNow += seconds; }

private:
    static std::atomic<std::time_t> sNow;
    static std::atomic<std::int64_t> sSteadyMs;
};

/// One browser's session with its environment. Made and used on one thread; a second one at the same time
/// needs a thread of its own.
class AppSession {
public:
    /// `ended`: the word in the address that says why the last session ended.
    explicit AppSession(const std::string& urlScheme = "https", const std::string& ended = "");
    /// The same, with the user's answers to dialogs that the constructor of the application runs.
    explicit AppSession(const std::function<void(Wt::WDialog*)>& answer);
    ~AppSession();

    MirlApplication& app() { return *mApp; }
    SessionProbe probe() { return {*mApp}; }
    Wt::Test::WTestEnvironment& environment() { return *mEnvironment; }

    /// Fills in the login dialog and presses its button.
    void logIn(const std::string& username, const std::string& password);
    /// Presses the button of the box that a failed attempt left, if there is one.
    void dismissBox();

private:
    void start(const std::string& urlScheme);

    std::unique_ptr<Wt::Test::WTestEnvironment> mEnvironment;
    std::unique_ptr<MirlApplication> mApp;
};

/// No failed logins at the beginning, and none left behind; the message bundle of this tree.
struct CleanLogins {
    CleanLogins();
    ~CleanLogins();
};
