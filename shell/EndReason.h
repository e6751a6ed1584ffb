#pragma once

#include <array>
#include <string_view>

/// Why a session ended and the login page is there again. `None`: its user logged out, or came for the first
/// time; then the page says nothing.
enum class EndReason {
    None,
    Inactivity,
    TimeLimit,
    LoggedOutElsewhere,
    AccountChanged,
    Restarted,
    ModeChanged,
    PlaceChanged,
    OtherSwitch
};

/// The reason travels as the word of this parameter of the start page's address, and is a text of the message
/// bundle there. Whoever writes a word into the address by hand reads one of these texts, no other.
constexpr char kEndParameter[] = "ended";

struct EndReasonRow {
    EndReason reason;
    const char* word;
    const char* message;
};
constexpr std::array<EndReasonRow, 9> kEndReasons = {{
    {EndReason::None, "", ""},
    {EndReason::Inactivity, "inactivity", "[RSnnn]You were logged out because nothing was done for a while."},
    {EndReason::TimeLimit, "time",
     "[RSnnn]You were logged out because the session had reached its longest time."},
    {EndReason::LoggedOutElsewhere, "elsewhere",
     "[RSnnn]You were logged out: your session was ended from another place."},
    {EndReason::AccountChanged, "account",
     "[RSnnn]You were logged out: your account was disabled or removed, or its role or password was changed."},
    {EndReason::Restarted, "restart", "[RSnnn]You were logged out because the Switch has restarted."},
    {EndReason::ModeChanged, "mode",
     "[RSnnn]You were logged out because the Switch has become managed, or is managed no longer."},
    {EndReason::PlaceChanged, "place",
     "[RSnnn]You were logged out because this Switch has another place in its cascade now."},
    {EndReason::OtherSwitch, "switch",
     "[RSnnn]You were logged out because this is another Switch now: the roles of the two controllers were switched."},
}};

constexpr const EndReasonRow& endReasonRow(EndReason reason) {
    return kEndReasons[static_cast<std::size_t>(reason)];
}

/// An unknown word, and none, is no reason.
constexpr const EndReasonRow& endReasonRow(std::string_view word) {
    for (const EndReasonRow& row : kEndReasons)
        if (row.word == word) return row;
    return kEndReasons[0];
}

constexpr bool endReasonsStandInOrder() {
    for (std::size_t i = 0; i < kEndReasons.size(); ++i)
        if (static_cast<std::size_t>(kEndReasons[i].reason) != i) return false;
    return true;
}
static_assert(endReasonsStandInOrder());
