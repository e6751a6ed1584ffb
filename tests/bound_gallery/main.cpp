// The gallery of bound widgets. Takes what mirl takes, and works on the service at
// ZEQ_SOCKET, which it writes to.
#include "tests/bound_gallery/BoundGallery.h"

#include "platform/client/EventLog.h"
#include "shell/DocRoot.h"
#include "shell/MirlPath.h"

#include <Wt/WServer>

#include <cstdio>

namespace {

Wt::WApplication* createGallery(const Wt::WEnvironment& environment) {
    auto* gallery = new BoundGallery(environment);
    gallery->build();
    return gallery;
}

} // namespace

int main(int argc, char* argv[]) {
    EventLog_init(argv[0]);
    DocRoot_find(argc, argv, Main_docRoot);
    try {
        Wt::WServer server(argv[0], "");
        server.setServerConfiguration(argc, argv, "");
        server.addEntryPoint(Wt::Application, createGallery, "", MirlPath_themeBase() + "favicon.ico");
        if (!server.start()) return 1;
        Wt::WServer::waitForShutdown();
        server.stop();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bound_gallery: %s\n", error.what());
        return 1;
    }
    return 0;
}
