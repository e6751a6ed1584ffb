#include "platform/service/sim/Inactivity.h"

#include "platform/service/domain/Alerts.h"
#include "platform/service/domain/Sessions.h"

#include <algorithm>

namespace zeqd {

namespace {

constexpr std::int64_t kMinute = 60; // seconds

void endLater(Transaction& tx, const Record& connection, std::int64_t seconds) {
    tx.later(seconds * 1000, makeTask(Step::SessionIdle, Res::Rx, connection.number("rxIndex"),
                                      connection.number("simEndsAt")));
}

} // namespace

void awaitInput(Transaction& tx, std::int64_t now, Record& connection, const Record& rx) {
    const std::int64_t limit = rx.number("sessionInactivityTimeout") * kMinute;
    connection.set("simEndsAt", limit ? static_cast<std::uint32_t>(now + limit) : 0);
    if (limit) endLater(tx, connection, limit);
}

void awaitInput(Transaction& tx, std::int64_t now, std::uint32_t rxIndex) {
    const RecordPtr rx = tx.find(Res::Rx, rxIndex);
    const RecordPtr stored = tx.findNumber(Res::Connection, "rxIndex", rxIndex);
    if (!rx || !stored) return;
    Record connection = *stored;
    awaitInput(tx, now, connection, *rx);
    if (!sameFields(connection.fields(), stored->fields())) tx.put(std::move(connection));
}

void sessionIdle(StepContext& step) {
    const RecordPtr connection = step.tx.findNumber(Res::Connection, "rxIndex", step.task.index);
    const RecordPtr rx = step.tx.find(Res::Rx, step.task.index);
    if (!connection || !rx || connection->number("simEndsAt") != step.task.argument) return;
    endConnection(step.tx, step.now, connection, alerts::kSessionEnded,
                  ": nobody there for " + std::to_string(rx->number("sessionInactivityTimeout")) + " min");
}

void resumeInactivity(Transaction& tx, std::int64_t now) {
    tx.each(Res::Connection, [&](const RecordPtr& connection) {
        if (const std::int64_t end = connection->number("simEndsAt"))
            endLater(tx, *connection, std::max<std::int64_t>(0, end - now));
        return true;
    });
}

} // namespace zeqd
