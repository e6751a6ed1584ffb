#include "platform/client/EventLog.h"
#include "shell/DocRoot.h"
#include "shell/LoginGate.h"
#include "shell/MirlApplication.h"
#include "shell/MirlPath.h"
#include "shell/RepeatedTimer.h"

#include <Wt/WServer>

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

/// How often the server looks for sessions whose browser is gone.
constexpr int kExpiryPeriodMs = 10000;

void announceStart() {
    char banner[128];
    std::snprintf(banner, sizeof banner, "MIRL started. %s build. Compiled %s %s.", "RELEASE", __DATE__,
                  __TIME__);
    std::puts(banner);
    std::fflush(stdout); // a pipe would hold it back until the process ends
    EventLog_write(3, 7, "main", banner);
}

void timerFunction() {
    Wt::WServer::instance()->expireSessions();
}

Wt::WApplication* createApplication(const Wt::WEnvironment& env) {
    EventLog_write(4, 7, "createApplication", "In createApplication.");
    auto* application = new MirlApplication(env);
    application->enableUpdates(true);
    return application;
}

void serve(int argc, char* argv[]) {
    Wt::WServer server(argv[0], "");
    server.setServerConfiguration(argc, argv, "");
    server.addEntryPoint(Wt::Application, createApplication, "", MirlPath_themeBase() + "favicon.ico");
    if (!server.start()) return;
    repeatedTimer(kExpiryPeriodMs, timerFunction, false);
    Wt::WServer::waitForShutdown(nullptr);
    server.stop();
}

void logServerException(const std::exception& e) {
    EventLog_write(1, 7, "main", "Server exception (%s).", e.what());
}

} // namespace

int main(int argc, char* argv[]) {
    EventLog_init(argv[0]);
    announceStart();
    const char* gate = std::getenv("MIRL_LOGIN_GATE");
    if (gate && !LoginGate::instance().keepIn(gate))
        EventLog_write(1, 7, "main", "Failed logins cannot be kept in %s: a restart forgets them.", gate);
    DocRoot_find(argc, argv, Main_docRoot);
    try {
        serve(argc, argv);
    } catch (const Wt::WServer::Exception& e) {
        logServerException(e);
    } catch (const std::exception& e) {
        logServerException(e);
    }
    return 0;
}
