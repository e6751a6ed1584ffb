// Stands in for the database service inside a test's own process, and misbehaves on demand.
#ifndef TESTS_PLATFORM_SUPPORT_FAKEPEER_H
#define TESTS_PLATFORM_SUPPORT_FAKEPEER_H

#include "platform/client/Message.h"
#include "tests/platform/support/TempFolder.h"

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// Listens on a temporary socket, to which it points the environment's ZEQ_SOCKET, and answers each request
/// by the test's handler. It greets by itself.
class FakePeer {
public:
    /// What goes back to the client: bytes as they are, nothing if empty; then the connection may be closed.
    struct Reply {
        std::string bytes;
        bool close = false;
    };

    static Reply silence() { return {}; }
    static Reply hangUp() { return {{}, true}; }
    /// A well-formed frame around any payload.
    static Reply frame(const std::string& payload);
    /// A well-formed answer to `request`: `members` is JSON text such as {"rows":[]},
    /// to which the id is added.
    static Reply answer(const json_t* request, const std::string& members);

    /// Called on the peer's own threads, one request at a time for each connection.
    using Handler = std::function<Reply(const json_t* request)>;

    /// `greet` false: the handler gets the greeting too.
    explicit FakePeer(Handler handler, bool greet = true);
    /// A peer that answers every request with the same members.
    explicit FakePeer(const std::string& members);
    ~FakePeer();
    FakePeer(const FakePeer&) = delete;
    FakePeer& operator=(const FakePeer&) = delete;

    /// Closes all connections; new ones are still accepted.
    void dropConnections();

    /// The requests received so far, without greetings, as compact JSON with sorted keys and without "id".
    std::vector<std::string> requests() const;
    std::string socketPath() const { return mFolder.path() / "zeq.sock"; }

private:
    void acceptAll();
    void serve(int socket);
    Reply reactTo(const std::string& payload);

    TempFolder mFolder;
    Handler mHandler;
    bool mGreet;
    int mListener = -1;
    mutable std::mutex mMutex; // guards what follows
    std::vector<int> mSockets;
    std::vector<std::thread> mServers;
    std::vector<std::string> mRequests;
    std::thread mAcceptor;
};

#endif
