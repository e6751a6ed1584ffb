#include "tests/platform/support/FakePeer.h"

#include "platform/client/Frame.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using zeq::JsonPtr;

namespace {

std::string dump(const json_t* tree) {
    char* text = json_dumps(tree, JSON_COMPACT | JSON_SORT_KEYS);
    std::string out(text ? text : "");
    std::free(text);
    return out;
}

} // namespace

FakePeer::Reply FakePeer::frame(const std::string& payload) {
    const auto header = zeq::frameHeader(payload.size());
    return {std::string(header.data(), header.size()) + payload, false};
}

FakePeer::Reply FakePeer::answer(const json_t* request, const std::string& members) {
    const JsonPtr tree(json_loads(members.c_str(), 0, nullptr));
    json_object_set(tree.get(), "id", json_object_get(request, "id"));
    return frame(dump(tree.get()));
}

FakePeer::FakePeer(const std::string& members)
    : FakePeer([members](const json_t* request) { return answer(request, members); }) {}

FakePeer::FakePeer(Handler handler, bool greet) : mHandler(std::move(handler)), mGreet(greet) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, socketPath().c_str(), sizeof address.sun_path - 1);
    mListener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ::bind(mListener, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    ::listen(mListener, 64);
    ::setenv("ZEQ_SOCKET", socketPath().c_str(), 1);
    mAcceptor = std::thread([this] { acceptAll(); });
}

FakePeer::~FakePeer() {
    ::unsetenv("ZEQ_SOCKET");
    ::shutdown(mListener, SHUT_RDWR);
    mAcceptor.join();
    dropConnections();
    for (std::thread& server : mServers) server.join();
    ::close(mListener);
}

void FakePeer::dropConnections() {
    const std::lock_guard lock(mMutex);
    for (const int socket : mSockets) ::shutdown(socket, SHUT_RDWR);
}

std::vector<std::string> FakePeer::requests() const {
    const std::lock_guard lock(mMutex);
    return mRequests;
}

void FakePeer::acceptAll() {
    int socket;
    while ((socket = ::accept4(mListener, nullptr, nullptr, SOCK_CLOEXEC)) >= 0) {
        const std::lock_guard lock(mMutex);
        mSockets.push_back(socket);
        mServers.emplace_back([this, socket] { serve(socket); });
    }
}

void FakePeer::serve(int socket) {
    zeq::FrameDecoder decoder(zeq::kRequestMaxBytes);
    bool open = true;
    while (open) {
        const auto space = decoder.space();
        const ssize_t count = ::recv(socket, space.data(), space.size(), 0);
        if (count <= 0) break;
        decoder.filled(static_cast<std::size_t>(count));
        while (open && decoder.state() == zeq::FrameDecoder::State::Complete) {
            const Reply reply = reactTo(std::string(decoder.payload()));
            decoder.pop();
            std::string_view rest = reply.bytes;
            while (!rest.empty()) {
                const ssize_t sent = ::send(socket, rest.data(), rest.size(), MSG_NOSIGNAL);
                if (sent <= 0) break;
                rest.remove_prefix(static_cast<std::size_t>(sent));
            }
            open = !reply.close;
        }
    }
    const std::lock_guard lock(mMutex);
    std::erase(mSockets, socket);
    ::close(socket);
}

FakePeer::Reply FakePeer::reactTo(const std::string& payload) {
    const JsonPtr request(json_loadb(payload.data(), payload.size(), 0, nullptr));
    const char* resource = json_string_value(json_object_get(request.get(), "resource"));
    if (mGreet && resource && std::strcmp(resource, "zeqHello") == 0) {
        return answer(request.get(), R"({"rows":[{"protocol":1}]})");
    }
    {
        const JsonPtr bare(json_copy(request.get()));
        json_object_del(bare.get(), "id");
        const std::lock_guard lock(mMutex);
        mRequests.push_back(dump(bare.get()));
    }
    return mHandler(request.get());
}
