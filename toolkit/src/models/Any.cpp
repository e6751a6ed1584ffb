#include "models/Any.h"

#include <Wt/WBoostAny.h>

#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>

namespace Wt {

namespace {

/// The value as a number of either kind, if it is one of type T.
template <typename T>
bool take(const boost::any& value, std::optional<double>& number, std::string& text) {
    const T* held = boost::any_cast<T>(&value);
    if (!held) return false;
    number = static_cast<double>(*held);
    if constexpr (std::is_same_v<T, bool>)
        text = *held ? "true" : "false";
    else if constexpr (std::is_floating_point_v<T>) {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.*g", std::is_same_v<T, float> ? 6 : 12,
                      static_cast<double>(*held));
        text = digits;
    } else
        text = std::to_string(*held);
    return true;
}

template <typename... T>
bool takeAny(const boost::any& value, std::optional<double>& number, std::string& text) {
    return (take<T>(value, number, text) || ...);
}

/// Numbers give both; texts only `text`.
void read(const boost::any& value, std::optional<double>& number, std::string& text) {
    if (value.empty()) return;
    if (const auto* s = boost::any_cast<std::string>(&value)) {
        text = *s;
        return;
    }
    if (const auto* w = boost::any_cast<WString>(&value)) {
        text = w->toUTF8();
        return;
    }
    if (takeAny<int, unsigned, bool, double, long, unsigned long, long long, unsigned long long, float, short,
                unsigned short>(value, number, text))
        return;
    if (const auto* c = boost::any_cast<const char*>(&value))
        text = *c ? *c : "";
    else if (const auto* m = boost::any_cast<char*>(&value))
        text = *m ? *m : "";
}

template <typename T>
bool sameAs(const boost::any& a, const boost::any& b) {
    const T* left = boost::any_cast<T>(&a);
    const T* right = boost::any_cast<T>(&b);
    return left && right && *left == *right;
}

} // namespace

WString asString(const boost::any& value, const WString& format) {
    std::optional<double> number;
    std::string text;
    read(value, number, text);
    if (!number || format.empty()) return WString::fromUTF8(text);
    // The format is the program's own, for one number; only its last letter decides how the number is passed.
    const std::string pattern = format.toUTF8();
    const std::size_t at = pattern.find_first_of("diouxXeEfFgG", pattern.find('%'));
    char buffer[128];
    std::string bounded = pattern;
    if (at == std::string::npos) return WString::fromUTF8(text);
    const bool whole = std::string_view("diouxX").find(pattern[at]) != std::string_view::npos;
    if (whole) {
        bounded = pattern.substr(0, pattern.find('%')) + '%';
        for (char c : std::string_view(pattern).substr(pattern.find('%') + 1, at - pattern.find('%') - 1))
            if (c != 'l' && c != 'h') bounded += c;
        bounded += "ll";
        bounded += pattern.substr(at);
    }
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    if (whole)
        std::snprintf(buffer, sizeof buffer, bounded.c_str(), static_cast<long long>(*number));
    else
        std::snprintf(buffer, sizeof buffer, bounded.c_str(), *number);
#pragma GCC diagnostic pop
    return WString::fromUTF8(buffer);
}

double asNumber(const boost::any& value) {
    std::optional<double> number;
    std::string text;
    read(value, number, text);
    if (number) return *number;
    char* end = nullptr;
    const double parsed = std::strtod(text.c_str(), &end);
    if (text.empty() || *end) return std::numeric_limits<double>::quiet_NaN();
    return parsed;
}

namespace Impl {

bool sameValue(const boost::any& a, const boost::any& b) {
    if (a.empty() || b.empty()) return a.empty() && b.empty();
    return sameAs<std::string>(a, b) || sameAs<unsigned>(a, b) || sameAs<int>(a, b) || sameAs<bool>(a, b) ||
           sameAs<double>(a, b) || sameAs<WString>(a, b);
}

bool valueLess(const boost::any& a, const boost::any& b) {
    if (a.empty() || b.empty()) return a.empty() && !b.empty();
    std::optional<double> left, right;
    std::string leftText, rightText;
    read(a, left, leftText);
    read(b, right, rightText);
    if (left && right) return *left < *right;
    if (left || right) return left.has_value();
    return leftText < rightText;
}

} // namespace Impl
} // namespace Wt
