#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Wt::Impl {

using Parameters = std::map<std::string, std::vector<std::string>>;

/// Decodes %XX; '+' too if `plusIsSpace`. Nothing for a broken escape or a NUL.
std::optional<std::string> percentDecode(std::string_view text, bool plusIsSpace);

/// The path of a request target, decoded, without empty and "." elements, ".." resolved.
/// A trailing slash stays. Nothing if it does not begin with '/', climbs above the root,
/// or holds a control character, a backslash or something that is not UTF-8.
/// Decoding comes first, so an escaped slash or dot is as good as a plain one.
std::optional<std::string> normalPath(std::string_view target);

/// `a=1&b=2&a=3`, decoded. Nothing for a broken escape or more than kFormFields fields.
std::optional<Parameters> parseParameters(std::string_view text);

bool isUtf8(std::string_view text);

} // namespace Wt::Impl
