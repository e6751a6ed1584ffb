// Sessions that a Receiver starts by itself.
#pragma once

#include "platform/service/core/Errors.h"
#include "platform/service/store/Transaction.h"

namespace zeqd {

/// The error that stands against a login of the user at the Receiver, or none.
Errno judgeLogin(const View& view, const Record& user, const Record& rx);

/// The error that stands against a KVM session between the two, for the user who is logged in there, or none.
Errno judgeConnection(const View& view, const RecordPtr& rx, const RecordPtr& tx, std::string_view mode);

/// A login that nothing stands against, not kept yet. Its event is the caller's.
Record newLogin(const Transaction& tx, std::int64_t now, const Record& user, const Record& rx);
/// Keeps a KVM session that nothing stands against, for the user at the Receiver.
void connect(Transaction& tx, std::int64_t now, const Record& user, const Record& rx, const Record& target,
             std::string_view mode);

/// A Receiver has become ready: logs its user in and connects it, when it is set up so.
void startAutoSession(Transaction& tx, std::int64_t now, std::uint32_t rxIndex);

} // namespace zeqd
