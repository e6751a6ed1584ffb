#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Remote access by telnet and SSH.
class WSysSettingsViewRapTable : public WSettingsTable {
public:
    explicit WSysSettingsViewRapTable(Wt::WContainerWidget* parent = nullptr);

protected:
    void nestedReadFailed() override;
};

class WSysSettingsViewRap : public WSettingsTab {
public:
    explicit WSysSettingsViewRap(Wt::WContainerWidget* parent = nullptr);
};
