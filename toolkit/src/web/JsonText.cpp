#include "web/JsonText.h"

#include "core/Utf8.h"

#include <charconv>
#include <cmath>

namespace Wt::Impl {

void appendJson(std::string& out, std::string_view text) {
    static constexpr char kHex[] = "0123456789abcdef";
    out += '"';
    std::size_t plain = 0; // start of what can be copied as it stands
    for (std::size_t i = 0; i < text.size();) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c >= 0x20 && c < 0x80 && c != '"' && c != '\\') {
            ++i;
            continue;
        }
        const unsigned length = c < 0x80 ? 1 : utf8Length(text.substr(i));
        if (length > 1) {
            i += length;
            continue;
        }
        out.append(text, plain, i - plain);
        if (length == 0) {
            out += "\xEF\xBF\xBD";
        } else if (c == '"' || c == '\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c == '\n') {
            out += "\\n";
        } else {
            out += "\\u00";
            out += kHex[c >> 4];
            out += kHex[c & 0xF];
        }
        plain = ++i;
    }
    out.append(text, plain, text.size() - plain);
    out += '"';
}

void appendJson(std::string& out, long long number) {
    char text[24];
    out.append(text, std::to_chars(text, text + sizeof text, number).ptr);
}

void appendJson(std::string& out, double number) {
    if (!std::isfinite(number)) number = 0;
    char text[40];
    out.append(text, std::to_chars(text, text + sizeof text, number).ptr);
}

std::string jsonText(std::string_view text) {
    std::string out;
    appendJson(out, text);
    return out;
}

} // namespace Wt::Impl
