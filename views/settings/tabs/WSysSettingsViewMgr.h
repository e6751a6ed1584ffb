#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// How a manager reaches this Switch, and how the Switch reaches it.
class WSysSettingsViewMgrTable : public WSettingsTable {
public:
    explicit WSysSettingsViewMgrTable(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase(const Indexes& indexes, bool force) override;
};

class WSysSettingsViewMgr : public WSettingsTab {
public:
    explicit WSysSettingsViewMgr(Wt::WContainerWidget* parent = nullptr);
};
