#include "server/HttpRequest.h"

#include <algorithm>
#include <cctype>

namespace Wt::Impl {

namespace {

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

bool equalsLower(std::string_view text, std::string_view lower) {
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(),
                      [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == b; });
}

bool isRefusedByWeight(std::string_view parameters) {
    const std::size_t q = parameters.find("q=");
    if (q == parameters.npos) return false;
    return parameters.substr(q + 2).find_first_of("123456789") == parameters.npos;
}

// Takes the next element off a list.
std::string_view takeElement(std::string_view& list, char separator) {
    const std::string_view element = list.substr(0, list.find(separator));
    list.remove_prefix(std::min(element.size() + 1, list.size()));
    return trimmed(element);
}

} // namespace

std::string_view HttpRequest::header(std::string_view lowerName) const {
    for (const auto& [name, value] : headers)
        if (name == lowerName) return value;
    return {};
}

std::string_view HttpRequest::cookie(std::string_view name) const {
    return findCookie(header("cookie"), name);
}

std::string_view HttpRequest::query() const {
    const std::size_t mark = target.find('?');
    return mark == target.npos ? std::string_view() : std::string_view(target).substr(mark + 1);
}

bool HttpRequest::headerHasToken(std::string_view lowerName, std::string_view lowerToken) const {
    for (const auto& [name, value] : headers) {
        if (name != lowerName) continue;
        std::string_view list = value;
        while (!list.empty()) {
            std::string_view element = takeElement(list, ',');
            const std::string_view token = takeElement(element, ';');
            if (equalsLower(token, lowerToken)) return !isRefusedByWeight(element);
        }
    }
    return false;
}

std::string_view findCookie(std::string_view cookieHeader, std::string_view name) {
    std::string_view found;
    bool seen = false;
    while (!cookieHeader.empty()) {
        const std::string_view pair = takeElement(cookieHeader, ';');
        const std::size_t equals = pair.find('=');
        if (equals == pair.npos || trimmed(pair.substr(0, equals)) != name) continue;
        if (seen) return {};
        seen = true;
        found = trimmed(pair.substr(equals + 1));
    }
    return found;
}

} // namespace Wt::Impl
