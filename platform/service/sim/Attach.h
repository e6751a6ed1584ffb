// New devices that are plugged in.
#pragma once

#include "platform/service/store/Transaction.h"

namespace zeqd {

/// Makes the record of a new device with the system's defaults and begins its start. A Receiver or
/// Transmitter takes the first free port; without one, and for a Switch beyond what an unmanaged system may
/// have, it is there but exceeds the capacity.
void attachDevice(Transaction& tx, std::int64_t now, Res kind, const std::string& eid);

/// The Switch has come under a manager, or has left it: the first Switches of an unmanaged system are usable,
/// all others exceed its capacity.
void reviewCapacity(Transaction& tx, std::int64_t now, bool managed);

} // namespace zeqd
