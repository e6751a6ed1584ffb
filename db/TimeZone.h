#pragma once

#include <ctime>
#include <string>

/// What local times are given in: the zone's short name and its distance to UTC at that moment, "CEST (UTC+02:00)".
std::string TimeZone_text(std::time_t at = std::time(nullptr));
