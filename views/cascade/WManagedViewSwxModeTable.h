#pragma once

#include "views/cascade/ManagedRows.h"
#include "widgets/WSettingsTable.h"

class WManagementMode;
class WSwxCombinedMode;

/// A row outlives the table that is made of it.
struct ManagedRowsHolder {
    std::vector<SettingsRow> rows;
};

/// Management of this Switch: how far it is, by whom, and the way out.
class WManagedViewSwxModeTable : private ManagedRowsHolder, public WSettingsTable {
public:
    explicit WManagedViewSwxModeTable(const SwxPlace& place, Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase(const Indexes& indexes, bool force) override;
    /// The enrolment and the settings go first: what makes this Switch a master by itself has the last word.
    unsigned writeToDatabase(const Indexes& indexes, Errors& errors) override;

    WManagementMode* management() const;
    /// Null on a controller.
    WSwxCombinedMode* combinedMode() const;
    /// The user chose it, and has not saved.
    bool becomesUnmanagedMaster() const;
};
