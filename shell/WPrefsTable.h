#pragma once

#include "widgets/WSettingsTable.h"

/// The warnings that a user can turn on and off, each a field of the user's record.
class WPrefsTable : public WSettingsTable {
public:
    explicit WPrefsTable(Wt::WContainerWidget* parent = nullptr);
};
