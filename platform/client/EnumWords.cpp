#include "platform/client/EnumWords.h"

#include <cstring>

namespace zeq {

namespace {

constexpr const char* kAccessModeWords[] = {"share_mode", "private_mode", "share_or_private_mode"};
constexpr const char* kUserRoleWords[] = {"user", "admin"};
constexpr const char* kSwxModeWords[] = {"master", "slave"};
constexpr const char* kSwxStatusWords[] = {
    "offline",     "dc_connected", "conflict_is_master", "conflict_other_master",
    "isc_failure", "ready",        "resetting"};
constexpr const char* kSwxUsageWords[] = {"usable", "exceeds_unmanaged_capacity", "maintenance"};
constexpr const char* kEnabledWords[] = {"disabled", "enabled"};

} // namespace

// On purpose: an access mode nobody knows yet counts as the widest, where other words count as the first.
const EnumWords kAccessMode{kAccessModeWords, 3};
const EnumWords kUserRole{kUserRoleWords};
const EnumWords kSwxMode{kSwxModeWords};
const EnumWords kSwxStatus{kSwxStatusWords};
const EnumWords kSwxUsage{kSwxUsageWords};
const EnumWords kEnabled{kEnabledWords};

int enumNumber(const EnumWords& words, const char* word) {
    if (!word) return 0;
    for (std::size_t i = 0; i < words.words.size(); ++i) {
        if (std::strcmp(words.words[i], word) == 0) return static_cast<int>(i) + 1;
    }
    return words.unlisted;
}

const char* enumWord(const EnumWords& words, int number) {
    const auto count = static_cast<int>(words.words.size());
    return number >= 1 && number <= count ? words.words[static_cast<std::size_t>(number) - 1] : nullptr;
}

} // namespace zeq
