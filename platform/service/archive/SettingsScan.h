// Walking over a large JSON text without making a tree of it: a tree takes some thirty times the text's room.
#pragma once

#include <functional>
#include <string_view>

namespace zeqd {

/// Calls for each member of the object; keys are as they stand in the text, escapes included. False when the text
/// is no object, or as soon as the function answers false. The values themselves are not checked.
bool eachMember(std::string_view object,
                const std::function<bool(std::string_view key, std::string_view value)>& visit);

/// The same for the items of an array.
bool eachItem(std::string_view array, const std::function<bool(std::string_view item)>& visit);

/// An upper bound of the values in the text.
std::size_t countValues(std::string_view text);

} // namespace zeqd
