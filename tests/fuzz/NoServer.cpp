// The toolkit without its server, for fuzz targets that clang builds: there is none in this process.
#include <Wt/WServer.h>

namespace Wt {

namespace Impl {
class ServerCore {};
} // namespace Impl

WServer::~WServer() = default;

WServer* WServer::instance() {
    return nullptr;
}

std::string WServer::appRoot() const {
    return {};
}

} // namespace Wt
