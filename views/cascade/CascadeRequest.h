#pragma once

#include "frame/ActionResults.h"

/// Asks the Switch for a change of its cascade ("cascadeRoleAction") and notes what became of it. `index`: the Switch it
/// is about; `caller`: the function named in the log.
void requestCascadeChange(const char* action, unsigned index, const char* caller, ActionResults& results);

/// The same about this Switch; what was refused is shown.
void changeCascade(const char* action, const char* caller);
