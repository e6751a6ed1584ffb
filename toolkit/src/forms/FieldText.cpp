#include "forms/FieldText.h"

#include "core/Utf8.h"

namespace Wt::Impl {

std::string normalizeLines(std::string_view text, bool oneLine) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\0') continue;
        if (c == '\r' || c == '\n') {
            if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
            if (!oneLine) out += '\n';
            continue;
        }
        out += c;
    }
    return out;
}

std::string cutTo(std::string text, int characters) {
    if (characters < 0) return text;
    std::size_t end = 0;
    for (int left = characters; left > 0 && end < text.size(); --left) {
        const unsigned length = utf8Length(std::string_view(text).substr(end));
        end += length ? length : 1;
    }
    text.resize(end);
    return text;
}

} // namespace Wt::Impl
