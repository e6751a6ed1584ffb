#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// What happens to devices by themselves or on request.
class WSysSettingsViewOtherTable : public WSettingsTable {
public:
    explicit WSysSettingsViewOtherTable(Wt::WContainerWidget* parent = nullptr);
};

class WSysSettingsViewOther : public WSettingsTab {
public:
    explicit WSysSettingsViewOther(Wt::WContainerWidget* parent = nullptr);
};
