// The process itself: power cuts, misbehaving clients, starts and stops.
#include "tests/platform/service/support/FileServer.h"
#include "tests/platform/service/support/RawClient.h"
#include "tests/platform/support/ZeqdProcess.h"

#include <array>
#include <atomic>
#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace zeqd::testing {
namespace {

using std::string_literals::operator""s;

std::string named(int rx, const std::string& name) {
    return R"({"id":1,"method":"set","resource":"rx","params":{"index":)" + std::to_string(rx) +
           R"(,"name":")" + name + R"("}})";
}
std::string nameOf(RawClient& client, int rx) {
    const std::string answer = client.ask(R"({"id":1,"method":"get","resource":"rx","query":{"index":)" +
                                          std::to_string(rx) + R"(},"select":["name"]})");
    const std::size_t at = answer.find("\"name\":\"");
    return at == std::string::npos ? answer : answer.substr(at + 8, answer.find('"', at + 8) - at - 8);
}

std::string integrity(const std::string& path) {
    sqlite3* database = nullptr;
    std::string result = "not opened";
    if (sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK)
        sqlite3_exec(
            database, "PRAGMA integrity_check",
            [](void* target, int, char** values, char**) {
                *static_cast<std::string*>(target) = values[0];
                return 0;
            },
            &result, nullptr);
    sqlite3_close(database);
    return result;
}

/// Rounds of the power-cut test; ZEQD_KILL_ROUNDS makes it shorter while one works on something else.
int killRounds() {
    const char* value = std::getenv("ZEQD_KILL_ROUNDS");
    return value ? std::atoi(value) : 200;
}

/// Writes numbered names to one Receiver until the service is gone.
struct Writer {
    int rx;
    int acknowledged = 0;
    int sent = 0;

    void run(const std::string& socket) {
        try {
            RawClient client(socket);
            while (client.sendFrame(named(rx, "w" + std::to_string(++sent)))) {
                if (client.receive().find("\"rows\":[]") == std::string::npos) return;
                acknowledged = sent;
            }
        } catch (const std::exception&) {
            // Gone before it was there.
        }
    }
};

TEST(PowerCut, LosesNoAnsweredWrite) {
    ZeqdProcess service;
    std::mt19937 random(20261122);
    std::array<Writer, 4> writers{Writer{1}, Writer{2}, Writer{3}, Writer{4}};
    int kept = 0;
    const int rounds = killRounds();
    for (int round = 0; round < rounds; ++round) {
        std::vector<std::thread> threads;
        for (Writer& writer : writers) threads.emplace_back([&] { writer.run(service.socketPath()); });
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 60000));
        service.kill();
        for (std::thread& thread : threads) thread.join();
        ASSERT_EQ(integrity(service.dataFolder() / "zeq.db"), "ok") << "round " << round;
        service.start();
        RawClient reader(service.socketPath());
        for (Writer& writer : writers) {
            const std::string name = nameOf(reader, writer.rx);
            // What was answered is there; what was sent and not answered may be.
            const int number = name.starts_with("w") ? std::atoi(name.c_str() + 1) : 0;
            ASSERT_GE(number, writer.acknowledged) << "round " << round << ", Receiver " << writer.rx;
            ASSERT_LE(number, writer.sent);
            kept += writer.acknowledged;
            writer.acknowledged = writer.sent = number;
        }
    }
    EXPECT_GT(kept, rounds) << "the cuts came before anything was written";
}

TEST(Process, StopsCleanlyAndComesBack) {
    ZeqdProcess service;
    {
        RawClient client(service.socketPath());
        ASSERT_NE(client.ask(named(1, "kept")).find("rows"), std::string::npos);
        struct stat info {};
        ASSERT_EQ(stat(service.socketPath().c_str(), &info), 0);
        EXPECT_EQ(info.st_mode & 0777, 0660U);
    }
    EXPECT_EQ(service.stop(), 0);
    EXPECT_FALSE(std::filesystem::exists(service.socketPath()));
    service.start();
    RawClient client(service.socketPath());
    EXPECT_EQ(nameOf(client, 1), "kept");
}

