#pragma once

#include "db/HeldRecords.h"
#include "frame/StatusTab.h"

#include <Wt/WContainerWidget>

#include <initializer_list>

class WSettingsTable;

/// A status tab of tables side by side. What they read is held from refresh to refresh, as long as the same
/// records are on show and the service counts no change of it.
class ShownTables : public Wt::WContainerWidget, public StatusTab {
public:
    void readFromDatabase(const std::vector<unsigned>& indexes) override;

protected:
    /// Takes ownership; read in the order given.
    ShownTables(std::initializer_list<WSettingsTable*> tables, Wt::WContainerWidget* parent);

private:
    std::vector<WSettingsTable*> mTables;
    HeldRecords mHeld;
    std::vector<unsigned> mShown; // indexes read last
};

/// A status tab that is one table.
template <class Table>
class ShownTable : public ShownTables {
public:
    explicit ShownTable(Wt::WContainerWidget* parent = nullptr) : ShownTables({new Table}, parent) {}
};
