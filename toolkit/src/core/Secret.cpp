#include "core/Secret.h"

#include <openssl/crypto.h>
#include <openssl/rand.h>
#include <openssl/sha.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace Wt::Impl {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
constexpr std::size_t kSecretChars = 43;

} // namespace

std::string randomText(std::size_t bytes) {
    std::vector<unsigned char> random(bytes);
    if (RAND_bytes(random.data(), static_cast<int>(bytes)) != 1)
        throw std::runtime_error("the system's random generator failed");
    std::string text;
    unsigned bits = 0;
    int count = 0;
    for (const unsigned char byte : random) {
        bits = (bits << 8 | byte) & 0xffff;
        count += 8;
        for (; count >= 6; count -= 6) text.push_back(kAlphabet[bits >> (count - 6) & 63]);
    }
    if (count > 0) text.push_back(kAlphabet[bits << (6 - count) & 63]);
    return text;
}

Digest digestOf(std::string_view text) {
    Digest digest;
    SHA256(reinterpret_cast<const unsigned char*>(text.data()), text.size(), digest.data());
    return digest;
}

bool sameDigest(const Digest& a, const Digest& b) {
    return CRYPTO_memcmp(a.data(), b.data(), a.size()) == 0;
}

bool looksLikeSecret(std::string_view text) {
    return text.size() == kSecretChars &&
           std::all_of(text.begin(), text.end(), [](char c) { return kAlphabet.find(c) != kAlphabet.npos; });
}

std::size_t DigestHash::operator()(const Digest& digest) const noexcept {
    std::size_t hash = 0;
    std::memcpy(&hash, digest.data(), sizeof hash);
    return hash;
}

} // namespace Wt::Impl
