#include "platform/client/Connection.h"

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace zeq {

namespace {

constexpr json_int_t kProtocolVersion = 1;
constexpr std::size_t kKeptRequestBytes = 64U << 10;

std::string systemError(const char* doing) {
    return std::string(doing) + ": " + std::strerror(errno);
}

timeval toTimeval(std::chrono::milliseconds time) {
    return {static_cast<time_t>(time.count() / 1000), static_cast<suseconds_t>(time.count() % 1000 * 1000)};
}

/// Connected socket, or -1 with `why`.
int connectTo(const std::string& path, std::chrono::milliseconds deadline, std::string& why) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        why = "socket path is too long";
        return -1;
    }
    std::memcpy(address.sun_path, path.data(), path.size());
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) {
        why = systemError("socket");
        return -1;
    }
    // A full queue of a busy service makes connect wait; the send deadline bounds that too.
    const timeval limit = toTimeval(deadline);
    ::setsockopt(fd, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    ::setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    while (::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        if (errno == EINTR) continue;
        why = errno == EAGAIN ? "the service accepts no connection in time" : std::strerror(errno);
        ::close(fd);
        return -1;
    }
    return fd;
}

} // namespace

std::string socketPath() {
    const char* path = std::getenv("ZEQ_SOCKET");
    return path && *path ? path : kDefaultSocketPath;
}

std::chrono::milliseconds answerDeadline() {
    constexpr int kMax = 3'600'000;
    const char* text = std::getenv("ZEQ_TIMEOUT_MS");
    int milliseconds = 0;
    if (!text) return kAnswerDeadline;
    const char* end = text + std::strlen(text);
    const auto parsed = std::from_chars(text, end, milliseconds);
    if (parsed.ec != std::errc() || parsed.ptr != end || milliseconds < 1 || milliseconds > kMax)
        return kAnswerDeadline;
    return std::chrono::milliseconds(milliseconds);
}

std::unique_ptr<Connection> Connection::open(const std::string& path, std::chrono::milliseconds deadline,
                                             std::string& why) {
    const int fd = connectTo(path, deadline, why);
    if (fd < 0) return nullptr;
    std::unique_ptr<Connection> connection(new Connection(fd, deadline));
    const JsonPtr hello(json_pack("{s:s, s:s}", "method", "get", "resource", "zeqHello"));
    const JsonPtr answer = connection->exchange(hello.get());
    const json_t* version =
        json_object_get(json_array_get(json_object_get(answer.get(), "rows"), 0), "protocol");
    if (!answer) {
        why = connection->failure();
    } else if (json_integer_value(version) != kProtocolVersion) {
        why = "the service speaks another version of the protocol";
    } else {
        return connection;
    }
    return nullptr;
}

Connection::~Connection() {
    if (mSocket >= 0) ::close(mSocket);
}

JsonPtr Connection::exchange(json_t* request) {
    if (mSocket < 0) return nullptr;
    if (!encodeRequest(request, ++mLastId, mRequest, mFailure)) return nullptr;
    const auto until = Clock::now() + mDeadline;
    mWaited = false;
    if (!sendFrame(until) || !receiveFrame(until)) return nullptr;
    if (mRequest.capacity() > kKeptRequestBytes) std::string().swap(mRequest);
    std::string why;
    JsonPtr answer = decodeAnswer(mDecoder.payload(), mLastId, why);
    if (!answer) {
        end(std::move(why));
        return nullptr;
    }
    mDecoder.pop();
    if (mDecoder.size() > 0) end("the service sent more than an answer");
    return answer;
}

bool Connection::alive() {
    if (mSocket < 0) return false;
    char byte;
    const ssize_t count = ::recv(mSocket, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return true;
    end(count == 0  ? "the service closed it"
        : count > 0 ? "the service sent without a request"
                    : systemError("recv"));
    return false;
}

bool Connection::sendFrame(Clock::time_point until) {
    std::string_view rest = mRequest;
    while (!rest.empty()) {
        const ssize_t count = ::send(mSocket, rest.data(), rest.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            if (!waitFor(POLLOUT, until)) return false;
        } else if (errno == EPIPE || errno == ECONNRESET) {
            return true; // its last words, such as that it is full, may still be there to read
        } else if (errno != EINTR) {
            end(systemError("send"));
            return false;
        }
    }
    return true;
}

bool Connection::receiveFrame(Clock::time_point until) {
    // The beginning of an answer is never there yet: waiting for it and reading it are one call, which the
    // socket's own deadline bounds. Its continuation often is there.
    int flags = mWaited ? MSG_DONTWAIT : 0;
    while (mDecoder.state() == FrameDecoder::State::Incomplete) {
        const std::span<char> space = mDecoder.space();
        const ssize_t count = ::recv(mSocket, space.data(), space.size(), std::exchange(flags, MSG_DONTWAIT));
        if (count > 0) {
            mDecoder.filled(static_cast<std::size_t>(count));
        } else if (count == 0) {
            end(mDecoder.size() > 0 ? "the service closed it in the middle of an answer"
                                    : "the service closed it");
            return false;
        } else if (errno == EAGAIN) {
            if (!waitFor(POLLIN, until)) return false;
        } else if (errno != EINTR) {
            end(systemError("recv"));
            return false;
        }
    }
    if (mDecoder.state() == FrameDecoder::State::Complete) return true;
    end("answer of an impossible length");
    return false;
}

bool Connection::waitFor(short events, Clock::time_point until) {
    mWaited = true;
    while (true) {
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now());
        pollfd waiting{mSocket, events, 0};
        const int ready = rest.count() > 0 ? ::poll(&waiting, 1, static_cast<int>(rest.count())) : 0;
        if (ready > 0) return true;
        if (ready == 0) {
            end("no answer within " + std::to_string(mDeadline.count()) + " ms");
            return false;
        }
        if (errno != EINTR) {
            end(systemError("poll"));
            return false;
        }
    }
}

void Connection::end(std::string why) {
    ::close(mSocket);
    mSocket = -1;
    mFailure = std::move(why);
    mDecoder = FrameDecoder(kAnswerMaxBytes);
    std::string().swap(mRequest);
}

} // namespace zeq
