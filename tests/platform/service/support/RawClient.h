// A client that may misbehave: bytes on the service's socket.
#pragma once

#include <string>
#include <string_view>

namespace zeqd::testing {

class RawClient {
public:
    /// Connects; throws std::runtime_error.
    explicit RawClient(const std::string& socketPath);
    ~RawClient();
    RawClient(const RawClient&) = delete;
    RawClient& operator=(const RawClient&) = delete;

    /// False when the service has closed.
    bool send(std::string_view bytes);
    bool sendFrame(std::string_view text);
    /// Content of the next frame; empty when the service closes or is silent for 10 s.
    std::string receive();
    /// Takes so many bytes, or what there is.
    void receiveSome(std::size_t bytes);
    std::string ask(std::string_view text) { return sendFrame(text) ? receive() : std::string(); }

private:
    bool readAll(std::string& bytes);
    int mFd;
};

} // namespace zeqd::testing
