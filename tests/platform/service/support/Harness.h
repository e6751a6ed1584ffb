// The engine with time, disk and threads in the test's hands.
#pragma once

#include "platform/service/core/JsonPtr.h"
#include "platform/service/engine/Engine.h"
#include "platform/service/secret/PasswordHash.h"

#include <array>
#include <deque>
#include <map>
#include <stdexcept>

namespace zeqd::testing {

class FakeClock : public Clock {
public:
    std::int64_t now() const override {
        if (failures && !--failures) throw std::runtime_error("the clock stands still");
        return mStart + mMs / 1000;
    }
    std::int64_t monotonicMs() const override { return mMs; }
    void advance(std::int64_t milliseconds) { mMs += milliseconds; }

    mutable int failures = 0; ///< the so-many-th call from now on throws; 0 = none does

private:
    std::int64_t mStart = 1'700'000'000;
    std::int64_t mMs = 0;
};

/// Keeps the records as the real one would, and fails on demand.
class FakeDisk : public Disk {
public:
    std::string write(const std::vector<DiskChange>& changes) override;
    bool damaged() const override { return broken; }
    std::string renew(const DiskContent& content) override;

    std::map<std::pair<Res, std::uint32_t>, std::string> records;
    int failures = 0;    ///< so many writes fail from now on
    bool broken = false; ///< writes fail until it is renewed
    int renewals = 0;
    int writes = 0;
    std::string poison; ///< a write with this text in it fails; empty = none does
};

/// Runs nothing until it is told to.
class StepExecutor : public Executor {
public:
    void run(Lane lane, std::function<void()> work, std::function<void()> done) override;
    /// Works off what is queued of the lane, one piece. False when there is nothing.
    bool step(Lane lane);
    bool stepAny();

    std::array<int, kLaneCount> runs{}; ///< pieces of work that came, by lane

private:
    struct Job {
        Lane lane;
        std::function<void()> work;
        std::function<void()> done;
    };
    std::deque<Job> mJobs;
};

/// One answer.
class Answer {
public:
    explicit Answer(const std::string& text);

    /// Number of the first error, 0 = none.
    int error() const;
    std::string detail() const;
    std::size_t errorCount() const;
    std::size_t rowCount() const;
    /// Value of a key, nested ones by slashes, as text; "(absent)" when the row lacks it.
    std::string at(const std::string& path, std::size_t row = 0) const;
    int number(const std::string& path, std::size_t row = 0) const {
        return std::atoi(at(path, row).c_str());
    }
    const json_t* rows() const { return json_object_get(mJson.get(), "rows"); }
    const std::string& text() const { return mText; }

private:
    std::string mText;
    JsonPtr mJson;
};

class Harness {
public:
    enum class Installation { Demo, Factory };
    explicit Harness(Installation installation = Installation::Demo);

    /// {"method":…,…} without an id; answered with everything that it waits for worked off.
    Answer ask(const std::string& request, ClientId client = 7);
    /// Shorthands: method and resource, then the members as JSON text.
    Answer get(const std::string& resource, const std::string& members = "");
    Answer set(const std::string& resource, const std::string& params);
    Answer create(const std::string& resource, const std::string& params);
    Answer remove(const std::string& resource, int index);
    /// One key of one record.
    std::string value(const std::string& resource, int index, const std::string& key);

    /// Simulated time passes, step by step as things fall due.
    void pass(std::int64_t milliseconds);
    /// The service stops as by a power cut and starts again from what is on disk.
    void restart();
    void settle();

    FakeClock clock;
    FakeDisk disk;
    StepExecutor executor;
    std::vector<std::string> log;
    std::vector<std::string> syslog; ///< server, severity, message, EID of the Switch
    std::string settingsDir = "/nonexistent";
    bool simControl = true;
    bool living = false;                          ///< from the next restart on
    std::string database = "/nonexistent/zeq.db"; ///< path, of which only what was set aside is looked at
    std::function<std::string(std::string_view)> hash = hashPassword;
    std::unique_ptr<Engine> engine;

private:
    void boot(Store store);
};

/// An administrator's password of the demo in tests.
inline constexpr const char* kPassword = "test-1";

/// Everything in the store, for "nothing changed".
std::string dump(const View& view);

} // namespace zeqd::testing
