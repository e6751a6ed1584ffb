#include "core/Limits.h"
#include "tests/toolkit/support/FakeHost.h"
#include "tests/toolkit/support/TestClient.h"
#include "tests/toolkit/support/TestServer.h"

#include <gtest/gtest.h>

#include <boost/json/parse.hpp>

namespace Wt::Impl {
namespace {

namespace json = boost::json;

std::string event(int number, const std::string& content, int ack = 0) {
    return "{\"n\":" + std::to_string(number) + ",\"ack\":" + std::to_string(ack) + ",\"e\":[{" + content +
           "}]}";
}

// The next message that holds operations; acknowledgements are skipped.
std::string operations(TestClient& client) {
    while (true) {
        const std::string text = client.readText();
        if (text.empty() || text.starts_with("close") || text.find("\"o\":") != text.npos ||
            text.find("gone") != text.npos || text.find("end") != text.npos)
            return text;
    }
}

/// What ends the connection; what comes before it is skipped.
std::string closing(TestClient& client) {
    std::string text = client.readText();
    while (!text.empty() && !text.starts_with("close")) text = client.readText();
    return text;
}

/// A page whose connection the session has greeted.
struct Connected {
    explicit Connected(const TestServer& server) : page(server.port()), client(server.port()) {
        page.connect(client);
        hello = operations(client);
    }
    const TestPage page;
    TestClient client;
    std::string hello;
};

TEST(Page, EventsBecomeOperationsAndSurviveALostConnection) {
    TestServer server;
    const TestPage page(server.port());
    auto client = std::make_unique<TestClient>(server.port());
    page.connect(*client);
    const json::value hello = json::parse(operations(*client));
    EXPECT_EQ(hello.at("n"), 1);
    EXPECT_EQ(hello.at("o").at(0).at(2).as_string(), "127.0.0.1:" + std::to_string(server.port()));
    EXPECT_EQ(hello.at("o").at(0).at(3), 800);

    client->sendText(event(1, R"("k":"echo","x":"a")", 1));
    EXPECT_NE(operations(*client).find(R"(["echo","a"])"), std::string::npos);
    client->cut();

    // The page did not acknowledge message 2, and sends its own first message again.
    client = std::make_unique<TestClient>(server.port());
    page.connect(*client, 1);
    client->sendText(event(1, R"("k":"echo","x":"a")", 1));
    client->sendText(event(2, R"("k":"echo","x":"b")", 1));
    const json::value second = json::parse(operations(*client));
    EXPECT_EQ(second.at("n"), 2);
    EXPECT_EQ(second.at("o").at(0).at(1), "a");
    const json::value third = json::parse(operations(*client));
    EXPECT_EQ(third.at("n"), 3);
    EXPECT_EQ(third.at("o").at(0).at(1), "b");
}

TEST(Page, ANewConnectionReplacesTheOld) {
    TestServer server;
    Connected first(server);
    TestClient second(server.port());
    first.page.connect(second);
    EXPECT_EQ(json::parse(operations(second)).at("n"), 1); // not acknowledged yet
    EXPECT_EQ(operations(first.client).substr(0, 5), "close");
}

TEST(Page, StrangersGetNothing) {
    TestServer server;
    const TestPage mine(server.port());
    const TestPage other(server.port());
    EXPECT_NE(mine.cookie(), other.cookie());
    EXPECT_EQ(TestPage(server.port(), mine.cookie()).cookie(),
              mine.cookie()); // a second tab of the same browser
    EXPECT_NE(TestPage(server.port(), std::string(43, 'A')).cookie(),
              std::string(43, 'A')); // never one we did not make

    const std::string stolen = R"({"hello":")" + mine.token() + R"("})";
    EXPECT_NE(other.post("/wt-session/poll", stolen).body.find("gone"), std::string::npos);
    TestClient client(server.port());
    other.connect(client);
    operations(client);
    EXPECT_EQ(other.post("/wt-session/bye", R"({"token":")" + mine.token() + R"("})").status, 204);
    EXPECT_EQ(
        ask(server.port(), "GET", "/wt-resource/" + mine.session() + "/hello/x", other.cookieHeader()).status,
        404);
    EXPECT_EQ(server.sessions().size(), 4u);
}

TEST(Page, WhatIsMalformedEndsItsConnectionAndNotItsSession) {
    TestServer server;
    const TestPage page(server.port());
    const struct {
        std::string text;
        const char* end;
    } rows[] = {
        {"nonsense", "close 1007"},
        {"[]", "close 1007"},
        {R"({"n":1,"e":[1]})", "close 1007"},
        {R"({"n":0,"e":[]})", "close 1007"},
        {R"({"n":7,"e":[]})", "close 1008"},
        {R"({"n":1.5,"e":[]})", "close 1007"},
        {"{\"n\":1,\"e\":[" + std::string(40, '[') + std::string(40, ']') + "]}", "close 1007"},
        {std::string(kEventMessageBytes + 1, ' '), "close 1009"},
    };
    for (const auto& row : rows) {
        TestClient client(server.port());
        page.connect(client);
        client.sendText(row.text);
        EXPECT_EQ(closing(client), row.end) << row.text.substr(0, 60);
    }
    TestClient client(server.port());
    client.cut();
    TestClient again(server.port());
    page.connect(again);
    again.sendText(event(1, R"("k":"echo","x":1)", 1));
    EXPECT_NE(operations(again).find("hello"), std::string::npos);
    EXPECT_NE(operations(again).find("echo"), std::string::npos);
}

TEST(Page, TooManyMessagesEndTheConnection) {
    TestServer server;
    Connected page(server);
    for (int i = 1; i <= kMessageBurst * 2; ++i) page.client.sendText(R"({"ack":0})");
    EXPECT_EQ(closing(page.client), "close 1008");
    EXPECT_EQ(server.sessions().size(), 1u);
}

TEST(Page, ABusySessionDelaysNobodyElse) {
    TestServer server;
    Connected slow(server), quick(server);
    slow.client.sendText(event(1, R"("k":"wait")"));
    slow.client.sendText(event(2, R"("k":"echo","x":"slow")"));
    quick.client.sendText(event(1, R"("k":"echo","x":"quick")"));
    EXPECT_NE(operations(quick.client).find("quick"), std::string::npos) << "while the other one waits";
    fakeHostGate().release();
    EXPECT_NE(operations(slow.client).find("slow"), std::string::npos);
}

TEST(Page, HowSessionsEnd) {
    const struct {
        const char* what;
        std::string text;
        const char* told;
    } rows[] = {
        {"quit", event(1, R"("k":"quit")"), "bye"},
        {"an exception", event(1, R"("k":"throw")"), R"("gone":"failed")"},
        {"overflow", event(1, R"("k":"flood","bytes":9000000)"), "flood"},
    };
    TestServer server;
    for (const auto& row : rows) {
        Connected page(server);
        page.client.sendText(row.text);
        EXPECT_NE(operations(page.client).find(row.told), std::string::npos) << row.what;
        EXPECT_TRUE(comesTrue([&] { return fakeHostCounts().alive == 0; })) << row.what;
        EXPECT_EQ(closing(page.client), "close 1000") << row.what;
    }
}

TEST(Page, LeavingThePageEndsTheSessionThroughNestedLoops) {
    TestServer server;
    Connected bye(server), away(server);
    const int unwound = fakeHostCounts().unwound;
    for (TestClient* client : {&bye.client, &away.client}) {
        client->sendText(event(1, R"("k":"nest")"));
        operations(*client);
        client->sendText(event(2, R"("k":"nest")"));
        operations(*client);
    }
    EXPECT_EQ(
        bye.page.post("/wt-session/bye", R"({"token":")" + bye.page.token() + R"("})", "text/plain").status,
        204);
    away.client.sendFrame(8, "\x03\xe9"); // 1001: the browser navigates away
    EXPECT_TRUE(comesTrue([&] { return server.sessions().size() == 0; }));
    EXPECT_EQ(fakeHostCounts().unwound, unwound + 4);
    EXPECT_EQ(operations(bye.client), R"({"gone":"closed"})");
}

TEST(Page, AReloadGoesOnWithItsSessionWhereThatIsSet) {
    const std::string again = R"(,"page":2,"path":"/a/b")";
    for (const bool isNewSession : {true, false}) {
        TestServer server([&](ServerConfig& config) { config.reloadIsNewSession = isNewSession; });
        Connected first(server);
        const TestPage& page = first.page;
        TestClient& before = first.client;
        TestClient after(server.port()), late(server.port());
        before.sendText(event(1, R"("k":"echo","x":"a")"));
        operations(before);
        if (isNewSession) {
            page.connect(after, 0, again);
            EXPECT_EQ(operations(after), R"({"gone":"unknown"})");
            continue;
        }
        before.sendFrame(8, "\x03\xe9"); // 1001: the browser leaves
        page.post("/wt-session/bye", R"({"token":")" + page.token() + R"(","page":1})", "text/plain");
        page.connect(after, 0, again);
        EXPECT_EQ(operations(after), R"({"n":1,"ack":0,"o":[["again","/a/b"]]})");
        page.post("/wt-session/bye", R"({"token":")" + page.token() + R"(","page":1})", "text/plain");
        after.sendText(event(1, R"("k":"echo","x":"b")", 1));
        EXPECT_EQ(operations(after), R"({"n":2,"ack":1,"o":[["echo","b"]]})");
        page.connect(late, 0);
        EXPECT_EQ(operations(late), R"({"gone":"unknown"})") << "a page that was loaded before";
        const Answer poll = page.post("/wt-session/poll", R"({"hello":")" + page.token() + R"(","page":3})");
        EXPECT_NE(poll.body.find(R"(["again",""])"), std::string::npos) << poll.body;
        EXPECT_EQ(server.sessions().size(), 1u);
    }
}

TEST(Page, StoppingTheServerTellsThePages) {
    TestServer server;
    Connected page(server);
    server.stop();
    EXPECT_EQ(operations(page.client), R"({"gone":"stopping"})");
    EXPECT_EQ(fakeHostCounts().alive, 0);
}

TEST(Page, SessionsAreLimitedByAddressAndInAll) {
    const auto isGone = [](const TestPage& page) {
        return page.post("/wt-session/poll", R"({"hello":")" + page.token() + R"("})").body.find("gone") !=
               std::string::npos;
    };
    TestServer server([](ServerConfig& config) { config.maxSessionsPerAddress = 2; });
    const TestPage first(server.port());
    const TestPage second(server.port());
    const TestPage third(server.port()); // the oldest that nobody uses makes room
    EXPECT_TRUE(isGone(first));
    second.logIn();
    third.logIn();
    EXPECT_TRUE(comesTrue([&] { return TestPage(server.port()).status() == 429; })); // users do not
    second.post("/wt-session/bye", R"({"token":")" + second.token() + R"("})");
    EXPECT_TRUE(comesTrue([&] { return TestPage(server.port()).status() == 200; }));
    EXPECT_FALSE(isGone(third));

    TestServer small([](ServerConfig& config) { config.maxSessions = 1; });
    const TestPage waiting(small.port());
    const TestPage only(small.port());
    only.logIn();
    EXPECT_TRUE(comesTrue([&] { return TestPage(small.port()).status() == 503; }));
}

TEST(Page, ALoginRenewsCookieAndToken) {
    TestServer server;
    const TestPage page(server.port());
    const TestPage sibling(server.port(), page.cookie()); // of the same browser
    sibling.claim();
    const auto post = [&](const char* path, const std::string& cookie, const std::string& body) {
        const std::string header = "Cookie: session" + std::to_string(server.port()) + "=" + cookie + "\r\n";
        return ask(server.port(), "POST", path, page.originHeader() + header, body);
    };
    const auto renew = [&](const std::string& token, const std::string& cookie) {
        return post("/wt-session/renew", cookie, R"({"token":")" + token + R"("})");
    };
    const auto knows = [&](const std::string& token, const std::string& cookie) {
        const std::string body = R"({"hello":")" + token + R"(","m":[{"n":2,"e":[{"k":"echo","x":1}]}]})";
        return post("/wt-session/poll", cookie, body).body.find("gone") == std::string::npos;
    };
    EXPECT_EQ(renew(page.token(), page.cookie()).status, 403); // nobody has logged in
    page.logIn();
    Answer answer;
    EXPECT_TRUE(comesTrue([&] { return (answer = renew(page.token(), page.cookie())).status == 200; }));
    const std::string token(json::parse(answer.body).at("token").as_string());
    const std::string& set = answer.headers.at("set-cookie");
    const std::string cookie = set.substr(set.find('=') + 1, set.find(';') - set.find('=') - 1);
    EXPECT_NE(token, page.token());
    EXPECT_NE(cookie, page.cookie());
    EXPECT_NE(set.find("HttpOnly"), std::string::npos);
    // Until the page has shown the new token the old ones are good: the answer may have been lost.
    EXPECT_TRUE(knows(page.token(), page.cookie()));
    EXPECT_TRUE(knows(page.token(), cookie));
    EXPECT_EQ(renew(token, page.cookie()).status, 204);
    EXPECT_FALSE(knows(page.token(), page.cookie()));
    EXPECT_FALSE(knows(page.token(), cookie));
    EXPECT_FALSE(knows(token, page.cookie()));
    EXPECT_TRUE(knows(token, cookie));
    EXPECT_TRUE(knows(sibling.token(), cookie)); // its browser has the new cookie alone
    EXPECT_EQ(renew(token, cookie).status, 403); // once for each login
    EXPECT_EQ(TestPage(server.port(), page.cookie()).cookie() == page.cookie(), false);
    EXPECT_EQ(TestPage(server.port(), cookie).cookie(), cookie);
}

TEST(Page, ConnectionsWithoutAUserAreFew) {
    TestServer server([](ServerConfig& config) { config.maxAnonymousConnectionsPerAddress = 4; });
    const TestPage page(server.port());
    TestClient first(server.port());
    page.connect(first);
    ASSERT_NE(first.readText(), "");
    std::vector<std::unique_ptr<TestClient>> idle;
    for (int i = 0; i < 3; ++i) {
        idle.push_back(std::make_unique<TestClient>(server.port()));
        idle.back()->send("GET /x HTTP/1.1\r\nHost: localhost\r\n"); // keeps it
    }
    EXPECT_TRUE(TestClient(server.port()).isClosed());
    first.sendText(R"({"n":1,"e":[{"k":"login"},{"k":"echo","x":1}]})");
    EXPECT_TRUE(comesTrue([&] {
        first.sendText(R"({"ack":0})");
        return ask(server.port(), "GET", "/").status == 200;
    }));
}

TEST(Page, TooManyEventsEndTheConnection) {
    TestServer server;
    Connected page(server);
    std::string list = "{}";
    for (std::size_t i = 1; i < kEventsPerMessage; ++i) list += ",{}";
    const int enough = static_cast<int>(kEventBurst * 2 / kEventsPerMessage);
    for (int i = 1; i <= enough; ++i)
        page.client.sendText("{\"n\":" + std::to_string(i) + ",\"e\":[" + list + "]}");
    EXPECT_EQ(closing(page.client), "close 1008");
}

TEST(Page, PlainHttpCarriesTheSameExchange) {
    TestServer server;
    const TestPage page(server.port());
    const auto poll = [&](const std::string& rest) {
        return page.post("/wt-session/poll", R"({"hello":")" + page.token() + "\"," + rest + "}");
    };
    EXPECT_NE(poll(R"("ack":0)").body.find("hello"), std::string::npos);
    const std::string events =
        R"("ack":1,"m":[{"n":1,"e":[{"k":"echo","x":"a"}]},{"n":2,"e":[{"k":"echo","x":"b"}]}])";
    std::string body;
    EXPECT_TRUE(comesTrue([&] {
        body = poll(events).body; // sent again and again, done once
        return body.find(R"(["echo","b"])") != body.npos;
    }));
    EXPECT_NE(body.find(R"("n":2)"), std::string::npos);
    EXPECT_NE(body.find(R"({"ack":2,)"), std::string::npos);
    EXPECT_EQ(body.find(R"("n":4)"), std::string::npos);
}

} // namespace
} // namespace Wt::Impl
