#include "platform/service/engine/Simulation.h"

#include "platform/service/engine/Engine.h"
#include "platform/service/sim/Cascade.h"
#include "platform/service/sim/Enrolment.h"
#include "platform/service/sim/Life.h"
#include "platform/service/sim/Resume.h"
#include "platform/service/sim/SwitchLife.h"
#include "platform/service/sim/Upgrade.h"

#include <algorithm>

namespace zeqd {

namespace {

struct StepRow {
    Step step;
    void (*run)(StepContext&);
};
constexpr StepRow kSteps[] = {
    {Step::DeviceDown, deviceDown},
    {Step::DeviceConfiguring, deviceConfiguring},
    {Step::DeviceReady, deviceReady},
    {Step::FlashEnd, flashEnd},
    {Step::SwitchDown, switchDown},
    {Step::SwitchBack, switchBack},
    {Step::SwitchReady, switchReady},
    {Step::FactoryThisSwitch, factoryThisSwitch},
    {Step::NtpResult, ntpResult},
    {Step::UpgradeProgress, upgradeProgress},
    {Step::UpgradeReset, upgradeReset},
    {Step::PeerReady, peerReady},
    {Step::Enrol, enrol},
};

} // namespace

std::int64_t Simulation::now() const {
    return mEngine.mParts.clock.now();
}

void Simulation::run(const Task& task, Transaction& tx) {
    const auto step = static_cast<Step>(task.kind);
    const std::int64_t monotonic = mEngine.mParts.clock.monotonicMs();
    if (step == Step::RestartService) return mEngine.restart();
    if (step == Step::SetFactor) return mEngine.mSchedule.setFactor(monotonic, task.argument);
    if (step == Step::JumpAhead) return mEngine.mSchedule.step(task.argument);
    if (step == Step::UpgradeFetch) return fetch(task, tx);
    StepContext context{tx, now(), task};
    for (const StepRow& row : kSteps)
        if (row.step == step) row.run(context);
}

/// A file that several devices are to have is fetched once.
void Simulation::fetch(const Task& task, Transaction& tx) {
    const std::optional<FetchSource> source = upgradeSource(tx, task);
    if (!source) {
        StepContext context{tx, now(), task};
        return upgradeFetched(context, {});
    }
    std::vector<Task>& waiting = mFetching[task.argument];
    // A step is run again when what it did could not be kept.
    const bool again = std::any_of(waiting.begin(), waiting.end(), [&](const Task& other) {
        return other.resource == task.resource && other.index == task.index;
    });
    if (!again) waiting.push_back(task);
    if (again || waiting.size() > 1) return;
    auto fetched = std::make_shared<FetchedFirmware>();
    mEngine.mParts.executor.run(
        Lane::Fetch, [source, fetched] { *fetched = fetchFirmware(*source); },
        [this, upgrade = task.argument, fetched] { hasFetched(upgrade, fetched); });
}

void Simulation::hasFetched(std::uint32_t upgrade, const std::shared_ptr<FetchedFirmware>& fetched) {
    const std::vector<Task> waiting = std::move(mFetching[upgrade]);
    mFetching.erase(upgrade);
    for (const Task& task : waiting)
        mEngine.submit({[this, task, fetched](Transaction& tx) {
                            StepContext context{tx, now(), task};
                            upgradeFetched(context, *fetched);
                            return true;
                        },
                        {}});
}

void Simulation::resume(Transaction& tx) {
    resumeAll(tx, now());
}

} // namespace zeqd
