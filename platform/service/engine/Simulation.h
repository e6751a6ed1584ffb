// The devices' life: what happens to them after a request, in simulated time.
#pragma once

#include "platform/service/store/Transaction.h"

#include <map>
#include <memory>

namespace zeqd {

class Engine;
struct FetchedFirmware;

class Simulation {
public:
    explicit Simulation(Engine& engine) : mEngine(engine) {}

    /// Does what changes no record, and must not be done twice; false for any other step.
    bool runNow(const Task& task);
    void run(const Task& task, Transaction& tx);

    /// Settles what a stop of the service left in the middle.
    void resume(Transaction& tx);

private:
    void restore();
    void fetch(const Task& task, Transaction& tx);
    void hasFetched(std::uint32_t upgrade, const std::shared_ptr<FetchedFirmware>& fetched);
    std::int64_t now() const;

    Engine& mEngine;
    std::map<std::uint32_t, std::vector<Task>> mFetching; ///< upgrade record: who waits for its file
};

} // namespace zeqd
