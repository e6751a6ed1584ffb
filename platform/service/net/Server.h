// The event loop: one thread, one epoll, all clients.
#pragma once

#include "platform/service/engine/Engine.h"
#include "platform/service/engine/ThreadExecutor.h"
#include "platform/service/net/FrameReader.h"

#include <unordered_map>

namespace zeqd {

/// A listening Unix socket for the service's own group. A socket file that nobody serves is replaced. Throws
/// std::system_error, also when another service answers on it.
int listenOn(const std::string& path);

class Server {
public:
    /// Takes over the listening socket. `stopFd` becomes readable when the server is to stop.
    Server(Engine& engine, ThreadExecutor& executor, const Clock& clock, int listenFd, int stopFd,
           std::size_t maxClients, std::size_t outputBudget = kOutputBudget);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// Serves until stopFd or until the engine wants a restart, and then until what has been accepted
    /// is kept and answered.
    void run();

private:
    struct Client {
        ClientId id;
        int fd;
        FrameReader in;
        std::string out;
        std::uint32_t events = 0;  ///< watched by epoll
        std::size_t sent = 0;      ///< bytes of out that are gone
        bool waiting = false;      ///< a request is being worked on
        bool serving = false;      ///< serve() is at work
        bool ahead = false;        ///< stands in mAhead
        std::int64_t deadline = 0; ///< monotonic milliseconds, 0 = none
        std::int64_t taken =
            0; ///< by when it has to have taken all of its answer; 0 = it takes it as it comes
    };

    bool unsent() const;
    bool makeRoom(std::size_t bytes);
    void watch(int fd, std::uint32_t events, int operation, std::uint64_t tag);
    int timeout() const;
    void accept();
    bool greet(int fd);
    void readable(Client& client);
    void serve(Client& client);
    void serveAhead();
    void answered(ClientId id, const std::string& text);
    void listenTo(Client& client);
    bool send(Client& client);
    void expect(Client& client, std::chrono::seconds span);
    void drop(ClientId id);
    void dropLate();

    Engine& mEngine;
    ThreadExecutor& mExecutor;
    const Clock& mClock;
    int mListen;
    int mStop;
    int mEpoll;
    std::size_t mMaxClients;
    std::size_t mOutputBudget;
    std::int64_t mEarliest = 0; ///< no client's deadline is before it; 0 = none has one
    bool mStopping = false;     ///< no further request is taken
    std::int64_t mStopBy = 0;   ///< then: when answers that nobody takes are given up
    std::size_t mUnsent = 0;    ///< bytes of answers in all clients' outputs
    ClientId mNextId = 100;     ///< smaller tags name the loop's own descriptors
    std::unordered_map<ClientId, Client> mClients;
    std::vector<ClientId> mAhead; ///< have sent more than the request they were served for
};

} // namespace zeqd
