// Serves the synthetic page. Takes the command line of any program on the toolkit;
// prints "port N" once it listens.
#include "page/SyntheticPage.h"

#include <Wt/WServer>

#include <cstdio>
#include <exception>

namespace {

Wt::WApplication* createPage(const Wt::WEnvironment& environment) {
    return new SyntheticPage(environment);
}

} // namespace

int main(int argc, char* argv[]) try {
    Wt::WServer server(argv[0], "");
    server.setServerConfiguration(argc, argv, "");
    server.addEntryPoint(Wt::Application, createPage);
    if (!server.start()) return 1;
    std::printf("port %d\n", server.httpPort());
    std::fflush(stdout);
    Wt::WServer::waitForShutdown();
    server.stop();
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
