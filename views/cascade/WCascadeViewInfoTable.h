#pragma once

#include "widgets/WSettingsTable.h"

/// The two Switches of the cascade: the master, and the peer if one is linked.
class WCascadeViewInfoTable : public WSettingsTable {
public:
    explicit WCascadeViewInfoTable(Wt::WContainerWidget* parent = nullptr);

    /// Finds its two records itself, whatever is chosen. A master that cannot be found leaves the table as it is, a peer
    /// that cannot shows nothing.
    void readFromDatabase(const Indexes& chosen, bool force) override;
    /// The master is not the Switch that one is logged in to.
    bool rolesSwitched() const { return mRolesSwitched; }

protected:
    Indexes recordsOf(unsigned group, const Indexes& chosen) override;

private:
    Indexes mPeer;
    bool mRolesSwitched = false;
};
