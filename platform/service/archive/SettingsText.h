// The settings of the system as one JSON text: what a settings file holds.
//
//   {"format":"zeq-settings","version":2,"created":…,
//    "eids":["00A703-030011",…],                EIDs of Transmitters
//    "records":{"user":[{"index":1,…,"targets":"0-17,20","favorites":"3,1"},…],…}}
//
// Records of one system have other numbers than those of the next. Devices are told apart by their EIDs, users and
// monitors by their names; "targets" and "favorites" are places in "eids", so that two hundred users with
// thousands of targets each fit. Version 1 had numbers of Transmitters there, whose EIDs its own "tx" list tells.
#pragma once

#include "platform/service/core/Errors.h"
#include "platform/service/store/Transaction.h"

namespace zeqd {

/// Everything that people have set: settings, accounts with their password hashes, monitors, names of
/// devices. Not the state of devices, sessions and events.
std::string settingsText(const View& view, std::int64_t now);

/// Judges the text by itself; adds to `errors` when it is not sound. Takes a second or two for the largest
/// installation; not for the event loop.
void checkSettings(std::string_view text, Errors& errors);

struct SettingsReport {
    std::size_t targets = 0; ///< targets and favourites of Transmitters that are not here: left out
    std::size_t logins = 0;  ///< automatic logins of users that are not here any more: cleared
};

/// Puts the settings of the text in place of those that there are. Devices that the text does not know keep theirs.
/// Adds to `errors` when the text is not sound; then the transaction is to be dropped.
SettingsReport applySettings(Transaction& tx, std::string_view text, Errors& errors);

} // namespace zeqd
