#pragma once

#include "db/ZeqRows.h"

#include <string>

struct json_t;

/// Asks for all that the cells below and the lookups of Db need for these logins and connections, either of which may
/// be null: at most four requests, whatever their number. The held records in use on this thread take it.
void holdSessionNames(const json_t* logins, const json_t* connections);

// Cells of lists of sessions, by the record's "rxIndex"; empty when the user has logged out, or the device is gone.
std::string sessionUsername(const ZeqRow& record);
std::string sessionReceiver(const ZeqRow& record);

// Cells of a connection.
std::string sessionMode(const ZeqRow& connection);
std::string sessionDuration(const ZeqRow& connection); // until now
