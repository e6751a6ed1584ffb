#include "platform/service/net/Server.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>

namespace zeqd {

namespace {

constexpr int kBacklog = 128;
constexpr mode_t kSocketMode = 0660;

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        fail(path);
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return address;
}

bool somebodyServes(const sockaddr_un& address) {
    const int probe = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (probe < 0) return false;
    const bool served = connect(probe, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(probe);
    return served;
}

} // namespace

int listenOn(const std::string& path) {
    const sockaddr_un address = addressOf(path);
    struct stat info {};
    if (lstat(path.c_str(), &info) == 0) {
        if (!S_ISSOCK(info.st_mode) || somebodyServes(address)) {
            errno = EADDRINUSE;
            fail(path);
        }
        unlink(path.c_str());
    }
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd < 0) fail("socket");
    const mode_t mask = umask(0777 & ~kSocketMode);
    const int bound = bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    umask(mask);
    if (bound != 0 || listen(fd, kBacklog) != 0) {
        const int error = errno;
        close(fd);
        errno = error;
        fail(path);
    }
    return fd;
}

} // namespace zeqd
