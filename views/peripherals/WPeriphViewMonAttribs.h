#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Name and description of stored monitors, and what their blocks tell.
class WPeriphViewMonAttribsTable : public WSettingsTable {
public:
    explicit WPeriphViewMonAttribsTable(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase(const Indexes& indexes, bool force) override;
    /// A protected record is among those shown: none of them can be edited.
    void setProtected(bool isProtected);

private:
    /// What all records have in common; nothing once one of them could not be read.
    void readBlocks(const Indexes& indexes);
    void lockProtected();

    std::size_t mRecords = 0; // read last
    bool mProtected = false;
};

class WPeriphViewMonAttribs : public WSettingsTab {
public:
    explicit WPeriphViewMonAttribs(Wt::WContainerWidget* parent = nullptr);

    void setProtected(bool isProtected) { mTable->setProtected(isProtected); }

private:
    WPeriphViewMonAttribsTable* mTable;
};
