// The resource table and its look-ups.
#pragma once

#include "platform/service/catalogue/ResourceRow.h"

namespace zeqd {

/// All resources, in the order of Res.
std::span<const ResourceRow> catalogue();
const ResourceRow& resource(Res id);

/// 0 when there is none of that name. Exact spelling.
const ResourceRow* findResource(std::string_view name);

/// Place of a key among the rows, or -1.
int findKey(std::span<const KeyRow> rows, std::string_view key);

/// Place of a value in its list, or -1.
int findValue(const ValueList& list, std::string_view value);

} // namespace zeqd
