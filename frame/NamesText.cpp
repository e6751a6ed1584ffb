#include "frame/NamesText.h"

#include <algorithm>
#include <map>

namespace {

constexpr std::size_t kMaxNames = 3;

std::string statesText(const std::vector<HitRecord>& records) {
    std::map<std::string, std::size_t> counts;
    for (const HitRecord& record : records)
        if (!record.state.empty()) ++counts[record.state];
    std::vector<std::pair<std::string, std::size_t>> states(counts.begin(), counts.end());
    std::stable_sort(states.begin(), states.end(),
                     [](const auto& one, const auto& other) { return one.second > other.second; });
    std::string text;
    for (const auto& [state, count] : states)
        text += (text.empty() ? "" : ", ") + state + ": " + std::to_string(count);
    return text;
}

} // namespace

Wt::WString namesText(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size() && i < kMaxNames; ++i) text += (i == 0 ? "" : ", ") + names[i];
    const Wt::WString shown = Wt::WString::fromUTF8(text);
    if (names.size() <= kMaxNames) return shown;
    return Wt::WString::tr("result.and_more").arg(shown).arg(static_cast<int>(names.size() - kMaxNames));
}

Wt::WString hitText(const std::vector<HitRecord>& records, const char* counted) {
    if (records.empty()) return {};
    if (records.size() == 1) {
        const HitRecord& only = records.front();
        return Wt::WString::fromUTF8(only.state.empty() ? only.name : only.name + ": " + only.state);
    }
    std::vector<std::string> names;
    for (const HitRecord& record : records) names.push_back(record.name);
    const std::string states = statesText(records);
    return Wt::WString::fromUTF8(Wt::WString::tr(counted).arg(std::to_string(records.size())).toUTF8() +
                                 ": " + namesText(names).toUTF8() + (states.empty() ? "" : "\n" + states));
}
