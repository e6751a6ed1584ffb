// EDID blocks (VESA E-EDID 1.4).
#pragma once

#include <string>
#include <string_view>

namespace zeqd {

constexpr std::size_t kEdidBlock = 128;  ///< bytes of a block
constexpr std::size_t kEdidRecord = 256; ///< bytes kept of a monitor: base block and one extension, or zeros

/// One or two blocks with a right header and right checksums. A second block of zeros alone is padding.
bool isSoundEdid(std::string_view data);

} // namespace zeqd
