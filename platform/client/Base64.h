// Base64 with padding (RFC 4648, section 4).
#ifndef PLATFORM_CLIENT_BASE64_H
#define PLATFORM_CLIENT_BASE64_H

#include <span>
#include <string>
#include <string_view>

namespace zeq {

std::string base64Encode(std::span<const unsigned char> bytes);

/// Decodes as much as fits into `out` and returns the number of bytes stored. Text that is not well formed as
/// a whole gives 0 bytes and leaves `out` as it was.
std::size_t base64Decode(std::string_view text, std::span<unsigned char> out);

} // namespace zeq

#endif
