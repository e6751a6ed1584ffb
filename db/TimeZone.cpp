#include "db/TimeZone.h"

#include <cstdio>
#include <cstdlib>

std::string TimeZone_text(std::time_t at) {
    std::tm local{};
    localtime_r(&at, &local);
    const long minutes = local.tm_gmtoff / 60;
    char text[64];
    std::snprintf(text, sizeof text, "%.16s (UTC%c%02ld:%02ld)", local.tm_zone ? local.tm_zone : "",
                  minutes < 0 ? '-' : '+', std::labs(minutes) / 60, std::labs(minutes) % 60);
    return text;
}
