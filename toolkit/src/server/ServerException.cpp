#include <Wt/WServer.h>

// Apart from WServer.cpp, so that the server can be linked without an application side.
namespace Wt {

WServer::Exception::Exception(const std::string& what) : mWhat(what) {}

WServer::Exception::~Exception() noexcept = default;

const char* WServer::Exception::what() const noexcept {
    return mWhat.c_str();
}

} // namespace Wt
