#pragma once

#include "db/ZeqRows.h"

#include <string>

/// Names that a retrieve of events selects: quoted and joined by commas, without brackets. The number of the instance
/// comes besides.
inline constexpr const char* kEventKeys = R"("date","originatorEid","severity","alertMsg")";

/// What the lists and the file show of an event. Local time; month and day without a leading zero.
std::string eventDate(const ZeqRow& event);
std::string eventSeverity(const ZeqRow& event); // in the user's words
