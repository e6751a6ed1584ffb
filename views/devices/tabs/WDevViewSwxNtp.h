#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Time servers of Switches, and what became of asking them.
class WDevViewSwxNtpTable : public WSettingsTable {
public:
    explicit WDevViewSwxNtpTable(Wt::WContainerWidget* parent = nullptr);

    /// The user switched NTP on or off: the primary address follows at once, the secondary at the next read.
    void ntpControlSelectionChangedHandler() { followChoices(); }
    /// Empties the status: after new settings the old one says nothing.
    void clearStatus();

    void readFromDatabase(const Indexes& indexes, bool force) override;
};

class WDevViewSwxNtp : public WSettingsTab {
public:
    explicit WDevViewSwxNtp(Wt::WContainerWidget* parent = nullptr);

    void clearStatus() { mTable->clearStatus(); }

private:
    WDevViewSwxNtpTable* mTable;
};
