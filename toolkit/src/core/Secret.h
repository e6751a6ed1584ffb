#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace Wt::Impl {

/// SHA-256 of a secret. The server keeps and looks up digests, so neither its memory's order nor the time of
/// a look-up tells anything about a secret.
using Digest = std::array<unsigned char, 32>;

/// `bytes` random bytes of the system's generator, as base64url without padding (32 bytes = 43 characters).
/// Throws std::runtime_error if the generator fails.
std::string randomText(std::size_t bytes);

Digest digestOf(std::string_view text);

/// In constant time.
bool sameDigest(const Digest& a, const Digest& b);

/// Whether the text could be one of randomText(32).
bool looksLikeSecret(std::string_view text);

struct DigestHash {
    std::size_t operator()(const Digest& digest) const noexcept;
};

} // namespace Wt::Impl
