#include "db/MirlUtil.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr unsigned kMinute = 60;
constexpr unsigned kHour = 60 * kMinute;
constexpr unsigned kDay = 24 * kHour;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// An optional "-", then digits and nothing else.
bool isWholeNumber(const char* text) {
    if (*text == '-') ++text;
    return isDigit(*text) && text[std::strspn(text, "0123456789")] == '\0';
}

bool parseNumber(const char* text, long& value) {
    if (!isWholeNumber(text)) return false;
    errno = 0;
    value = std::strtol(text, nullptr, 10);
    return !(errno == ERANGE && (value == LONG_MAX || value == LONG_MIN));
}

} // namespace

std::string MirlUtil_secsToFormattedTimeString(unsigned seconds) {
    const unsigned days = seconds / kDay;
    const unsigned hours = seconds % kDay / kHour;
    const unsigned minutes = seconds % kHour / kMinute;
    const unsigned rest = seconds % kMinute;
    char text[32];
    if (days != 0)
        std::snprintf(text, sizeof text, "%u:%02u:%02u:%02u", days, hours, minutes, rest);
    else if (hours != 0)
        std::snprintf(text, sizeof text, "%u:%02u:%02u", hours, minutes, rest);
    else
        std::snprintf(text, sizeof text, "%u:%02u", minutes, rest);
    return text;
}

void MirlUtil_toLowercase(char* text) {
    for (; *text; ++text)
        if (*text >= 'A' && *text <= 'Z') *text = static_cast<char>(*text - 'A' + 'a');
}

void MirlUtil_concatErrMsgs(std::string& text, const std::vector<std::string>& errors) {
    for (const std::string& error : errors) text += "\n" + error;
}

bool MirlUtil_lessThan(const std::string& a, const std::string& b) {
    const char* ta = a.c_str();
    const char* tb = b.c_str();
    // A first digit in common stops the walk, so that the tails are compared as whole numbers or not at all.
    while (*ta != '\0' && *ta == *tb && !isDigit(*ta)) {
        ++ta;
        ++tb;
    }
    long na = 0;
    long nb = 0;
    if (parseNumber(ta, na) && parseNumber(tb, nb)) return na < nb;
    return std::strcmp(ta, tb) < 0;
}

void MirlUtil_sort(std::vector<std::string>& texts) {
    // Merges of runs that double in length. No step relies on what an earlier comparison said.
    const std::size_t count = texts.size();
    std::vector<std::string> merged(count);
    for (std::size_t run = 1; run < count; run *= 2) {
        for (std::size_t left = 0, to = 0; to < count;) {
            const std::size_t middle = std::min(left + run, count);
            const std::size_t end = std::min(middle + run, count);
            std::size_t right = middle;
            for (std::size_t next = left; to < end;) {
                const bool takeRight =
                    right < end && (next == middle || MirlUtil_lessThan(texts[right], texts[next]));
                merged[to++] = std::move(texts[takeRight ? right++ : next++]);
            }
            left = end;
        }
        texts.swap(merged);
    }
}
