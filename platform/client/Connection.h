// One connection to the service: socket, deadlines, frames. Internal to the client library.
#ifndef PLATFORM_CLIENT_CONNECTION_H
#define PLATFORM_CLIENT_CONNECTION_H

#include "platform/client/Frame.h"
#include "platform/client/Message.h"

#include <chrono>
#include <memory>
#include <string>

namespace zeq {

/// How long an answer, and the opening of a connection, may take.
constexpr std::chrono::milliseconds kAnswerDeadline{5'000};

/// Where the service listens when ZEQ_SOCKET does not say.
constexpr const char* kDefaultSocketPath = "/run/zeq/zeq.sock";

/// ZEQ_SOCKET or the default.
std::string socketPath();
/// ZEQ_TIMEOUT_MS (1 to 3,600,000) or the default.
std::chrono::milliseconds answerDeadline();

class Connection {
public:
    /// Connects and greets. Null on failure; `why` then says it in words fit for the log and the user.
    static std::unique_ptr<Connection> open(const std::string& path, std::chrono::milliseconds deadline,
                                            std::string& why);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Sends the request and waits for its answer. Null on failure, see failure(); a request that cannot be
    /// sent, being too large for example, leaves the connection usable, every other failure ends it.
    JsonPtr exchange(json_t* request);

    bool ended() const { return mSocket < 0; }
    /// Asks the socket, and ends the connection if the service went away meanwhile.
    bool alive();

    /// Why the last exchange failed or the connection ended.
    const std::string& failure() const { return mFailure; }

private:
    using Clock = std::chrono::steady_clock;

    Connection(int socket, std::chrono::milliseconds deadline) : mSocket(socket), mDeadline(deadline) {}

    bool sendFrame(Clock::time_point until);
    bool receiveFrame(Clock::time_point until);
    bool waitFor(short events, Clock::time_point until);
    void end(std::string why);

    int mSocket; // -1 once the connection has ended
    std::chrono::milliseconds mDeadline;
    json_int_t mLastId = 0;
    std::string mRequest; // kept for its capacity
    FrameDecoder mDecoder{kAnswerMaxBytes};
    bool mWaited = false; // in this exchange, for the socket
    std::string mFailure;
};

} // namespace zeq

#endif
