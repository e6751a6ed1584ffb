// What sessions bring with them when they begin and when they end.
#pragma once

#include "platform/service/domain/Alerts.h"
#include "platform/service/domain/Context.h"

#include <set>

namespace zeqd {

/// Completes the record of a KVM session that nothing stands against, for the user at its Receiver.
void beginConnection(Transaction& tx, std::int64_t now, Record& connection, const Record& user);

/// Ends the KVM session; the alert tells why, in words too where there is more to say. The devices' pictures go dark.
void endConnection(Transaction& tx, std::int64_t now, const RecordPtr& connection, const AlertKind& why,
                   std::string_view words = "");

/// Ends the KVM sessions that this user, as the record is to be, may no longer have.
void endForbiddenConnections(Transaction& tx, std::int64_t now, const Record& user);

using DeviceSet = std::set<std::pair<Res, std::uint32_t>>; ///< Receivers and Transmitters

/// Ends the KVM sessions of the devices, and logs the users of Receivers out. Looks all sessions through once.
void endSessionsOf(Transaction& tx, std::int64_t now, const DeviceSet& devices, const AlertKind& why);

/// Ends all sessions of the user that the request is about, those with this interface included.
void endSessionsOfUser(Context& context);

/// The Receiver's pictures follow the Transmitter's and the monitor's; index 0: no session any more.
void showPictures(Transaction& tx, std::uint32_t rxIndex, std::uint32_t txIndex);

/// The event of an administrator's logout.
void noteAdminLogout(Transaction& tx, std::int64_t now, const Record& session);

/// Ends the administrator sessions of a user, but those of the client `except`; 0 = all.
void endAdminSessionsOfUser(Transaction& tx, std::int64_t now, std::uint32_t user, ClientId except);

/// The administrator's sessions that belong to a client's connection end with it.
void endAdminSessionsOfClient(Transaction& tx, std::int64_t now, ClientId client);

/// Accounts that somebody began to make and never saved go with the connection.
void removeProvisionalUsersOf(Transaction& tx, ClientId client);
/// The same of all connections, of which none is left when the service starts.
void removeProvisionalUsers(Transaction& tx);

} // namespace zeqd