TEST(Process, StopsUnderWritersAndKeepsWhatItAnswered) {
    ZeqdProcess service;
    std::vector<Writer> writers;
    for (int rx = 1; rx <= 16; ++rx) writers.push_back({rx});
    std::vector<std::thread> threads;
    for (Writer& writer : writers) threads.emplace_back([&] { writer.run(service.socketPath()); });
    RawClient client(service.socketPath());
    for (int look = 0; look < 100000 && !nameOf(client, 16).starts_with("w"); ++look) continue;
    EXPECT_EQ(service.stop(), 0);
    for (std::thread& thread : threads) thread.join();
    service.start();
    RawClient reader(service.socketPath());
    for (const Writer& writer : writers)
        EXPECT_GE(std::atoi(nameOf(reader, writer.rx).c_str() + 1), writer.acknowledged);
}

TEST(Process, StopsWhileAFirmwareServerIsSilent) {
    ZeqdProcess service;
    const FileServer server("http", "stall", 1000);
    RawClient client(service.socketPath());
    ASSERT_NE(
        client
            .ask(
                R"({"id":1,"method":"create","resource":"upgrade","params":{"protocol":"http","location":")" +
                server.place() + R"(","filename":")" + FileServer::kFile + R"(","username":")" +
                FileServer::kUser + R"(","password":")" + FileServer::kPassword + R"("}})")
            .find("\"index\":3"),
        std::string::npos);
    ASSERT_NE(client.ask(R"({"id":1,"method":"set","resource":"rx","params":{"index":4,"upgradeIndex":3}})")
                  .find("rows"),
              std::string::npos);
    ASSERT_EQ(server.nextLine(), "stalled");
    EXPECT_EQ(service.stop(), 0) << "killed, since it waited for the file";
}

TEST(Process, ARebootOfTheSwitchAsksForANewStart) {
    ZeqdProcess service({"--demo", "--time-factor", "100"});
    {
        RawClient client(service.socketPath());
        EXPECT_NE(
            client
                .ask(R"({"id":1,"method":"set","resource":"swx","params":{"index":1,"reset":"cold_reboot"}})")
                .find("\"rows\":[]"),
            std::string::npos)
            << "answered before it goes";
        EXPECT_EQ(service.waitForEnd(), 42);
    }
    service.start();
    RawClient client(service.socketPath());
    EXPECT_NE(
        client.ask(R"({"id":1,"method":"get","resource":"swx","query":{"index":1},"select":["status"]})")
            .find("ready"),
        std::string::npos);
}

TEST(Process, WithoutRoomOnTheDiskItRefusesWritesAndGoesOn) {
    ZeqdProcess service;
    RawClient client(service.socketPath());
    const auto keeps = [&](int turn) {
        const std::string answer = client.ask(named(1, "n" + std::to_string(turn)));
        EXPECT_EQ(answer.find("rows") == std::string::npos,
                  answer == R"({"id":1,"errors":[{"errno":1,"detail":"service.detail.disk"}]})")
            << answer;
        return answer.find("rows") != std::string::npos;
    };
    ASSERT_TRUE(keeps(1));
    // No file may grow any more, which the file system reports like a lack of room.
    const auto size = std::filesystem::file_size(service.dataFolder() / "zeq.db-wal");
    rlimit unlimited{};
    ASSERT_EQ(prlimit(service.pid(), RLIMIT_FSIZE, nullptr, &unlimited), 0);
    const rlimit full{.rlim_cur = size, .rlim_max = unlimited.rlim_max};
    ASSERT_EQ(prlimit(service.pid(), RLIMIT_FSIZE, &full, nullptr), 0);
    int last = 1;
    while (last < 100 && keeps(last + 1)) ++last;
    ASSERT_LT(last, 100) << "the limit has no effect";
    EXPECT_FALSE(keeps(101));
    EXPECT_EQ(nameOf(client, 1), "n" + std::to_string(last)) << "what is there is read as before";
    ASSERT_EQ(prlimit(service.pid(), RLIMIT_FSIZE, &unlimited, nullptr), 0);
    EXPECT_TRUE(keeps(102)) << "there is room again";
    service.kill();
    EXPECT_EQ(integrity(service.dataFolder() / "zeq.db"), "ok");
    service.start();
    RawClient again(service.socketPath());
    EXPECT_EQ(nameOf(again, 1), "n102");
}

