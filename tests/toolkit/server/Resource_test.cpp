#include "core/Limits.h"
#include "tests/toolkit/support/TestClient.h"
#include "tests/toolkit/support/TestServer.h"

#include <gtest/gtest.h>

namespace Wt::Impl {
namespace {

class ResourceTest : public testing::Test {
protected:
    ResourceTest()
        : mServer([](ServerConfig& config) { config.maxRequestSize = 300'000; }), mPage(mServer.port()) {}

    void SetUp() override { mPage.claim(); }

    std::string address(const std::string& key) const {
        return "/wt-resource/" + mPage.session() + "/" + key + "/name";
    }
    Answer get(const std::string& key) {
        return ask(mServer.port(), "GET", address(key), mPage.cookieHeader());
    }
    Answer upload(const std::string& body) {
        return mPage.post(address("upload"), body, "multipart/form-data; boundary=XX");
    }

    static std::string part(const std::string& content) {
        return "--XX\r\nContent-Disposition: form-data; name=\"f\"; filename=\"a.bin\"\r\n"
               "Content-Type: x/y\r\n\r\n" +
               content + "\r\n--XX--\r\n";
    }

    TestServer mServer;
    TestPage mPage;
};

TEST_F(ResourceTest, AnswersComeFromTheSessionWithoutForgedHeaders) {
    const Answer hello = get("hello");
    EXPECT_EQ(hello.status, 200);
    EXPECT_EQ(hello.body, "hello");
    EXPECT_EQ(hello.headers.count("x-evil"), 0u);
    EXPECT_EQ(hello.headers.count("b"), 0u);
    EXPECT_EQ(hello.headers.at("cache-control"), "no-store");
    EXPECT_EQ(
        ask(mServer.port(), "HEAD", address("hello"), mPage.cookieHeader()).headers.at("content-length"),
        "5");
    EXPECT_EQ(get("never").status, 500);
    EXPECT_EQ(ask(mServer.port(), "GET", address("hello")).status, 404); // no cookie
    EXPECT_EQ(ask(mServer.port(), "POST", address("hello"), mPage.cookieHeader(), "a=1").status,
              403); // no origin
}

TEST_F(ResourceTest, StreamsInPiecesAsTheBrowserTakesThem) {
    const Answer answer = get("stream");
    ASSERT_EQ(answer.body.size(), 64u * 32768u);
    for (std::size_t piece = 0; piece < 64; ++piece)
        EXPECT_EQ(answer.body[piece * 32768], static_cast<char>('a' + piece % 26));
    // A browser that goes away in the middle harms nobody.
    for (int i = 0; i < 5; ++i) {
        TestClient client(mServer.port());
        client.send("GET " + address("stream") + " HTTP/1.1\r\nHost: localhost\r\n" + mPage.cookieHeader() +
                    "\r\n");
        client.readAnswer(true);
        client.cut();
    }
    EXPECT_EQ(get("hello").status, 200);
}

TEST_F(ResourceTest, UploadsGoToSpoolFilesThatDoNotStay) {
    EXPECT_EQ(upload(part("0123456789abc")).body, "f:a.bin:x/y:13:0123456789;");
    EXPECT_EQ(upload(part(std::string(200'000, 'z'))).body, "f:a.bin:x/y:200000:zzzzzzzzzz;");
    EXPECT_EQ(upload("--XX\r\nContent-Disposition: form-data; name=\"a\"\r\n\r\n1\r\n" + part("")).body,
              "a=1;f:a.bin:x/y:0:;");
    EXPECT_TRUE(comesTrue([&] { return mServer.spooledFiles() == 0; }));
    EXPECT_EQ(
        mPage.post(address("upload") + "?q=1", "a=2&b=%C3%A9", "application/x-www-form-urlencoded").body,
        "a=2;b=é;q=1;");
}

TEST_F(ResourceTest, WrongUploadsAreRefusedAndRemoved) {
    const std::string open = part("x").substr(0, 60);
    const struct {
        const char* what;
        std::string body;
        int status;
    } rows[] = {
        {"too large", part(std::string(400'000, 'z')), 413},
        {"never ends", open, 400},
        {"field too long",
         "--XX\r\nContent-Disposition: form-data; name=\"a\"\r\n\r\n" + std::string(kFormBytes + 1, 'x') +
             "\r\n--XX--",
         413},
        {"no multipart", "hello", 400},
    };
    for (const auto& row : rows) EXPECT_EQ(upload(row.body).status, row.status) << row.what;

    TestClient client(mServer.port());
    const std::string whole = part(std::string(100'000, 'z'));
    client.send(
        "POST " + address("upload") + " HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(mServer.port()) +
        "\r\n" + mPage.cookieHeader() + mPage.originHeader() +
        "Content-Type: multipart/form-data; boundary=XX\r\nContent-Length: " + std::to_string(whole.size()) +
        "\r\n\r\n" + whole.substr(0, 50'000));
    EXPECT_TRUE(comesTrue([&] { return mServer.spooledFiles() == 1; }));
    client.cut();
    EXPECT_TRUE(comesTrue([&] { return mServer.spooledFiles() == 0; }));
}

TEST_F(ResourceTest, TheSessionLearnsOfAnUploadThatIsTooLarge) {
    TestClient client(mServer.port());
    mPage.connect(client);
    const std::string head =
        "POST " + address("upload") + " HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(mServer.port()) +
        "\r\n" + mPage.cookieHeader() + mPage.originHeader() +
        "Content-Type: multipart/form-data; boundary=XX\r\nContent-Length: 20000000\r\n\r\n";
    TestClient uploader(mServer.port());
    uploader.send(head + std::string(1000, 'x'));
    EXPECT_EQ(uploader.readAnswer().status, 413); // long before all of it has been sent
    std::string text = client.readText();
    while (!text.empty() && text.find("tooLarge") == text.npos) text = client.readText();
    EXPECT_NE(text.find("[\"tooLarge\",20000000]"), std::string::npos);
}

TEST_F(ResourceTest, ASessionsEndAnswersWhatWaits) {
    TestClient waiting(mServer.port());
    waiting.send("GET " + address("hold") + " HTTP/1.1\r\nHost: localhost\r\n" + mPage.cookieHeader() +
                 "\r\n");
    get("hello"); // behind it
    mPage.post("/wt-session/bye", R"({"token":")" + mPage.token() + R"("})");
    const int status = waiting.readAnswer().status;
    EXPECT_TRUE(status == 410 || status == 500) << status;
}

} // namespace
} // namespace Wt::Impl
