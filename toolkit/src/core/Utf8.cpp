#include "core/Utf8.h"

namespace Wt::Impl {

namespace {
bool continues(std::string_view text, unsigned at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}
} // namespace

// Table 3-7 of the Unicode Standard: well-formed byte sequences.
unsigned utf8Length(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80) return 1;
    if (first < 0xC2 || first > 0xF4) return 0;
    if (!continues(text, 1)) return 0;
    if (first < 0xE0) return 2;
    const auto second = static_cast<unsigned char>(text[1]);
    if (!continues(text, 2)) return 0;
    if (first < 0xF0) {
        if (first == 0xE0 && second < 0xA0) return 0;
        if (first == 0xED && second > 0x9F) return 0;
        return 3;
    }
    if (!continues(text, 3)) return 0;
    if (first == 0xF0 && second < 0x90) return 0;
    if (first == 0xF4 && second > 0x8F) return 0;
    return 4;
}

bool isValidUtf8(std::string_view text) {
    while (!text.empty()) {
        const unsigned length = utf8Length(text);
        if (!length) return false;
        text.remove_prefix(length);
    }
    return true;
}

void appendValidUtf8(std::string& out, std::string_view text) {
    while (!text.empty()) {
        const unsigned length = utf8Length(text);
        if (length)
            out.append(text.substr(0, length));
        else
            out += "\xEF\xBF\xBD";
        text.remove_prefix(length ? length : 1);
    }
}

void appendCodePoint(std::string& out, char32_t code) {
    if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) code = 0xFFFD;
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

} // namespace Wt::Impl
