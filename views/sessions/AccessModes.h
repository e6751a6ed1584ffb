#pragma once

#include "db/Info.h"

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>

/// What the stored word allows; none for any other word.
std::optional<Info_AccessMode> accessModeNamed(const std::string& databaseValue);

/// One side is for private sessions only, the other for shared ones only: no session can join them.
constexpr bool accessModesClash(Info_AccessMode a, Info_AccessMode b) {
    return (a == Info_AccessMode::Share && b == Info_AccessMode::Private) ||
           (a == Info_AccessMode::Private && b == Info_AccessMode::Share);
}

/// No two of all sides of a session clash: what is wanted, and what user, Receiver and Transmitter each allow.
constexpr bool accessModesFit(std::initializer_list<Info_AccessMode> sides) {
    for (const Info_AccessMode a : sides)
        for (const Info_AccessMode b : sides)
            if (accessModesClash(a, b)) return false;
    return true;
}

/// Whether a session of the wanted mode may be added to a Transmitter with such a session (None = it has none, or one
/// of a mode unknown here). What would be wanted in either mode is taken for shared.
constexpr bool joinsSession(Info_AccessMode wanted, Info_ConnectionMode running) {
    struct Row {
        Info_ConnectionMode running;
        bool takesShared, takesPrivate;
    };
    constexpr Row kRows[] = {
        {Info_ConnectionMode::None, true, true},
        {Info_ConnectionMode::Share, true, false},
        {Info_ConnectionMode::Private, false, false},
    };
    for (const Row& row : kRows)
        if (row.running == running)
            return wanted == Info_AccessMode::Private ? row.takesPrivate : row.takesShared;
    return false;
}
