#pragma once

#include "frame/ShownTables.h"
#include "widgets/WSettingsTable.h"

/// Video timings of Receivers: what comes in, what goes out, what the monitor prefers. Several Receivers show
/// what they have in common, and frequencies only where all they are made of is common.
class WDevViewRxVideoTable : public WSettingsTable {
public:
    explicit WDevViewRxVideoTable(Wt::WContainerWidget* parent = nullptr);

    /// A single Receiver that is not ready leaves the values as they are.
    void readFromDatabase(const Indexes& indexes, bool force) override;

protected:
    void nestedReadFailed() override { clearValues(); }

private:
    void computeFrequencies(std::size_t column);
};

class WDevViewRxVideo : public ShownTable<WDevViewRxVideoTable> {
public:
    using ShownTable::ShownTable;
};
