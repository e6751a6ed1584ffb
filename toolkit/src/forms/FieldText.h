#pragma once

#include <Wt/WString.h>

#include <boost/json/value.hpp>

#include <string>
#include <string_view>

namespace Wt::Impl {

/// Bytes of a text that a browser may send for one field.
constexpr std::size_t kMaxFieldBytes = 32U << 10;

/// Line ends as "\n"; in a field of one line there are none.
std::string normalizeLines(std::string_view text, bool oneLine);

/// The first `characters` code points; -1: all.
std::string cutTo(std::string text, int characters);

} // namespace Wt::Impl
