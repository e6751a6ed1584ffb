#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Wt::Impl {

/// Nesting of elements, and bytes of the text, that are filtered; beyond them the text is no XHTML to us.
constexpr unsigned kMaxXhtmlDepth = 64;
constexpr std::size_t kMaxXhtmlBytes = 1U << 20;

/// Filters XHTML by an allow-list of elements and attributes and gives it as a body for ElementSpec: a JSON
/// array of strings and ["tag",{attributes},contents...]. What is not allowed is left out, with its contents
/// where they could be code (script, style, ...), else without. Nothing if `text` is not well-formed.
std::optional<std::string> filterXhtml(std::string_view text);

/// The text alone; as it stands if it is not well-formed.
std::string xhtmlToPlain(std::string_view text);

/// True if it reads the same as XHTML and as plain text.
bool isPlain(std::string_view text);

/// Link targets that may stand in a page: relative ones, http, https and mailto.
bool isHarmlessUrl(std::string_view url);

} // namespace Wt::Impl
