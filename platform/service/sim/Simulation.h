// The devices' life: what happens to them after a request, in simulated time.
#pragma once

#include "platform/service/store/Transaction.h"

namespace zeqd {

class Engine;

class Simulation {
public:
    explicit Simulation(Engine& engine) : mEngine(engine) {}

    void run(const Task& task, Transaction& tx);

    /// Settles what a stop of the service left in the middle.
    void resume(Transaction& tx);

private:
    void fetch(const Task& task, const View& view);
    std::int64_t now() const;

    Engine& mEngine;
};

} // namespace zeqd
