#include "platform/service/engine/Simulation.h"

#include "platform/service/engine/Engine.h"
#include "platform/service/sim/Cascade.h"
#include "platform/service/sim/Enrolment.h"
#include "platform/service/sim/Firmware.h"
#include "platform/service/sim/Inactivity.h"
#include "platform/service/sim/Life.h"
#include "platform/service/sim/Operators.h"
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
    {Step::NtpResult, ntpResult},
    {Step::SessionIdle, sessionIdle},
    {Step::Operators, operators},
    {Step::UpgradeProgress, upgradeProgress},
    {Step::UpgradeReset, upgradeReset},
    {Step::PeerReady, peerReady},
    {Step::Enrol, enrol},
};

} // namespace

std::int64_t Simulation::now() const {
    return mEngine.mParts.clock.now();
}

bool Simulation::runNow(const Task& task) {
    switch (static_cast<Step>(task.kind)) {
    case Step::RestartService:
        mEngine.restart();
        return true;
    case Step::SetFactor:
        mEngine.mSchedule.setFactor(mEngine.mParts.clock.monotonicMs(), task.argument);
        return true;
    case Step::JumpAhead:
        mEngine.mSchedule.step(task.argument);
        return true;
    case Step::FactoryThisSwitch:
        restore();
        return true;
    default:
        return false;
    }
}

void Simulation::run(const Task& task, Transaction& tx) {
    const auto step = static_cast<Step>(task.kind);
    if (step == Step::UpgradeFetch) return fetch(task, tx);
    StepContext context{tx, now(), task};
    for (const StepRow& row : kSteps)
        if (row.step == step) row.run(context);
}

/// The files go first: a service that dies in between finds the restore still owed.
void Simulation::restore() {
    mEngine.mParts.executor.run(
        Lane::Archive, [this] { mEngine.removeFiles(); },
        [this] {
            mEngine.submitStep([this](Transaction& tx) {
                if (!owesRestore(tx)) return;
                factoryThisSwitch(tx, now());
                tx.later(span::kRestart, makeTask(Step::RestartService));
            });
        });
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
        Lane::Fetch,
        [source, fetched,
         rules = FetchRules{.limit = kMaxFirmware,
                            .folder = mEngine.mParts.options.uploadDir,
                            .localServers = mEngine.mParts.options.localServers}] {
            *fetched = fetchFirmware(*source, rules);
        },
        [this, upgrade = task.argument, fetched] { hasFetched(upgrade, fetched); });
}

void Simulation::hasFetched(std::uint32_t upgrade, const std::shared_ptr<FetchedFirmware>& fetched) {
    const std::vector<Task> waiting = std::move(mFetching[upgrade]);
    mFetching.erase(upgrade);
    for (const Task& task : waiting)
        mEngine.submitStep([this, task, fetched](Transaction& tx) {
            StepContext context{tx, now(), task};
            upgradeFetched(context, *fetched);
        });
}

void Simulation::resume(Transaction& tx) {
    resumeAll(tx, now());
    if (mEngine.mParts.options.living)
        tx.later(span::kOperators,
                 makeTask(Step::Operators, Res::User, 0, static_cast<std::uint32_t>(now())));
}

} // namespace zeqd
