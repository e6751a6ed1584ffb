#include "tests/platform/service/support/RawClient.h"

#include "platform/service/net/FrameReader.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace zeqd::testing {

RawClient::RawClient(const std::string& socketPath) : mFd(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, socketPath.c_str(), sizeof address.sun_path - 1);
    const timeval silence{10, 0};
    setsockopt(mFd, SOL_SOCKET, SO_RCVTIMEO, &silence, sizeof silence);
    if (connect(mFd, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        const std::string what = std::strerror(errno);
        close(mFd);
        throw std::runtime_error("connect: " + what);
    }
}

RawClient::~RawClient() {
    close(mFd);
}

bool RawClient::send(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(mFd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

bool RawClient::sendFrame(std::string_view text) {
    std::string frame;
    appendFrame(frame, text);
    return send(frame);
}

bool RawClient::readAll(std::string& bytes) {
    std::size_t at = 0;
    while (at < bytes.size()) {
        const ssize_t got = recv(mFd, bytes.data() + at, bytes.size() - at, 0);
        if (got <= 0) return false;
        at += static_cast<std::size_t>(got);
    }
    return true;
}

void RawClient::receiveSome(std::size_t bytes) {
    std::string some(bytes, '\0');
    [[maybe_unused]] const ssize_t got = recv(mFd, some.data(), some.size(), MSG_DONTWAIT);
}

std::string RawClient::receive() {
    std::string header(kFrameHeader, '\0');
    if (!readAll(header)) return {};
    std::size_t length = 0;
    for (const char c : header) length = length << 8 | static_cast<unsigned char>(c);
    std::string text(length, '\0');
    return readAll(text) ? text : std::string();
}

} // namespace zeqd::testing
