#pragma once

#include <cstdint>
#include <string_view>

namespace Wt::Impl {

/// Numbers for the names of attributes, properties and styles, the same in the whole process. Names come from
/// code, never from a browser. At most kMaxNames, which an application does not reach that names its
/// attributes after rows of a database; more throw std::length_error.
constexpr std::uint32_t kMaxNames = (1U << 20) - 1;
std::uint32_t nameNumber(std::string_view name);
std::string_view numberName(std::uint32_t number);

} // namespace Wt::Impl
