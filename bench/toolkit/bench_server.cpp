// The server with sessions that hold no widgets, for the figures of the server itself. Takes the command line
// of any program on the toolkit; prints "port N" once it listens, ends on SIGTERM.
#include "server/ServerCore.h"
#include "tests/toolkit/support/FakeHost.h"

#include <csignal>
#include <cstdio>
#include <exception>

using namespace Wt::Impl;

int main(int argc, char* argv[]) try {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);

    ServerCore core(makeFakeHost);
    core.config = readServerConfig(argc, argv, "");
    core.entries.push_back({"/", {}, "/favicon.ico"});
    core.start();
    std::printf("port %d\n", core.httpPort());
    std::fflush(stdout);
    int signal = 0;
    sigwait(&signals, &signal);
    core.stop();
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
