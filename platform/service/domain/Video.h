// Pictures: the video modes that computers send, and what a Receiver reports of them.
#pragma once

#include "platform/service/store/Transaction.h"

namespace zeqd {

/// Number of the video modes that there are; modes are numbered from 1.
std::uint32_t videoModeCount();

/// Sets the Receiver's three timing objects: what comes in (from the Transmitter, null = no session), what
/// goes out, and what its monitor prefers.
void setPictures(Record& rx, const RecordPtr& tx);

} // namespace zeqd
