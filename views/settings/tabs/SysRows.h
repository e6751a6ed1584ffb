#pragma once

#include "widgets/WSettingsTable.h"

/// What the tables of the system's settings have in common: singletons, under "Item" and "Value".
constexpr SettingsTableSpec sysTable(const char* resource) {
    return {.resource = resource, .headings = {"[RSnnn]Item", "[RSnnn]Value"}, .indexed = false};
}
