#pragma once

#include <string>
#include <string_view>

namespace Wt::Impl {

/// Appends `text` with every byte that is no part of valid UTF-8 replaced by U+FFFD.
void appendValidUtf8(std::string& out, std::string_view text);
bool isValidUtf8(std::string_view text);
/// Length in bytes of the valid sequence at `text[0]`, 0 if it is invalid. `text` is not empty.
unsigned utf8Length(std::string_view text);
void appendCodePoint(std::string& out, char32_t code);

} // namespace Wt::Impl
