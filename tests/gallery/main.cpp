#include "Gallery.h"

#include <Wt/WServer>

#include <cstdio>

namespace {
Wt::WApplication* createGallery(const Wt::WEnvironment& environment) {
    return new Gallery(environment);
}
} // namespace

int main(int argc, char* argv[]) {
    try {
        Wt::WServer server(argv[0], "");
        server.setServerConfiguration(argc, argv, "");
        server.addEntryPoint(Wt::Application, createGallery);
        if (!server.start()) return 1;
        Wt::WServer::waitForShutdown();
        server.stop();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "gallery: %s\n", error.what());
        return 1;
    }
    return 0;
}
