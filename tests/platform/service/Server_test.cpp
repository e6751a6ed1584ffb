// The event loop over real sockets, with its clock in the test's hands.
#include "platform/service/demo/Installation.h"
#include "platform/service/net/Server.h"
#include "tests/platform/service/support/Harness.h"
#include "tests/platform/service/support/RawClient.h"
#include "tests/platform/support/TempFolder.h"

#include <atomic>
#include <gtest/gtest.h>
#include <sodium.h>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

namespace zeqd::testing {
namespace {

using std::string_literals::operator""s;

class SharedClock : public Clock {
public:
    std::int64_t now() const override { return 1'700'000'000; }
    std::int64_t monotonicMs() const override { return ms; }
    std::atomic<std::int64_t> ms{1000};
};

class Served : public ::testing::Test {
protected:
    Served() {
        EXPECT_GE(sodium_init(), 0);
        InstallationPlan plan;
        plan.dataDir = MIRL_SOURCE_DIR "/platform/service/data";
        plan.adminPassword = "x";
        plan.devices = 600; // their list is longer than a socket holds
        plan.now = clock.now();
        Store store;
        for (const RecordPtr& record : makeInstallation(plan)) store.load(record);
        engine.emplace(EngineParts{clock, disk, executor, [](const std::string&) {}, "/nonexistent"},
                       std::move(store));
    }
    ~Served() override { end(); }
    void serve(std::size_t budget = kOutputBudget) {
        server.emplace(*engine, executor, clock, listenOn(path), stop, 100, budget);
        thread = std::thread([this] {
            server->run();
            done = true;
        });
    }
    /// The loop turns with every exchange.
    void pass(std::int64_t seconds) {
        clock.ms += 1000 * seconds;
        for (int turn = 0; turn < 2; ++turn) {
            RawClient witness(path);
            ASSERT_NE(witness.ask(R"({"id":1,"method":"get","resource":"zeqHello"})").find("protocol"),
                      std::string::npos);
        }
    }
    void askToStop() {
        const std::uint64_t one = 1;
        ASSERT_EQ(::write(stop, &one, sizeof one), static_cast<ssize_t>(sizeof one));
    }
    void end() {
        if (thread.joinable()) askToStop();
        leave();
        ::close(stop);
    }
    /// Time passes until the loop has ended; every connection lets it turn.
    void leave() {
        while (thread.joinable() && !done) {
            clock.ms += 5001;
            const RawClient waker(path);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        if (thread.joinable()) thread.join();
    }
    /// A client that asks for a long answer and takes nothing of it.
    std::unique_ptr<RawClient> deaf() {
        auto client = std::make_unique<RawClient>(path);
        EXPECT_TRUE(client->sendFrame(kLong));
        pass(0); // served
        return client;
    }
    bool whole(RawClient& client) { return client.receive().ends_with("]}"); }

    static constexpr const char* kLong = R"({"id":1,"method":"get","resource":"rx"})";
    TempFolder folder;
    const std::string path = folder.path() / "zeq.sock";
    const int stop = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    SharedClock clock;
    FakeDisk disk;
    ThreadExecutor executor;
    std::optional<Engine> engine;
    std::optional<Server> server;
    std::thread thread;
    std::atomic<bool> done = false;
};

TEST_F(Served, AFrameMayPauseButNotForHalfAMinute) {
    serve();
    RawClient client(path);
    const std::string text = R"({"id":1,"method":"get","resource":"zeqHello"})";
    ASSERT_TRUE(client.send("\0\0\0"s));
    pass(0); // taken in
    pass(20);
    ASSERT_TRUE(client.send(std::string(1, static_cast<char>(text.size())) + text.substr(0, 5)));
    pass(0);
    pass(20);
    ASSERT_TRUE(client.send(text.substr(5)));
    EXPECT_NE(client.receive().find("protocol"), std::string::npos) << "forty seconds, but it went on";
    pass(100);
    EXPECT_NE(client.ask(text).find("protocol"), std::string::npos) << "between frames it may be silent";
    ASSERT_TRUE(client.send("\0\0\0"s));
    pass(0);
    pass(31);
    EXPECT_EQ(client.receive(), "");
}

TEST_F(Served, AReaderThatTakesNextToNothingIsDropped) {
    serve();
    const auto slow = deaf();
    const auto late = deaf();
    for (int turn = 0; turn < 20; ++turn) {
        slow->receiveSome(1000); // always something within the minute
        pass(10);
    }
    EXPECT_FALSE(whole(*slow));
    EXPECT_FALSE(whole(*late)) << "nor does one that takes nothing at all stay";
    EXPECT_TRUE(whole(*deaf())) << "one that takes it at last has it";
}

TEST_F(Served, AnswersThatNobodyTakesHaveABudgetTogether) {
    serve(1U << 20);
    std::vector<std::unique_ptr<RawClient>> clients;
    for (int i = 0; i < 12; ++i) clients.push_back(deaf());
    EXPECT_TRUE(whole(*clients.back())) << "the newest is not the one that goes";
    clients.pop_back();
    int there = 1;
    for (const auto& client : clients) there += whole(*client);
    EXPECT_LE(there, 5) << "each holds about a third of it";
}

TEST_F(Served, AnswersGoOutBeforeAStop) {
    serve();
    const auto client = deaf();
    askToStop();
    EXPECT_TRUE(whole(*client));
    thread.join();
}

TEST_F(Served, AStopDoesNotWaitForWhoTakesNothing) {
    serve();
    const auto client = deaf();
    askToStop();
    leave();
    server.reset();
    EXPECT_FALSE(whole(*client));
}

TEST_F(Served, WhatIsSentAheadIsAnsweredInTurn) {
    serve();
    RawClient eager(path);
    std::string wire;
    for (int id = 1; id <= 2000; ++id)
        appendFrame(wire, R"({"id":)" + std::to_string(id) + R"(,"method":"get","resource":"zeqHello"})");
    std::thread sender([&] { eager.send(wire); });
    for (int id = 1; id <= 2000; ++id)
        ASSERT_TRUE(eager.receive().starts_with("{\"id\":" + std::to_string(id) + ",")) << id;
    sender.join();
}

} // namespace
} // namespace zeqd::testing
