#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// What new devices begin with.
class WSysSettingsViewDefaultsTable : public WSettingsTable {
public:
    explicit WSysSettingsViewDefaultsTable(Wt::WContainerWidget* parent = nullptr);
};

class WSysSettingsViewDefaults : public WSettingsTab {
public:
    explicit WSysSettingsViewDefaults(Wt::WContainerWidget* parent = nullptr);
};
