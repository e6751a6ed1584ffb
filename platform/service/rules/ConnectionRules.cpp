// KVM sessions: who may be joined to what.
#include "platform/service/domain/Alerts.h"
#include "platform/service/domain/AutoSession.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"
#include "platform/service/rules/Rules.h"
#include "platform/service/sim/Inactivity.h"

#include <algorithm>

namespace zeqd {

namespace {

constexpr std::size_t kMaxSharers = 8; ///< Receivers that may share one Transmitter

struct Parties {
    RecordPtr rx;
    RecordPtr tx;
    RecordPtr user; ///< logged in at the Receiver; null when nobody is
    std::string_view mode;
};

bool modeAllowed(const Record& party, std::string_view mode) {
    return party.is("modeAllowed", "share_or_private_mode") || party.is("modeAllowed", mode);
}

bool mayReach(const Record& user, std::uint32_t txIndex) {
    if (user.enabled("allTargetAccess")) return true;
    const Entries& targets = user.at("target").entries();
    return std::any_of(targets.begin(), targets.end(),
                       [&](const Fields& entry) { return entry[0].number() == txIndex; });
}

/// Both devices hang on Switches that are up, and the same one or two of the same cascade.
bool pathExists(const View& view, const Parties& parties) {
    for (const RecordPtr& device : {parties.rx, parties.tx}) {
        const RecordPtr swx = view.find(Res::Swx, device->number("simSwx"));
        if (!swx || device->number("simPort") == 0 || !swx->is("status", "ready")) return false;
        if (parties.rx->number("simSwx") != parties.tx->number("simSwx") && swx->index() != kThisSwitch &&
            !swx->is("mode", "slave"))
            return false;
    }
    return true;
}

/// What the sessions that the Transmitter has already leave room for.
Errno topology(const View& view, const Parties& parties) {
    if (view.findNumber(Res::Connection, "rxIndex", parties.rx->index())) return Errno::RxAlreadyConnected;
    std::size_t sharers = 0;
    bool privately = false;
    view.each(Res::Connection, [&](const RecordPtr& connection) {
        if (connection->number("txIndex") != parties.tx->index()) return true;
        ++sharers;
        privately = privately || connection->is("mode", "private_mode");
        return true;
    });
    if (parties.mode == "private_mode" && sharers > 0) return Errno::PrivateToConnectedTx;
    if (privately) return Errno::ShareToPrivateTx;
    if (sharers >= kMaxSharers) return Errno::ShareLimit;
    return pathExists(view, parties) ? Errno{} : Errno::NoPath;
}

/// The error that stands against the session, or none.
Errno judge(const View& view, const Parties& parties) {
    if (!isReady(*parties.rx)) return Errno::RxNotOnline;
    if (!isReady(*parties.tx)) return Errno::TxNotOnline;
    if (!parties.user) return Errno::NotAuthorized;
    if (!parties.rx->is("usage", "usable") || !parties.tx->is("usage", "usable")) return Errno::Topology;
    if (!modeAllowed(*parties.rx, parties.mode) || !modeAllowed(*parties.tx, parties.mode) ||
        !modeAllowed(*parties.user, parties.mode))
        return Errno::NotAllowed;
    if (!mayReach(*parties.user, parties.tx->index())) return Errno::NotAuthorized;
    return topology(view, parties);
}

} // namespace

Errno judgeConnection(const View& view, const RecordPtr& rx, const RecordPtr& tx, std::string_view mode) {
    const RecordPtr login = view.findNumber(Res::UserSession, "rxIndex", rx->index());
    return judge(view, {rx, tx, login ? view.find(Res::User, login->number("userIndex")) : nullptr, mode});
}

void beginConnection(Transaction& tx, std::int64_t now, Record& connection, const Record& user) {
    const RecordPtr rx = tx.find(Res::Rx, connection.number("rxIndex"));
    const RecordPtr target = tx.find(Res::Tx, connection.number("txIndex"));
    connection.setText("rxEid", rx->text("eid")).setText("txEid", target->text("eid"));
    connection.set("sessionStartTime", static_cast<std::uint32_t>(now));
    showPictures(tx, rx->index(), target->index());
    raiseAlert(
        tx, now, connection.is("mode", "private_mode") ? alerts::kPrivateSession : alerts::kSharedSession,
        rx->text("eid"),
        "Session of " + user.text("name") + " connected " + deviceLabel(*rx) + " to " + deviceLabel(*target));
}

void endForbiddenConnections(Transaction& tx, std::int64_t now, const Record& user) {
    std::set<std::uint32_t> receivers; // where the user is logged in
    tx.each(Res::UserSession, [&](const RecordPtr& session) {
        if (session->number("userIndex") == user.index()) receivers.insert(session->number("rxIndex"));
        return true;
    });
    std::vector<RecordPtr> ending;
    tx.each(Res::Connection, [&](const RecordPtr& connection) {
        if (!receivers.contains(connection->number("rxIndex"))) return true;
        if (!mayReach(user, connection->number("txIndex")) || !modeAllowed(user, connection->choice("mode")))
            ending.push_back(connection);
        return true;
    });
    for (const RecordPtr& connection : ending) endConnection(tx, now, connection, alerts::kSessionEnded);
}

void sessionConnected(Context& context) {
    Record& connection = *context.after;
    const RecordPtr rx = context.tx.find(Res::Rx, connection.number("rxIndex"));
    const RecordPtr tx = context.tx.find(Res::Tx, connection.number("txIndex"));
    if (!rx || !tx) return;
    if (const Errno error = judgeConnection(context.tx, rx, tx, connection.choice("mode"));
        error != Errno{}) {
        context.fail(error);
        context.failureAlert = {&alerts::kSessionFailed,
                                "Connection of " + deviceLabel(*rx) + " to " + deviceLabel(*tx) + " failed"};
        return;
    }
    const RecordPtr login = context.tx.findNumber(Res::UserSession, "rxIndex", rx->index());
    beginConnection(context.tx, context.now, connection,
                    *context.tx.find(Res::User, login->number("userIndex")));
    awaitInput(context.tx, context.now, connection, *rx);
}

void sessionDisconnected(Context& context) {
    endConnection(context.tx, context.now, context.before, alerts::kSessionEnded);
}

} // namespace zeqd
