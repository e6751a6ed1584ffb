// Figures of the client library and the database service, each the median of several rounds:
//   bench_platform [ROUNDS]
#include "platform/client/Message.h"
#include "platform/client/ZeqClient.h"
#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "tests/platform/support/ZeqdProcess.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <thread>
#include <unistd.h>

using Clock = std::chrono::steady_clock;
using zeq::JsonPtr;
using namespace std::chrono_literals;

namespace {

constexpr int kManyConnections = 32;
constexpr auto kRound = 1s;
constexpr auto kSettle = 1s; ///< after which the start's own clients are gone
constexpr auto kIdleWatch = 5s;

struct Client {
    Client() : handle(ZeqClient_new()) {
        if (!handle) throw std::runtime_error("no connection");
    }
    ~Client() { ZeqClient_close(handle); }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ZeqClient_s* handle;
};

double seconds(Clock::duration time) {
    return std::chrono::duration<double>(time).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

void print(const char* name, double value, const char* unit, const char* target) {
    std::printf("%-32s %12.1f %-8s %s\n", name, value, unit, target);
    std::fflush(stdout);
}

/// One exchange; false when it failed.
using Exchange = std::function<bool(ZeqClient_s* client, unsigned turn)>;

bool readName(ZeqClient_s* client, unsigned turn) {
    const JsonPtr request(ZeqReqUtil_newGetResource("rx"));
    ZeqObj_setUInt32Object(request.get(), "query", "index", turn % 16 + 1);
    ZeqObj_setSelect(request.get(), "name");
    const JsonPtr answer(ZeqClient_getResponse(client, request.get()));
    return ZeqRspUtil_getStringParam(answer.get(), "name") != nullptr;
}

bool writeName(ZeqClient_s* client, unsigned turn) {
    const JsonPtr request(ZeqReqUtil_newSetResource("rx"));
    ZeqReqUtil_setIntegerParam(request.get(), "index", turn % 16 + 1);
    ZeqReqUtil_setStringParam(request.get(), "notes", std::to_string(turn).c_str());
    const JsonPtr answer(ZeqClient_getResponse(client, request.get()));
    return answer && !ZeqRspUtil_getObjectParam(answer.get(), "errors");
}

struct Result {
    double perSecond;
    double p99; ///< microseconds
};

/// As many exchanges as one round allows, on each of `connections` connections, one thread each.
Result measure(int connections, const Exchange& exchange) {
    std::vector<std::vector<double>> times(static_cast<std::size_t>(connections));
    std::vector<std::thread> threads;
    const auto begin = Clock::now();
    for (int thread = 0; thread < connections; ++thread) {
        threads.emplace_back([&, thread] {
            const Client client;
            auto& mine = times[static_cast<std::size_t>(thread)];
            mine.reserve(100'000);
            for (unsigned turn = static_cast<unsigned>(thread); Clock::now() - begin < kRound; ++turn) {
                const auto start = Clock::now();
                if (!exchange(client.handle, turn)) throw std::runtime_error("an exchange failed");
                mine.push_back(seconds(Clock::now() - start) * 1e6);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    const double took = seconds(Clock::now() - begin);
    std::vector<double> all;
    for (const auto& some : times) all.insert(all.end(), some.begin(), some.end());
    std::sort(all.begin(), all.end());
    return {static_cast<double>(all.size()) / took, all.at(all.size() * 99 / 100)};
}

struct Row {
    const char* name;
    int connections;
    Exchange exchange;
    const char* rateTarget;
    const char* p99Target;
};

void rates(int rounds) {
    const Row rows[] = {
        {"read", 1, readName, "> 20000", "< 200"},
        {"read", kManyConnections, readName, "> 40000", "-"},
        {"write", 1, writeName, "the disk's rate", "-"},
        {"write", kManyConnections, writeName, "> 5000", "-"},
    };
    for (const Row& row : rows) {
        std::vector<double> rate, p99;
        for (int round = 0; round < rounds; ++round) {
            const Result result = measure(row.connections, row.exchange);
            rate.push_back(result.perSecond);
            p99.push_back(result.p99);
        }
        const std::string name = row.name + std::string("_") + std::to_string(row.connections);
        print((name + "_rate").c_str(), median(rate), "1/s", row.rateTarget);
        print((name + "_p99").c_str(), median(p99), "us", row.p99Target);
    }
}

/// Syncs a second of the disk that the service's data lies on: what one durable writer can reach at best.
void diskRate(const std::filesystem::path& folder) {
    const std::string file = folder / "sync-probe";
    const int probe = ::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    int count = 0;
    const auto begin = Clock::now();
    for (; Clock::now() - begin < kRound; ++count) {
        const bool written = ::pwrite(probe, "x", 1, count % 4096) == 1 && ::fdatasync(probe) == 0;
        if (!written) throw std::runtime_error("cannot write " + file);
    }
    print("disk_sync_rate", count / seconds(Clock::now() - begin), "1/s", "-");
    ::close(probe);
    ::unlink(file.c_str());
}

/// A number from /proc/PID/status.
double processFigure(pid_t pid, const std::string& key) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(key + ":")) return std::atof(line.c_str() + key.size() + 1);
    }
    return -1;
}

void atRest(const ZeqdProcess& zeqd) {
    print("demo_rss", processFigure(zeqd.pid(), "VmRSS") / 1024, "MiB", "< 25");
    std::this_thread::sleep_for(kSettle);
    const double before = processFigure(zeqd.pid(), "voluntary_ctxt_switches");
    std::this_thread::sleep_for(kIdleWatch);
    const double after = processFigure(zeqd.pid(), "voluntary_ctxt_switches");
    print("idle_wakeups", (after - before) / seconds(kIdleWatch), "1/s", "the simulation's");
}

void manyDevices(int rounds) {
    ZeqdProcess zeqd({"--demo", "--devices", "10000"});
    std::vector<double> start, list;
    for (int round = 0; round < rounds; ++round) {
        zeqd.stop();
        const auto begin = Clock::now();
        zeqd.start();
        start.push_back(seconds(Clock::now() - begin) * 1e3);
        const Client client;
        const auto asked = Clock::now();
        int rows = 0;
        for (auto retrieve : {ZeqReq_rxRetrieve, ZeqReq_txRetrieve}) {
            const JsonPtr answer(retrieve(client.handle,
                                          R"(["index","eid","name","status","upgradeStatus","usage",)"
                                          R"("firmwareVersion","detailedDeviceType"])"));
            rows += ZeqRspUtil_numEntries(answer.get());
        }
        if (rows < 10'000) throw std::runtime_error("devices are missing");
        list.push_back(seconds(Clock::now() - asked) * 1e3);
    }
    print("start_10000", median(start), "ms", "< 1000");
    print("list_10000", median(list), "ms", "< 60");
    print("rss_10000", processFigure(zeqd.pid(), "VmRSS") / 1024, "MiB", "-");
}

} // namespace

int main(int argc, char** argv) try {
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    ::setenv("EVENTLOG_LEVEL", "2", 0);
    std::printf("%-32s %12s %-8s %s\n", "name", "value", "unit", "target");
    {
        ZeqdProcess zeqd;
        atRest(zeqd);
        diskRate(zeqd.dataFolder());
        rates(rounds);
    }
    manyDevices(rounds);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "bench_platform: %s\n", error.what());
    return 1;
}
