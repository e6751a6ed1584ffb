#include "frame/Place.h"

#include <algorithm>
#include <cctype>

namespace Place {

namespace {

constexpr std::string_view kMarker = "[RSnnn]";
constexpr std::string_view kEscaped = "%,/~";
constexpr char kHex[] = "0123456789ABCDEF";

int hexValue(char c) {
    const std::size_t at = std::string_view(kHex).find(c);
    return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

} // namespace

std::string word(std::string_view messageKey) {
    if (messageKey.starts_with(kMarker)) messageKey.remove_prefix(kMarker.size());
    std::string made;
    for (const char c : messageKey) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte))
            made += static_cast<char>(std::tolower(byte));
        else if (!made.empty() && made.back() != '-')
            made += '-';
    }
    return made;
}

std::string list(const std::vector<std::string>& names) {
    std::string made;
    for (const std::string& name : names) {
        if (!made.empty()) made += ',';
        for (const char c : name) {
            if (kEscaped.find(c) == std::string_view::npos)
                made += c;
            else
                made += {'%', kHex[static_cast<unsigned char>(c) >> 4], kHex[c & 15]};
        }
    }
    return made;
}

std::vector<std::string> names(std::string_view list) {
    std::vector<std::string> found;
    if (list.empty()) return found;
    found.emplace_back();
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (list[i] == ',') {
            found.emplace_back();
        } else if (list[i] == '%' && i + 2 < list.size() && hexValue(list[i + 1]) >= 0 &&
                   hexValue(list[i + 2]) >= 0) {
            found.back() += static_cast<char>(hexValue(list[i + 1]) * 16 + hexValue(list[i + 2]));
            i += 2;
        } else {
            found.back() += list[i];
        }
    }
    return found;
}

std::string inOrder(std::string_view list) {
    std::vector<std::string> ordered = Place::names(list);
    std::sort(ordered.begin(), ordered.end());
    return Place::list(ordered);
}

std::string_view takePart(std::string_view& path) {
    if (path.starts_with('/')) path.remove_prefix(1);
    const std::string_view part = path.substr(0, path.find('/'));
    path.remove_prefix(part.size());
    return part;
}

} // namespace Place
