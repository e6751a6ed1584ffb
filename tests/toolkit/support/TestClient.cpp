#include "tests/toolkit/support/TestClient.h"

#include <boost/json/parse.hpp>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <stdexcept>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Wt::Impl {

TestClient::TestClient(int port) : mSocket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const timeval limit{10, 0};
    ::setsockopt(mSocket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    ::setsockopt(mSocket, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::connect(mSocket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
        throw std::runtime_error("can't connect");
}

TestClient::~TestClient() {
    if (mSocket >= 0) ::close(mSocket);
}

void TestClient::send(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(mSocket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return; // the server may refuse before it has read all
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

bool TestClient::more() {
    char buffer[16384];
    const ssize_t got = ::recv(mSocket, buffer, sizeof buffer, 0);
    if (got <= 0) return false;
    mInput.append(buffer, static_cast<std::size_t>(got));
    return true;
}

std::string TestClient::take(std::size_t count) {
    while (mInput.size() < count)
        if (!more()) return {};
    std::string taken = mInput.substr(0, count);
    mInput.erase(0, count);
    return taken;
}

Answer TestClient::readAnswer(bool toHead) {
    Answer answer;
    std::size_t end = 0;
    while ((end = mInput.find("\r\n\r\n")) == mInput.npos)
        if (!more()) return answer;
    std::string_view head(mInput.data(), end);
    answer.status = std::atoi(std::string(head.substr(9, 3)).c_str());
    while (!head.empty()) {
        const std::string_view line = head.substr(0, head.find("\r\n"));
        head.remove_prefix(std::min(line.size() + 2, head.size()));
        const std::size_t colon = line.find(": ");
        if (colon == line.npos) continue;
        std::string name(line.substr(0, colon));
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char c) { return std::tolower(c); });
        answer.headers[name] = line.substr(colon + 2);
    }
    mInput.erase(0, end + 4);
    if (toHead || answer.status == 101 || answer.status == 204 || answer.status == 304) return answer;
    if (answer.headers.count("content-length") != 0) {
        answer.body = take(std::stoul(answer.headers["content-length"]));
    } else if (answer.headers["transfer-encoding"] == "chunked") {
        while (true) {
            while (mInput.find("\r\n") == mInput.npos)
                if (!more()) return answer;
            const std::size_t size = std::stoul(mInput, nullptr, 16);
            mInput.erase(0, mInput.find("\r\n") + 2);
            answer.body += take(size);
            take(2);
            if (size == 0) break;
        }
    }
    return answer;
}

bool TestClient::isClosed() {
    char byte = 0;
    return mInput.empty() && (::recv(mSocket, &byte, 1, 0) == 0 || errno == ECONNRESET);
}

void TestClient::cut() {
    const linger hard{1, 0};
    ::setsockopt(mSocket, SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
    ::close(mSocket);
    mSocket = -1;
}

void TestClient::sendText(std::string_view text) {
    sendFrame(1, text);
}

void TestClient::sendFrame(int opcode, std::string_view payload) {
    std::string frame(1, static_cast<char>(0x80 | opcode));
    const auto byte = [](std::size_t number, int shift) { return static_cast<char>(number >> shift & 0xff); };
    if (payload.size() < 126) {
        frame += static_cast<char>(0x80 | payload.size());
    } else if (payload.size() < 65536) {
        frame += static_cast<char>(0x80 | 126);
        for (int shift = 8; shift >= 0; shift -= 8) frame += byte(payload.size(), shift);
    } else {
        frame += static_cast<char>(0x80 | 127);
        for (int shift = 56; shift >= 0; shift -= 8) frame += byte(payload.size(), shift);
    }
    frame.append(4, '\0'); // a mask of zeros
    send(frame.append(payload));
}

std::string TestClient::readText() {
    while (true) {
        const std::string head = take(2);
        if (head.empty()) return {};
        const int opcode = head[0] & 15;
        std::size_t size = head[1] & 127;
        if (size >= 126) {
            const std::string wide = take(size == 126 ? 2 : 8);
            size = 0;
            for (const char c : wide) size = size << 8 | static_cast<unsigned char>(c);
        }
        const std::string payload = size > 0 ? take(size) : std::string();
        if (opcode == 8) {
            const int code = payload.size() < 2 ? 0
                                                : static_cast<unsigned char>(payload[0]) * 256 +
                                                      static_cast<unsigned char>(payload[1]);
            return "close " + std::to_string(code);
        }
        if (opcode == 1) return payload;
    }
}

Answer ask(int port, std::string_view method, std::string_view target, std::string_view headers,
           std::string_view body) {
    TestClient client(port);
    std::string request(method);
    request.append(" ").append(target).append(" HTTP/1.1\r\nHost: 127.0.0.1:").append(std::to_string(port));
    request.append("\r\nConnection: close\r\n").append(headers);
    if (!body.empty()) request.append("Content-Length: ").append(std::to_string(body.size())).append("\r\n");
    client.send(request.append("\r\n").append(body));
    return client.readAnswer(method == "HEAD");
}

TestPage::TestPage(int port, const std::string& cookie) : mPort(port), mCookie(cookie) {
    const Answer answer = post("/wt-session/start", R"({"path":"/","query":"a=1","width":800,"height":600})");
    mStatus = answer.status;
    if (mStatus != 200) return;
    const auto started = boost::json::parse(answer.body);
    mToken = started.at("token").as_string();
    mSession = started.at("session").as_string();
    const std::string& setCookie = answer.headers.at("set-cookie");
    const std::size_t begin = setCookie.find('=') + 1;
    mCookie = setCookie.substr(begin, setCookie.find(';') - begin);
}

std::string TestPage::originHeader() const {
    return "Origin: http://127.0.0.1:" + std::to_string(mPort) + "\r\n";
}

Answer TestPage::post(const std::string& path, const std::string& body, const std::string& type) const {
    return ask(mPort, "POST", path, originHeader() + cookieHeader() + "Content-Type: " + type + "\r\n", body);
}

void TestPage::claim() const {
    post("/wt-session/poll", R"({"hello":")" + mToken + R"("})");
}

void TestPage::logIn() const {
    post("/wt-session/poll",
         R"({"hello":")" + mToken + R"(","m":[{"n":1,"e":[{"k":"login"},{"k":"echo","x":"in"}]}]})");
}

void TestPage::connect(TestClient& client, int ack, const std::string& more) const {
    client.send("GET /wt-session/ws HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(mPort) + "\r\n" +
                originHeader() + cookieHeader() +
                "Connection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
                "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n");
    if (client.readAnswer().status != 101) throw std::runtime_error("no WebSocket");
    client.sendText("{\"hello\":\"" + mToken + "\",\"ack\":" + std::to_string(ack) + more + "}");
}

} // namespace Wt::Impl
