#include "platform/client/Base64.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace zeq {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::int8_t kInvalid = -1;

constexpr auto kValues = [] {
    std::array<std::int8_t, 256> values{};
    values.fill(kInvalid);
    for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
        values[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::int8_t>(i);
    }
    return values;
}();

std::int8_t valueOf(char c) {
    return kValues[static_cast<unsigned char>(c)];
}

} // namespace

std::string base64Encode(std::span<const unsigned char> bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i) group = group << 8 | (i < count ? bytes[at + i] : 0u);
        for (std::size_t i = 0; i < 4; ++i) {
            text += i <= count ? kAlphabet[group >> (18 - 6 * i) & 63] : '=';
        }
    }
    return text;
}

std::size_t base64Decode(std::string_view text, std::span<unsigned char> out) {
    if (text.size() % 4 != 0) return 0;
    const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with("=") ? 1 : 0;
    const std::string_view digits = text.substr(0, text.size() - padding);
    if (std::any_of(digits.begin(), digits.end(), [](char c) { return valueOf(c) == kInvalid; })) return 0;
    const std::size_t size = std::min(text.size() / 4 * 3 - padding, out.size());
    std::uint32_t bits = 0;
    std::size_t stored = 0;
    for (std::size_t at = 0, held = 0; at < digits.size() && stored < size; ++at) {
        bits = bits << 6 | static_cast<std::uint32_t>(valueOf(digits[at]));
        held += 6;
        if (held < 8) continue;
        held -= 8;
        out[stored++] = static_cast<unsigned char>(bits >> held);
    }
    return stored;
}

} // namespace zeq
