#pragma once

#include <boost/json/object.hpp>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace Wt::Impl {

/// Members of an object or a list that a browser sent: whatever is missing (null),
/// of another type or out of range is the default.
inline int foreignInt(const boost::json::value* value, int otherwise = 0) {
    if (!value || !value->is_number()) return otherwise;
    constexpr double kRange = 1e9;
    double number = 0;
    if (value->is_double())
        number = value->get_double();
    else if (value->is_int64())
        number = static_cast<double>(value->get_int64());
    else
        number = static_cast<double>(value->get_uint64());
    if (!std::isfinite(number)) return otherwise;
    return static_cast<int>(std::clamp(number, -kRange, kRange));
}

inline int foreignInt(const boost::json::object& from, std::string_view name, int otherwise = 0) {
    return foreignInt(from.if_contains(name), otherwise);
}

inline std::string_view foreignText(const boost::json::object& from, std::string_view name) {
    const boost::json::value* value = from.if_contains(name);
    return value && value->is_string() ? std::string_view(value->get_string()) : std::string_view();
}

} // namespace Wt::Impl
