#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Place of a Switch in the cascade. It can be changed only on the Switch that one is logged in to.
class WDevViewSwxModeTable : public WSettingsTable {
public:
    explicit WDevViewSwxModeTable(Wt::WContainerWidget* parent = nullptr);
};

class WDevViewSwxMode : public WSettingsTab {
public:
    explicit WDevViewSwxMode(Wt::WContainerWidget* parent = nullptr);
};
