#include "web/NameTable.h"

#include <deque>
#include <mutex>
#include <shared_mutex>
#include <stdexcept>
#include <string>
#include <unordered_map>

namespace Wt::Impl {

namespace {
struct Names {
    std::shared_mutex mutex;
    std::deque<std::string> texts; // addresses stay
    std::unordered_map<std::string_view, std::uint32_t> numbers;
};

Names& names() {
    static Names table;
    return table;
}
} // namespace

std::uint32_t nameNumber(std::string_view name) {
    Names& table = names();
    {
        const std::shared_lock lock(table.mutex);
        const auto found = table.numbers.find(name);
        if (found != table.numbers.end()) return found->second;
    }
    const std::unique_lock lock(table.mutex);
    const auto found = table.numbers.find(name);
    if (found != table.numbers.end()) return found->second;
    if (table.texts.size() >= kMaxNames) throw std::length_error("too many names of attributes and styles");
    const auto number = static_cast<std::uint32_t>(table.texts.size());
    table.texts.emplace_back(name);
    table.numbers.emplace(table.texts.back(), number);
    return number;
}

std::string_view numberName(std::uint32_t number) {
    Names& table = names();
    const std::shared_lock lock(table.mutex);
    return table.texts.at(number);
}

} // namespace Wt::Impl
