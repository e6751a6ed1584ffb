#pragma once

#include <Wt/WString>

#include <cstddef>

/// One question before an action that is hard to undo, which a user may turn off for himself.
/// Texts are message keys.
struct Confirmation {
    const char* flag; // ask or not, in the logged-in user's record; null = always asked, with no check box
    const char* title;
    const char* message;
    const char* proceed;                 // first button: the only answer that lets the action go on
    const char* messageOfMany = nullptr; // for several records; null = as for one
    const char* proceedOfMany = nullptr;
    bool focusOnCancel = false; // where Enter in haste must not do harm
    int maxWidthPx = 300;
};

/// Asks unless the user has turned that off; a switch that cannot be read counts as on. True: go on. A ticked
/// "do not show again" is stored whatever ends the box. `hit`, if not empty, stands below the question and
/// names what the action reaches.
bool confirm(const Confirmation& confirmation, std::size_t count = 1, const Wt::WString& hit = Wt::WString());
