#pragma once

#include <map>
#include <string>
#include <string_view>

namespace Wt::Impl {

/// An answer as a browser sees it.
struct Answer {
    int status = 0;                             ///< 0: the connection ended without one
    std::map<std::string, std::string> headers; ///< lower-case names
    std::string body;
};

/// A blocking connection to 127.0.0.1; everything is given up after ten seconds.
class TestClient {
public:
    explicit TestClient(int port);
    ~TestClient();
    TestClient(const TestClient&) = delete;
    TestClient& operator=(const TestClient&) = delete;

    void send(std::string_view bytes);
    Answer readAnswer(bool toHead = false);

    /// Whether the peer has closed, with nothing left to read.
    bool isClosed();

    /// Closes with a reset, as a machine does that is switched off.
    void cut();

    // WebSocket frames, after a 101.
    void sendText(std::string_view text);
    void sendFrame(int opcode, std::string_view payload);

    /// The next message; "close CODE" for a close frame, "" when the connection is gone. Pings are skipped.
    std::string readText();

private:
    bool more();
    std::string take(std::size_t count);

    int mSocket = -1;
    std::string mInput;
};

/// One request on a connection of its own. `headers`: complete lines.
Answer ask(int port, std::string_view method, std::string_view target, std::string_view headers = "",
           std::string_view body = "");

/// A page: its session started, its secrets kept.
class TestPage {
public:
    /// `cookie`: of an earlier page of the same browser.
    explicit TestPage(int port, const std::string& cookie = "");

    const std::string& token() const { return mToken; }
    const std::string& cookie() const { return mCookie; }
    const std::string& session() const { return mSession; }
    int status() const { return mStatus; }
    std::string cookieHeader() const {
        return "Cookie: session" + std::to_string(mPort) + "=" + mCookie + "\r\n";
    }
    std::string originHeader() const;

    /// Opens the WebSocket and says hello.
    void connect(TestClient& client, int ack = 0, const std::string& more = "") const;
    /// Says hello by a poll: the session's thread runs from now on.
    void claim() const;
    /// Has the session recognise its user, by a poll; its first message.
    void logIn() const;
    Answer post(const std::string& path, const std::string& body,
                const std::string& type = "application/json") const;

private:
    int mPort;
    int mStatus = 0;
    std::string mToken, mCookie, mSession;
};

} // namespace Wt::Impl
