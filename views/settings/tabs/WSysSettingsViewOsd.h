#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// The on-screen display of Receivers at which nobody is logged in.
class WSysSettingsViewOsdTable : public WSettingsTable {
public:
    explicit WSysSettingsViewOsdTable(Wt::WContainerWidget* parent = nullptr);

protected:
    void nestedReadFailed() override;
};

class WSysSettingsViewOsd : public WSettingsTab {
public:
    explicit WSysSettingsViewOsd(Wt::WContainerWidget* parent = nullptr);
};
