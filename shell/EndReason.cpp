#include "shell/EndReason.h"

#include <cstddef>
#include <iterator>

namespace {

struct Row {
    EndReason reason;
    const char* word;
    const char* text;
};

constexpr Row kRows[] = {
    {EndReason::Inactivity, "idle", "[RSnnn]You were logged out because nothing was done for some time."},
    {EndReason::LoggedOutElsewhere, "elsewhere", "[RSnnn]Your login was ended from another place."},
    {EndReason::AccountChanged, "account",
     "[RSnnn]You were logged out because your account or its password has been changed."},
    {EndReason::SwitchRestarted, "restarted", "[RSnnn]You were logged out because the Switch has restarted."},
    {EndReason::ManagedModeChanged, "mode",
     "[RSnnn]You were logged out because the management of this Switch has changed."},
};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < std::size(kRows); ++i)
        if (kRows[i].reason != EndReason(i)) return false;
    return kRows[std::size(kRows) - 1].reason == EndReason::ManagedModeChanged;
}
static_assert(inOrder());

} // namespace

std::string EndReason_address(EndReason reason, const std::string& place) {
    const std::string word = kRows[static_cast<std::size_t>(reason)].word;
    const std::size_t query = place.find('?');
    return std::string("/?") + kEndReasonParameter + "=" + word +
           (query == std::string::npos ? "" : "&" + place.substr(query + 1));
}

Wt::WString EndReason_text(const std::string& word) {
    for (const Row& row : kRows)
        if (word == row.word) return Wt::WString::tr(row.text);
    return {};
}
