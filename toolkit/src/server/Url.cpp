#include "server/Url.h"

#include "core/Limits.h"

#include <cstdint>

namespace Wt::Impl {

namespace {

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool isForbiddenInPath(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7f || c == '\\';
}

// Length of the UTF-8 sequence that begins here, 0 if it is none (overlong, surrogate,
// above U+10FFFF: RFC 3629).
std::size_t sequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xc2 && lead <= 0xdf   ? 2
                               : (lead & 0xf0) == 0xe0        ? 3
                               : lead >= 0xf0 && lead <= 0xf4 ? 4
                                                              : 0;
    if (length == 0 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xc0) != 0x80) return 0;
    if (lead == 0xe0 && byte(1) < 0xa0) return 0;
    if (lead == 0xed && byte(1) > 0x9f) return 0;
    if (lead == 0xf0 && byte(1) < 0x90) return 0;
    if (lead == 0xf4 && byte(1) > 0x8f) return 0;
    return length;
}

} // namespace

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::optional<std::string> percentDecode(std::string_view text, bool plusIsSpace) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '%') {
            if (i + 2 >= text.size()) return std::nullopt;
            const int high = hexValue(text[i + 1]);
            const int low = hexValue(text[i + 2]);
            if (high < 0 || low < 0) return std::nullopt;
            c = static_cast<char>(high * 16 + low);
            i += 2;
        } else if (c == '+' && plusIsSpace) {
            c = ' ';
        }
        if (c == '\0') return std::nullopt;
        out.push_back(c);
    }
    return out;
}

std::optional<std::string> normalPath(std::string_view target) {
    const auto decoded = percentDecode(target.substr(0, target.find('?')), false);
    if (!decoded || decoded->empty() || decoded->front() != '/' || !isUtf8(*decoded)) return std::nullopt;
    for (const char c : *decoded)
        if (isForbiddenInPath(c)) return std::nullopt;

    std::string path;
    std::string_view rest = *decoded;
    bool endsInSlash = true;
    while (!rest.empty()) {
        rest.remove_prefix(1); // the slash
        const std::string_view element = rest.substr(0, rest.find('/'));
        rest.remove_prefix(element.size());
        endsInSlash = element.empty() || element == "." || element == "..";
        if (element == "..") {
            if (path.empty()) return std::nullopt;
            path.erase(path.rfind('/'));
        } else if (!endsInSlash) {
            path.append("/").append(element);
        }
    }
    if (endsInSlash) path.push_back('/');
    return path;
}

std::optional<Parameters> parseParameters(std::string_view text) {
    Parameters parameters;
    std::size_t count = 0;
    while (!text.empty()) {
        const std::string_view field = text.substr(0, text.find('&'));
        text.remove_prefix(std::min(field.size() + 1, text.size()));
        if (field.empty()) continue;
        if (++count > kFormFields) return std::nullopt;
        const std::size_t equals = field.find('=');
        auto name = percentDecode(field.substr(0, equals), true);
        auto value =
            percentDecode(equals == field.npos ? std::string_view() : field.substr(equals + 1), true);
        if (!name || !value || !isUtf8(*name) || !isUtf8(*value)) return std::nullopt;
        parameters[std::move(*name)].push_back(std::move(*value));
    }
    return parameters;
}

} // namespace Wt::Impl
