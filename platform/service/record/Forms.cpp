#include "platform/service/record/Forms.h"

#include <algorithm>
#include <arpa/inet.h>
#include <string>

namespace zeqd {

namespace {

bool digit(char c) {
    return c >= '0' && c <= '9';
}
bool letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool alphaNumeric(char c) {
    return digit(c) || letter(c);
}
bool hexDigit(char c) {
    return digit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
bool printable(char c) {
    return c >= ' ' && c <= '~';
}

template <typename Test>
bool all(std::string_view text, Test test) {
    return std::all_of(text.begin(), text.end(), test);
}

/// Four groups of one to three digits up to 255. Leading zeros count as decimal.
bool ipV4(std::string_view text) {
    int groups = 0;
    while (true) {
        const std::size_t dot = text.find('.');
        const std::string_view group = text.substr(0, dot);
        if (group.empty() || group.size() > 3 || !all(group, digit)) return false;
        int value = 0;
        for (const char c : group) value = value * 10 + (c - '0');
        if (value > 255) return false;
        ++groups;
        if (dot == std::string_view::npos) return groups == 4;
        text.remove_prefix(dot + 1);
    }
}

bool ipV6(std::string_view text) {
    in6_addr address;
    return inet_pton(AF_INET6, std::string(text).c_str(), &address) == 1;
}

/// At least two labels; those before the last have 2 to 63 letters, digits and inner hyphens, the last begins
/// with a letter.
bool hostName(std::string_view text) {
    bool first = true;
    while (true) {
        const std::size_t dot = text.find('.');
        const std::string_view label = text.substr(0, dot);
        const bool last = dot == std::string_view::npos;
        if (label.size() < (last ? 1U : 2U) || label.size() > 63) return false;
        if (!all(label, [](char c) { return alphaNumeric(c) || c == '-'; })) return false;
        if (!alphaNumeric(label.front()) || !alphaNumeric(label.back())) return false;
        if (last) return !first && letter(label.front());
        first = false;
        text.remove_prefix(dot + 1);
    }
}

bool mac(std::string_view text) {
    if (text.size() != 17 && text.size() != 23) return false;
    const char separator = text[2];
    if (separator != ':' && separator != '-') return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (i % 3 == 2 ? text[i] != separator : !hexDigit(text[i])) return false;
    return true;
}

bool eid(std::string_view text) {
    return text.size() == 13 && text[6] == '-' && all(text.substr(0, 6), alphaNumeric) &&
           all(text.substr(7), alphaNumeric);
}

bool url(std::string_view text) {
    for (const std::string_view scheme : {"http://", "https://"})
        if (text.starts_with(scheme)) return text.size() > scheme.size() && all(text, printable);
    return false;
}

} // namespace

bool hasForm(Form form, std::string_view text) {
    if (text.empty()) return true;
    switch (form) {
    case Form::Any:
        return true;
    case Form::Printable:
        return all(text, printable);
    case Form::PrintableLines:
        return all(text, [](char c) { return printable(c) || c == '\n'; });
    case Form::NoBlank:
        return all(text, [](char c) { return printable(c) && c != ' '; });
    case Form::AlphaNumeric:
        return all(text, alphaNumeric);
    case Form::Eid:
        return eid(text);
    case Form::IpV4:
        return ipV4(text);
    case Form::IpV6:
        return ipV6(text);
    case Form::Ip:
        return ipV4(text) || ipV6(text);
    case Form::Host:
        return ipV4(text) || ipV6(text) || hostName(text);
    case Form::Mac:
        return mac(text);
    case Form::Url:
        return url(text);
    }
    return false;
}

std::string_view formText(Form form) {
    switch (form) {
    case Form::Any:
        return "any text";
    case Form::Printable:
        return "printable characters";
    case Form::PrintableLines:
        return "printable characters and newlines";
    case Form::NoBlank:
        return "printable characters without blanks";
    case Form::AlphaNumeric:
        return "letters and digits";
    case Form::Eid:
        return "an EID such as 00A1B2-C3D4E5";
    case Form::IpV4:
        return "an IPv4 address";
    case Form::IpV6:
        return "an IPv6 address";
    case Form::Ip:
        return "an IPv4 or IPv6 address";
    case Form::Host:
        return "an address or a host name with a domain";
    case Form::Mac:
        return "six or eight pairs of hexadecimal digits";
    case Form::Url:
        return "an http or https address";
    }
    return {};
}

} // namespace zeqd
