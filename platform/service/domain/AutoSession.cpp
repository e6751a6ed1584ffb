#include "platform/service/domain/AutoSession.h"

#include "platform/service/domain/Alerts.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"

namespace zeqd {

namespace {

void autoConnect(Transaction& tx, std::int64_t now, const RecordPtr& rx, const Record& user) {
    const RecordPtr target = tx.findText(Res::Tx, "eid", rx->text("autoConnectTxEid"));
    if (!target) return;
    const std::string joined = deviceLabel(*rx) + " to " + deviceLabel(*target);
    if (judgeConnection(tx, rx, target, rx->choice("autoConnectMode")) != Errno{})
        return raiseAlert(tx, now, alerts::kSessionFailed, rx->text("eid"),
                          "Automatic connection of " + joined + " failed");
    connect(tx, now, user, *rx, *target, rx->choice("autoConnectMode"));
}

} // namespace

Record newLogin(const Transaction& tx, std::int64_t now, const Record& user, const Record& rx) {
    Record login(Res::UserSession, tx.nextIndex(Res::UserSession));
    login.set("userIndex", user.index()).set("rxIndex", rx.index());
    login.set("sessionStartTime", static_cast<std::uint32_t>(now));
    return login;
}

void connect(Transaction& tx, std::int64_t now, const Record& user, const Record& rx, const Record& target,
             std::string_view mode) {
    Record connection(Res::Connection, tx.nextIndex(Res::Connection));
    connection.set("rxIndex", rx.index()).set("txIndex", target.index());
    connection.choose("mode", mode);
    beginConnection(tx, now, connection, user);
    tx.put(std::move(connection));
}

void startAutoSession(Transaction& tx, std::int64_t now, std::uint32_t rxIndex) {
    const RecordPtr rx = tx.find(Res::Rx, rxIndex);
    if (!rx || !rx->enabled("autoLoginControl")) return;
    const RecordPtr user = tx.find(Res::User, rx->number("autoLoginUserIndex"));
    if (!user || judgeLogin(tx, *user, *rx) != Errno{}) return;
    tx.put(newLogin(tx, now, *user, *rx));
    raiseAlert(tx, now, alerts::kUserAutoLogin, rx->text("eid"),
               user->text("name") + " logged in automatically at " + deviceLabel(*rx));
    if (rx->enabled("autoConnectControl")) autoConnect(tx, now, rx, *user);
}

} // namespace zeqd
