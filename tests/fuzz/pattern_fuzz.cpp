// A filter of a list is an expression that a user types: the first line is compiled, the rest matched.
#include "toolkit/src/validators/Pattern.h"

#include <cstdint>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t line = input.find('\n');
    const std::string expression(input.substr(0, line));
    const std::string_view text =
        line == std::string_view::npos ? std::string_view() : input.substr(line + 1);
    for (const bool ignoreCase : {false, true}) {
        const Wt::Impl::Pattern pattern(expression, ignoreCase);
        const auto found = pattern.matchesAll(text);
        if (!pattern.valid() && found == Wt::Impl::Pattern::Match::Yes) __builtin_trap();
    }
    return 0;
}
