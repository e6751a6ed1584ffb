#pragma once

/// Longest time of a session in hours: MIRL_SESSION_HOURS (0 = for ever, to 8760), else 12. Read once.
int SessionLimit_hours();
