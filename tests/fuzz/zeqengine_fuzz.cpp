// The service's engine: each line is a request. Every request gets one answer, well formed, and the engine
// comes to rest.
#include "platform/service/demo/Installation.h"
#include "platform/service/engine/Engine.h"

#include "platform/client/Message.h"

#include <cstdint>
#include <deque>
#include <sodium.h>

namespace {

class StillClock : public zeqd::Clock {
public:
    std::int64_t now() const override { return 1'700'000'000; }
    std::int64_t monotonicMs() const override { return 0; }
};

class PatientDisk : public zeqd::Disk {
public:
    std::string write(const std::vector<zeqd::DiskChange>&) override { return {}; }
};

/// Works in turn. Leaves out what is slow or leaves the process: password hashes, fetching and archives.
class Queue : public zeqd::Executor {
public:
    void run(zeqd::Lane lane, std::function<void()> work, std::function<void()> done) override {
        if (lane != zeqd::Lane::Disk) work = [] {};
        mJobs.push_back({std::move(work), std::move(done)});
    }
    bool step() {
        if (mJobs.empty()) return false;
        const Job job = std::move(mJobs.front());
        mJobs.pop_front();
        job.work();
        job.done();
        return true;
    }

private:
    struct Job {
        std::function<void()> work;
        std::function<void()> done;
    };
    std::deque<Job> mJobs;
};

const zeqd::Store& demo() {
    static const zeqd::Store store = [] {
        if (sodium_init() < 0) __builtin_trap();
        zeqd::InstallationPlan plan;
        plan.dataDir = MIRL_SOURCE_DIR "/platform/service/data";
        plan.adminPassword = "fuzz-1";
        plan.now = StillClock().now();
        zeqd::Store out;
        for (const zeqd::RecordPtr& record : zeqd::makeInstallation(plan)) out.load(record);
        return out;
    }();
    return store;
}

/// Whatever id the answer has, the client library must accept the rest of it.
void checkAnswer(const std::string& answer) {
    const zeq::JsonPtr json(json_loadb(answer.data(), answer.size(), 0, nullptr));
    const json_t* id = json_object_get(json.get(), "id");
    std::string why;
    if (!json_is_integer(id)) __builtin_trap();
    if (json_integer_value(id) != 0 && !zeq::decodeAnswer(answer, json_integer_value(id), why))
        __builtin_trap();
}

/// A request that the program has a fault with is refused and told; here that counts as a crash.
void faultless(const std::string& line) {
    if (line.find("a fault in") != std::string::npos) __builtin_trap();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    StillClock clock;
    PatientDisk disk;
    Queue queue;
    zeqd::Engine engine(
        {clock, disk, queue, faultless, "/nonexistent", {}, {}, zeqd::hashPassword, {.simControl = true}},
        demo());
    engine.start(1);
    const auto settle = [&] {
        do {
            engine.flush();
        } while (queue.step());
    };
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(rest.size(), line.size() + 1));
        int answers = 0;
        engine.request(1, line, [&](const std::string& answer) {
            ++answers;
            checkAnswer(answer);
        });
        settle();
        if (answers != 1) __builtin_trap();
    }
    engine.clientGone(1);
    settle();
    if (!engine.idle()) __builtin_trap();
    return 0;
}
