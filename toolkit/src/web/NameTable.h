#pragma once

#include <cstdint>
#include <string_view>

namespace Wt::Impl {

/// Numbers for the names of attributes, properties and styles, the same in the whole process. Names come from
/// code, never from a browser. At most kMaxNames; more throw std::length_error.
constexpr std::uint16_t kMaxNames = 4095;
std::uint16_t nameNumber(std::string_view name);
std::string_view numberName(std::uint16_t number);

} // namespace Wt::Impl