TEST(Process, ADamagedDatabaseIsSetAsideAndTold) {
    ZeqdProcess service;
    service.stop();
    std::ofstream(service.dataFolder() / "zeq.db", std::ios::binary) << std::string(10000, 'x');
    service.start();
    EXPECT_NE(service.log().find("has been set aside as"), std::string::npos);
    int aside = 0;
    for (const auto& file : std::filesystem::directory_iterator(service.dataFolder()))
        aside += file.path().filename().string().find(".damaged-") != std::string::npos;
    EXPECT_GE(aside, 1);
    RawClient client(service.socketPath());
    EXPECT_NE(client.ask(R"({"id":1,"method":"get","resource":"unacknowledgedAlerts"})")
                  .find("The database was damaged"),
              std::string::npos);
}

TEST(Clients, ThatMisbehaveDisturbNobody) {
    ZeqdProcess service;
    RawClient witness(service.socketPath());
    ASSERT_EQ(nameOf(witness, 1), "Desk 1 Left");
    RawClient silent(service.socketPath());
    RawClient halfway(service.socketPath());
    ASSERT_TRUE(halfway.send("\x00\x00\x10\x00{\"id\""s));
    RawClient greedy(service.socketPath());
    // Thousands of long answers asked for, none taken: the kernel's buffers fill, the service waits for room.
    std::string frame;
    for (int i = 0; i < 50; ++i) {
        RawClient deaf(service.socketPath());
        ASSERT_TRUE(deaf.sendFrame(R"({"id":1,"method":"get","resource":"rx"})"));
    }
    for (int i = 0; i < 20; ++i) ASSERT_TRUE(greedy.sendFrame(R"({"id":1,"method":"get","resource":"rx"})"));
    EXPECT_EQ(nameOf(witness, 1), "Desk 1 Left");
    {
        RawClient huge(service.socketPath());
        huge.send("\xFF\xFF\xFF\xFF"s + std::string(1000, 'x'));
        EXPECT_EQ(huge.receive(), "") << "a frame beyond the limit closes";
    }
    {
        RawClient noise(service.socketPath());
        EXPECT_NE(noise.ask("this is no request").find("1001"), std::string::npos);
        EXPECT_EQ(nameOf(noise, 1), "Desk 1 Left") << "the connection lives";
        std::string big = named(2, std::string((1U << 20) - 200, 'x'));
        EXPECT_NE(noise.ask(big).find("\"errno\":14"), std::string::npos);
        EXPECT_NE(noise.ask(std::string(1U << 20, '[')).find("1001"), std::string::npos);
    }
    EXPECT_EQ(nameOf(witness, 1), "Desk 1 Left");
    EXPECT_TRUE(service.running());
}

TEST(Clients, RequestsSentAheadAreAnsweredInOrder) {
    ZeqdProcess service;
    RawClient client(service.socketPath());
    for (int id = 1; id <= 30; ++id) {
        const bool write = id % 3 == 0;
        const std::string number = std::to_string(id);
        ASSERT_TRUE(client.sendFrame(
            write ? R"({"id":)" + number +
                        R"(,"method":"set","resource":"rx","params":{"index":1,"name":"n)" + number + R"("}})"
                  : R"({"id":)" + number +
                        R"(,"method":"get","resource":"rx","query":{"index":1},"select":["name"]})"));
    }
    std::string last = "Desk 1 Left";
    for (int id = 1; id <= 30; ++id) {
        const std::string answer = client.receive();
        EXPECT_EQ(answer.find("{\"id\":" + std::to_string(id) + ","), 0U) << answer;
        if (id % 3 == 0) {
            last = "n" + std::to_string(id);
        } else {
            EXPECT_NE(answer.find(last), std::string::npos) << answer;
        }
    }
}

TEST(Clients, AreLimited) {
    ZeqdProcess service({"--demo", "--clients", "3"});
    std::vector<std::unique_ptr<RawClient>> clients;
    for (int i = 0; i < 3; ++i) {
        clients.push_back(std::make_unique<RawClient>(service.socketPath()));
        ASSERT_EQ(nameOf(*clients.back(), 1), "Desk 1 Left");
    }
    RawClient fourth(service.socketPath());
    EXPECT_EQ(fourth.receive(), R"({"id":0,"errors":[{"errno":8}]})");
    clients.pop_back();
    for (int attempt = 0; attempt < 100; ++attempt) {
        RawClient again(service.socketPath());
        if (nameOf(again, 1) == "Desk 1 Left") return;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    FAIL() << "the place of a client that left is not given away";
}

} // namespace
} // namespace zeqd::testing
