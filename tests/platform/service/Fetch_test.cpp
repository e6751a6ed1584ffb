// Fetching of files from a plain HTTP server on this machine.
#include "platform/service/sim/Fetch.h"
#include "tests/platform/support/TempFolder.h"

#include <arpa/inet.h>
#include <fstream>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace zeqd {
namespace {

/// Answers one connection with the given bytes and keeps what was asked.
class OneAnswer {
public:
    explicit OneAnswer(std::string answer) : mListen(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        EXPECT_EQ(bind(mListen, reinterpret_cast<sockaddr*>(&address), length), 0);
        EXPECT_EQ(listen(mListen, 1), 0);
        getsockname(mListen, reinterpret_cast<sockaddr*>(&address), &length);
        mPort = ntohs(address.sin_port);
        mThread = std::thread([this, answer = std::move(answer)] { serve(answer); });
    }
    ~OneAnswer() {
        shutdown(mListen, SHUT_RDWR);
        mThread.join();
        close(mListen);
    }
    std::string place() const { return "127.0.0.1:" + std::to_string(mPort); }
    /// After the fetch.
    const std::string& asked() const { return mAsked; }

private:
    void serve(const std::string& answer) {
        const int fd = accept(mListen, nullptr, nullptr);
        if (fd < 0) return;
        char buffer[4096];
        const ssize_t got = recv(fd, buffer, sizeof buffer, 0);
        if (got > 0) mAsked.assign(buffer, static_cast<std::size_t>(got));
        [[maybe_unused]] const ssize_t sent = ::send(fd, answer.data(), answer.size(), MSG_NOSIGNAL);
        close(fd);
    }

    int mListen;
    int mPort = 0;
    std::string mAsked;
    std::thread mThread;
};

std::string http(const std::string& status, const std::string& body, const std::string& more = "") {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" + more +
           "Connection: close\r\n\r\n" + body;
}

constexpr std::size_t kLimit = 1000;

std::optional<std::string> fetch(const FetchSource& source, std::size_t limit = kLimit) {
    std::string why;
    std::optional<std::string> bytes =
        fetchFile(source, {.limit = limit, .folder = "/tmp", .localServers = true}, why);
    EXPECT_TRUE(bytes || !why.empty());
    return bytes;
}

TEST(Fetch, GetsAFileByPlainHttp) {
    OneAnswer server(http("200 OK", "firmware"));
    EXPECT_EQ(fetch({"http", server.place(), "dir/f.fw", "me", "secret"}), "firmware");
    EXPECT_EQ(server.asked().find("GET /dir/f.fw HTTP/1.1\r\n"), 0U) << server.asked();
    EXPECT_NE(server.asked().find("Authorization: Basic bWU6c2VjcmV0"), std::string::npos);
}

TEST(Fetch, GetsNothingFromServersThatFail) {
    struct {
        const char* what;
        std::string answer;
    } rows[] = {
        {"not there", http("404 Not Found", "no such file")},
        {"too large", http("200 OK", std::string(kLimit + 1, 'x'))},
        {"too large without telling", "HTTP/1.0 200 OK\r\n\r\n" + std::string(kLimit + 1, 'x')},
        {"cut short", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\nConnection: close\r\n\r\nfirm"},
        {"no HTTP", "220 mail ready\r\n"},
        {"closed at once", ""},
    };
    for (const auto& row : rows) {
        OneAnswer server(row.answer);
        EXPECT_FALSE(fetch({"http", server.place(), "/f", "", ""})) << row.what;
    }
    EXPECT_FALSE(fetch({"http", "127.0.0.1:1", "/f", "", ""})) << "nobody listens";
    // A server cannot send the service elsewhere, such as to a file of this machine.
    OneAnswer server(http("302 Found", "", "Location: file:///etc/hostname\r\n"));
    EXPECT_FALSE(fetch({"http", server.place(), "/f", "", ""}));
}

TEST(Fetch, ReadsLocalFiles) {
    const TempFolder folder;
    const std::string path = folder.path() / "f";
    std::ofstream(path) << "firmware";
    EXPECT_EQ(fetch({"file", "", path, "", ""}), "firmware");
    EXPECT_FALSE(fetch({"file", "", path, "", ""}, 7));
    EXPECT_FALSE(fetch({"file", "", folder.path(), "", ""}));
    EXPECT_FALSE(fetch({"file", "", path + "2", "", ""}));
    const std::string pipe = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(fetch({"file", "", pipe, "", ""})) << "nor does it wait for somebody to write";
    for (const char* device : {"/dev/zero", "/dev/null", "/dev/tty"})
        EXPECT_FALSE(fetch({"file", "", device, "", ""})) << device;
}

TEST(Fetch, ReadsLocalFilesOfItsFolderOnly) {
    const TempFolder folder;
    const std::filesystem::path root = folder.path() / "up";
    std::filesystem::create_directories(root / "sub");
    std::filesystem::create_directories(folder.path() / "upper");
    for (const char* name : {"up/f", "up/sub/f", "f", "upper/f"})
        std::ofstream(folder.path() / name) << "firmware";
    std::filesystem::create_symlink(folder.path() / "f", root / "out");
    const auto read = [&](const std::filesystem::path& path, const std::filesystem::path& from) {
        std::string why;
        return fetchFile({"file", "", path, "", ""}, {.limit = kLimit, .folder = from}, why).has_value();
    };
    EXPECT_TRUE(read(root / "f", root));
    EXPECT_TRUE(read(root / "sub" / "f", root));
    EXPECT_TRUE(read(root / "sub" / ".." / "f", root));
    for (const auto& path :
         {folder.path() / "f", root / ".." / "f", root / "out", folder.path() / "upper" / "f"})
        EXPECT_FALSE(read(path, root)) << path;
    EXPECT_FALSE(read(root / "f", "")) << "no folder, no file";
    EXPECT_FALSE(read(root / "f", folder.path() / "none"));
}

TEST(Fetch, GoesToServersElsewhereOnly) {
    OneAnswer server(http("200 OK", "firmware"));
    const std::string port = server.place().substr(server.place().find(':'));
    for (const std::string host : {"127.0.0.1", "127.9.9.9", "localhost", "0.0.0.0", "[::1]",
                                   "[::ffff:127.0.0.1]", "[::]", "169.254.1.1", "[fe80::1]", "2130706433"}) {
        std::string why;
        EXPECT_FALSE(fetchFile({"http", host + port, "/f", "", ""}, {.limit = kLimit}, why)) << host;
    }
    EXPECT_EQ(server.asked(), "");
    EXPECT_EQ(fetch({"http", server.place(), "/f", "", ""}), "firmware");
}

} // namespace
} // namespace zeqd
