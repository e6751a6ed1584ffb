#include "platform/service/sim/Operators.h"

#include "platform/service/domain/Alerts.h"
#include "platform/service/domain/AutoSession.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"
#include "platform/service/sim/Inactivity.h"

#include <algorithm>
#include <set>

namespace zeqd {

namespace {

constexpr std::size_t kMost = 4;               ///< operators at a time
constexpr int kTries = 32;                     ///< Transmitters, of which many may be out of reach
constexpr std::uint32_t kPauseSpread = 30'000; ///< simulated milliseconds

/// Numbers that look like chance and are the same for the same start: xorshift, G. Marsaglia, Journal of
/// Statistical Software 8 (14), 2003.
class Chance {
public:
    explicit Chance(std::uint32_t state) : mState(state ? state : 1) {}
    std::uint32_t below(std::uint32_t limit) {
        mState ^= mState << 13;
        mState ^= mState >> 17;
        mState ^= mState << 5;
        return mState % limit;
    }
    /// One of them; null when there is none.
    RecordPtr of(const std::vector<RecordPtr>& records) {
        return records.empty() ? nullptr : records[below(static_cast<std::uint32_t>(records.size()))];
    }
    std::uint32_t state() const { return mState; }

private:
    std::uint32_t mState;
};

std::vector<RecordPtr> those(const View& view, Res id, const std::function<bool(const Record&)>& fit) {
    std::vector<RecordPtr> found;
    view.each(id, [&](const RecordPtr& record) {
        if (fit(*record)) found.push_back(record);
        return true;
    });
    return found;
}

void connectSomewhere(StepContext& step, Chance& chance, const Record& user, const RecordPtr& rx) {
    const std::vector<RecordPtr> ready = those(step.tx, Res::Tx, isReady);
    for (int i = 0; i < kTries && !ready.empty(); ++i) {
        const RecordPtr target = chance.of(ready);
        const char* mode = chance.below(4) == 0 ? "private_mode" : "share_mode";
        if (judgeConnection(step.tx, rx, target, mode) != Errno{}) continue;
        connect(step.tx, step.now, user, *rx, *target, mode);
        return awaitInput(step.tx, step.now, rx->index());
    }
}

/// Somebody, who may be logged in elsewhere too, comes to a Receiver that is free.
void comeIn(StepContext& step, Chance& chance) {
    std::set<std::uint32_t> taken;
    step.tx.each(Res::UserSession, [&](const RecordPtr& login) {
        taken.insert(login->number("rxIndex"));
        return true;
    });
    const RecordPtr user = chance.of(those(step.tx, Res::User, [](const Record& each) {
        return each.is("role", "user") && each.enabled("accountEnable") && !each.enabled("provisional");
    }));
    const RecordPtr rx = chance.of(those(step.tx, Res::Rx, [&](const Record& each) {
        return isReady(each) && each.is("usage", "usable") && !taken.contains(each.index());
    }));
    if (!user || !rx || judgeLogin(step.tx, *user, *rx) != Errno{}) return;
    Record login = newLogin(step.tx, step.now, *user, *rx);
    login.choose("simOperator", "enabled");
    step.tx.put(std::move(login));
    raiseAlert(step.tx, step.now, alerts::kUserLogin, rx->text("eid"),
               user->text("name") + " logged in at " + deviceLabel(*rx));
    connectSomewhere(step, chance, *user, rx);
}

/// An operator types, looks at another computer, or leaves.
void goOn(StepContext& step, Chance& chance, const Record& login) {
    const RecordPtr user = step.tx.find(Res::User, login.number("userIndex"));
    const RecordPtr rx = step.tx.find(Res::Rx, login.number("rxIndex"));
    if (!user || !rx) return;
    switch (chance.below(4)) {
    case 0:
        return awaitInput(step.tx, step.now, rx->index());
    case 1:
        return endSessionsOf(step.tx, step.now, {{Res::Rx, rx->index()}}, alerts::kSessionEnded);
    default:
        if (const RecordPtr connection = step.tx.findNumber(Res::Connection, "rxIndex", rx->index()))
            endConnection(step.tx, step.now, connection, alerts::kSessionEnded);
        else
            connectSomewhere(step, chance, *user, rx);
    }
}

} // namespace

void operators(StepContext& step) {
    Chance chance(step.task.argument);
    const std::vector<RecordPtr> here =
        those(step.tx, Res::UserSession, [](const Record& login) { return login.enabled("simOperator"); });
    if (here.empty() || (here.size() < kMost && chance.below(2) == 0))
        comeIn(step, chance);
    else
        goOn(step, chance, *chance.of(here));
    const std::int64_t pause = span::kOperators + chance.below(kPauseSpread);
    step.tx.later(pause, makeTask(Step::Operators, Res::User, 0, chance.state()));
}

} // namespace zeqd
