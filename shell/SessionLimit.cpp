#include "shell/SessionLimit.h"

#include <charconv>
#include <cstdlib>
#include <string_view>

namespace {

constexpr int kDefaultHours = 12;
constexpr int kMostHours = 8760;

int readHours() {
    const char* text = std::getenv("MIRL_SESSION_HOURS");
    const std::string_view given = text ? text : "";
    int hours = 0;
    const auto result = std::from_chars(given.data(), given.data() + given.size(), hours);
    const bool whole = result.ec == std::errc{} && result.ptr == given.data() + given.size();
    return whole && hours >= 0 && hours <= kMostHours ? hours : kDefaultHours;
}

} // namespace

int SessionLimit_hours() {
    static const int hours = readHours();
    return hours;
}
