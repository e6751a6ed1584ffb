#pragma once

#include <vector>

/// Whether a Switch of these is in conflict with another master, or its status cannot be read.
bool anySwxInConflict(const std::vector<unsigned>& indexes);
