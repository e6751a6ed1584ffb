// The catalogue in words.
#pragma once

#include "platform/service/catalogue/ResourceRow.h"

#include <string>

namespace zeqd {

/// Appends one JSON row for the resource and one per key, nested ones by their path, with commas between
/// them; `first`: nothing has been appended yet. Answers whether that still holds.
bool appendDescription(std::string& out, const ResourceRow& row, bool first);

/// The page docs/resources.md.
std::string resourcesPage();

} // namespace zeqd
