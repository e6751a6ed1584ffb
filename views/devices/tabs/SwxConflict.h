#pragma once

#include <vector>

/// Whether none of these Switches is in conflict with another master. One whose status cannot be read counts
/// as in conflict.
bool noSwxInConflict(const std::vector<unsigned>& indexes);
