#pragma once

#include <optional>

/// Record of the Switch whose EID stands under this key of "systemGlobals": 0 when none stands there or no Switch has it,
/// nothing when it could not be read.
std::optional<unsigned> namedSwx(const char* key);
