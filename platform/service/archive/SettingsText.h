// The settings of the system as one JSON text: what a settings file holds.
#pragma once

#include "platform/service/core/Errors.h"
#include "platform/service/store/Transaction.h"

namespace zeqd {

/// Everything that people have set: settings, accounts with their password hashes, monitors, names of
/// devices. Not the state of devices, sessions and events.
std::string settingsText(const View& view, std::int64_t now);

/// Puts the settings of the text in place of those that there are. Devices are found by their EIDs; those
/// that the text does not know keep theirs. Adds to `errors` when the text is not sound; then the transaction
/// is to be dropped.
void applySettings(Transaction& tx, std::string_view text, Errors& errors);

} // namespace zeqd
