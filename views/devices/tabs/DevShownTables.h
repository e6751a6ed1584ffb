#pragma once

#include "db/HeldRecords.h"
#include "views/devices/tabs/DevStatusTab.h"

#include <Wt/WContainerWidget>

#include <initializer_list>

class WSettingsTable;

/// A status tab of tables side by side. What they read is held from refresh to refresh, as long as the same
/// records are on show and the service counts no change of it.
class DevShownTables : public Wt::WContainerWidget, public DevStatusTab {
public:
    void readFromDatabase(const std::vector<unsigned>& indexes) override;

protected:
    /// Takes ownership; read in the order given.
    DevShownTables(std::initializer_list<WSettingsTable*> tables, Wt::WContainerWidget* parent);

private:
    std::vector<WSettingsTable*> mTables;
    HeldRecords mHeld;
    std::vector<unsigned> mShown; // indexes read last
};

/// A status tab that is one table.
template <class Table>
class DevShownTable : public DevShownTables {
public:
    explicit DevShownTable(Wt::WContainerWidget* parent = nullptr) : DevShownTables({new Table}, parent) {}
};
