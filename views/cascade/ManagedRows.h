#pragma once

#include "views/cascade/SwxPlace.h"
#include "widgets/SettingsRow.h"

#include <vector>

/// Rows of the table of managed mode that a Switch in this place shows; what it must not change is only shown.
std::vector<SettingsRow> managedRows(const SwxPlace& place);

/// Key of the choice that only leaving to be a master by oneself has.
inline constexpr const char* kCombinedModeRow = "mode";
