#pragma once

#include "db/ZeqRows.h"

#include <string>

/// What a retrieve of events selects: names quoted and joined by commas, no brackets. The instance number comes besides.
inline constexpr const char* kEventKeys = R"("date","originatorEid","severity","alertMsg")";

/// What the lists and the file show of an event. Local time; month and day without a leading zero.
std::string eventDate(const ZeqRow& event);
std::string eventSeverity(const ZeqRow& event); // in the user's words
/// Style class of its severity: shape and colour, beside the word.
const char* eventMark(const ZeqRow& event);
