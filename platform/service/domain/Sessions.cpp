#include "platform/service/domain/Sessions.h"

#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Video.h"

namespace zeqd {

namespace {

std::vector<RecordPtr> allWith(const View& view, Res id, std::string_view key, std::uint32_t value) {
    std::vector<RecordPtr> found;
    view.each(id, [&](const RecordPtr& record) {
        if (record->number(key) == value) found.push_back(record);
        return true;
    });
    return found;
}

std::string labelOf(const View& view, Res id, std::uint32_t index) {
    const RecordPtr device = view.find(id, index);
    return device ? deviceLabel(*device) : "a removed device";
}

} // namespace

void showPictures(Transaction& tx, std::uint32_t rxIndex, std::uint32_t txIndex) {
    const RecordPtr stored = tx.find(Res::Rx, rxIndex);
    if (!stored) return;
    Record rx = *stored;
    setPictures(rx, txIndex ? tx.find(Res::Tx, txIndex) : nullptr);
    tx.put(std::move(rx));
}

void endConnection(Transaction& tx, std::int64_t now, const RecordPtr& connection, const AlertKind& why,
                   std::string_view words) {
    const std::uint32_t rx = connection->number("rxIndex");
    tx.erase(Res::Connection, connection->index());
    showPictures(tx, rx, 0);
    raiseAlert(tx, now, why, connection->text("rxEid"),
               "Session of " + labelOf(tx, Res::Rx, rx) + " with " +
                   labelOf(tx, Res::Tx, connection->number("txIndex")) + " disconnected" +
                   std::string(words));
}

void endSessionsOf(Transaction& tx, std::int64_t now, const DeviceSet& devices, const AlertKind& why) {
    std::vector<RecordPtr> ending;
    tx.each(Res::Connection, [&](const RecordPtr& connection) {
        if (devices.contains({Res::Rx, connection->number("rxIndex")}) ||
            devices.contains({Res::Tx, connection->number("txIndex")}))
            ending.push_back(connection);
        return true;
    });
    for (const RecordPtr& connection : ending) endConnection(tx, now, connection, why);
    ending.clear();
    tx.each(Res::UserSession, [&](const RecordPtr& session) {
        if (devices.contains({Res::Rx, session->number("rxIndex")})) ending.push_back(session);
        return true;
    });
    for (const RecordPtr& session : ending) {
        tx.erase(Res::UserSession, session->index());
        const RecordPtr user = tx.find(Res::User, session->number("userIndex"));
        const RecordPtr rx = tx.find(Res::Rx, session->number("rxIndex"));
        raiseAlert(tx, now, alerts::kUserLogout, rx ? rx->text("eid") : std::string(),
                   (user ? user->text("name") : "A removed user") + " logged out at " +
                       labelOf(tx, Res::Rx, session->number("rxIndex")));
    }
}

void noteAdminLogout(Transaction& tx, std::int64_t now, const Record& session) {
    raiseAlert(tx, now, alerts::kAdminLogout, thisSwitchEid(tx),
               session.text("username") + " logged out of the web interface");
}

void endSessionsOfUser(Context& context) {
    const std::uint32_t user = context.before->index();
    DeviceSet receivers;
    for (const RecordPtr& session : allWith(context.tx, Res::UserSession, "userIndex", user))
        receivers.emplace(Res::Rx, session->number("rxIndex"));
    endSessionsOf(context.tx, context.now, receivers, alerts::kSessionEnded);
    endAdminSessionsOfUser(context.tx, context.now, user, 0);
}

void endAdminSessionsOfUser(Transaction& tx, std::int64_t now, std::uint32_t user, ClientId except) {
    for (const RecordPtr& session : allWith(tx, Res::AdminSession, "userIndex", user)) {
        if (except && session->number("simClient") == static_cast<std::uint32_t>(except)) continue;
        tx.erase(Res::AdminSession, session->index());
        noteAdminLogout(tx, now, *session);
    }
}

void endAdminSessionsOfClient(Transaction& tx, std::int64_t now, ClientId client) {
    for (const RecordPtr& session :
         allWith(tx, Res::AdminSession, "simClient", static_cast<std::uint32_t>(client))) {
        tx.erase(Res::AdminSession, session->index());
        noteAdminLogout(tx, now, *session);
    }
}

void removeProvisionalUsersOf(Transaction& tx, ClientId client) {
    for (const RecordPtr& user : allWith(tx, Res::User, "simClient", static_cast<std::uint32_t>(client)))
        tx.erase(Res::User, user->index());
}

void removeProvisionalUsers(Transaction& tx) {
    std::vector<std::uint32_t> gone;
    tx.each(Res::User, [&](const RecordPtr& user) {
        if (user->enabled("provisional")) gone.push_back(user->index());
        return true;
    });
    for (const std::uint32_t user : gone) tx.erase(Res::User, user);
}

} // namespace zeqd
