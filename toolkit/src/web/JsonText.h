#pragma once

#include <string>
#include <string_view>

namespace Wt::Impl {

/// Appends `text` as a JSON string, quotes included. Bytes that are no UTF-8 become U+FFFD.
void appendJson(std::string& out, std::string_view text);
void appendJson(std::string& out, long long number);
/// Whole numbers without a point; what is no finite number as 0.
void appendJson(std::string& out, double number);
std::string jsonText(std::string_view text);

} // namespace Wt::Impl
