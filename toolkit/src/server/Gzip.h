#pragma once

#include <string>
#include <string_view>

namespace Wt::Impl {

/// RFC 1952. Empty if it fails. Level 1 to 9.
std::string gzip(std::string_view content, int level);

/// The inverse, for content of ours. Empty if it fails or exceeds `limit` bytes.
std::string gunzip(std::string_view packed, std::size_t limit);

} // namespace Wt::Impl
