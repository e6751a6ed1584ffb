#include "server/FrameMeter.h"

#include "core/Limits.h"
#include "tests/toolkit/support/TestClient.h"
#include "tests/toolkit/support/TestServer.h"

#include <gtest/gtest.h>

namespace Wt::Impl {
namespace {

std::string frame(int first, std::size_t size) {
    std::string bytes(1, static_cast<char>(first));
    if (size < 126)
        bytes += static_cast<char>(0x80 | size);
    else if (size < 65536)
        bytes += std::string("\xfe") + static_cast<char>(size >> 8) + static_cast<char>(size & 255);
    else
        bytes += std::string("\xff") + std::string(4, '\0') + static_cast<char>(size >> 24) +
                 static_cast<char>(size >> 16 & 255) + static_cast<char>(size >> 8 & 255) +
                 static_cast<char>(size & 255);
    return bytes + std::string(4 + size, '\x89'); // a mask and a payload that look like pings
}

constexpr int kPing = 0x89, kText = 0x81, kTextBegins = 0x01, kGoesOn = 0x00, kEnds = 0x80;

// How many of the frames are taken, fed in pieces of `step`.
bool fine(const std::string& bytes, std::size_t step) {
    FrameMeter meter;
    const FrameMeter::Clock::time_point now{};
    for (std::size_t at = 0; at < bytes.size(); at += step)
        if (!meter.take(std::string_view(bytes).substr(at, step), now)) return false;
    return true;
}

TEST(FrameMeter, CountsFragmentsAndControlFramesHoweverTheBytesArrive) {
    std::string atLimit = frame(kTextBegins, 0);
    for (std::size_t i = 2; i < kFragments; ++i) atLimit += frame(kGoesOn, i == 7 ? 300 : 1);
    std::string pings;
    for (int i = 0; i < static_cast<int>(kControlFrameBurst); ++i) pings += frame(kPing, i == 3 ? 125 : 0);
    std::string many;
    for (int i = 0; i < 300; ++i) many += frame(kText, 200);
    const struct {
        const char* what;
        std::string bytes;
        bool fine;
    } rows[] = {
        {"messages of one frame", many + frame(kText, 70000) + many, true},
        {"as many fragments as allowed, twice", atLimit + frame(kEnds, 2) + atLimit + frame(kEnds, 0), true},
        {"one more", atLimit + frame(kGoesOn, 1) + frame(kEnds, 2), false},
        {"a ping between fragments", atLimit + frame(kPing, 5) + frame(kEnds, 2), true},
        {"pings", pings, true},
        {"a ping too many", pings + frame(kPing, 0), false},
        {"pings between messages", pings + frame(kText, 4) + frame(kPing, 0), false},
    };
    for (const auto& row : rows)
        for (const std::size_t step : {std::size_t(1), std::size_t(7), row.bytes.size()})
            EXPECT_EQ(fine(row.bytes, step), row.fine) << row.what << " in steps of " << step;
}

TEST(FrameMeter, ControlFramesComeBackWithTime) {
    FrameMeter meter;
    FrameMeter::Clock::time_point now{};
    for (int second = 0; second < 100; ++second, now += std::chrono::seconds(1))
        for (int i = 0; i < static_cast<int>(kControlFramesPerSecond); ++i)
            ASSERT_TRUE(meter.take(frame(kPing, 0), now)) << second;
    bool taken = true;
    for (int i = 0; i <= kControlFrameBurst && taken; ++i) taken = meter.take(frame(kPing, 0), now);
    EXPECT_FALSE(taken);
}

TEST(FrameMeter, EndsTheConnectionAndNotTheSession) {
    TestServer server;
    const TestPage page(server.port());
    const std::string piece = frame(kGoesOn, 1);
    std::string floods[] = {frame(kTextBegins, 1), ""};
    for (int i = 0; i < 200; ++i) floods[0] += piece, floods[1] += frame(kPing, 0);
    for (const std::string& flood : floods) {
        TestClient client(server.port());
        page.connect(client);
        ASSERT_NE(client.readText(), "");
        client.send(flood);
        for (int i = 0; i < 10 && !client.readText().empty(); ++i) {
        }
        EXPECT_TRUE(client.isClosed());
    }
    TestClient again(server.port());
    page.connect(again);
    again.readText(); // the acknowledgement
    EXPECT_NE(again.readText().find("hello"), std::string::npos);
}

TEST(FrameMeter, NothingIsCompressed) {
    TestServer server;
    const TestPage page(server.port());
    TestClient client(server.port());
    client.send("GET /wt-session/ws HTTP/1.1\r\nHost: localhost:" + std::to_string(server.port()) +
                "\r\nOrigin: http://localhost:" + std::to_string(server.port()) + "\r\n" +
                page.cookieHeader() +
                "Connection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
                "Sec-WebSocket-Extensions: permessage-deflate\r\n"
                "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n");
    const Answer answer = client.readAnswer();
    EXPECT_EQ(answer.status, 101);
    EXPECT_EQ(answer.headers.count("sec-websocket-extensions"), 0u);
}

} // namespace
} // namespace Wt::Impl
