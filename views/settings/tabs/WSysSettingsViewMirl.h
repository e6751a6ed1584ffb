#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// This interface: its time limit, the banner before the login, the help pages.
class WSysSettingsViewMirlTable : public WSettingsTable {
public:
    explicit WSysSettingsViewMirlTable(Wt::WContainerWidget* parent = nullptr);
};

class WSysSettingsViewMirl : public WSettingsTab {
public:
    explicit WSysSettingsViewMirl(Wt::WContainerWidget* parent = nullptr);
};
