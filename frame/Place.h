#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Parts of the interface's address: "/PAGE/RECORD,RECORD/TAB". A page without records has its tab in second place.
namespace Place {

/// Word for a text of the interface: "[RSnnn]IPv4 Settings" gives "ipv4-settings".
std::string word(std::string_view messageKey);

/// One part of names; what separates parts and names is escaped in them.
std::string list(const std::vector<std::string>& names);
std::vector<std::string> names(std::string_view list);
/// The same part whatever the order of its names was.
std::string inOrder(std::string_view list);

/// Splits at the first slash: "/a/b/c" gives "a", and leaves "/b/c". Empty at the end.
std::string_view takePart(std::string_view& path);

} // namespace Place
