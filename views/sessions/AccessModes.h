#pragma once

#include "db/Info.h"

#include <optional>
#include <string>

/// What the stored word allows; none for any other word.
std::optional<Info_AccessMode> accessModeNamed(const std::string& databaseValue);

/// One side is for private sessions only, the other for shared ones only: no session can join them.
constexpr bool accessModesClash(Info_AccessMode a, Info_AccessMode b) {
    return (a == Info_AccessMode::Share && b == Info_AccessMode::Private) ||
           (a == Info_AccessMode::Private && b == Info_AccessMode::Share);
}
