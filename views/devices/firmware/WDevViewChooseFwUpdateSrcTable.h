#pragma once

#include "frame/RecordTable.h"

/// The firmware files that the database remembers.
class WDevViewChooseFwUpdateSrcTable : public RecordTable {
public:
    explicit WDevViewChooseFwUpdateSrcTable(Wt::WContainerWidget* parent = nullptr);

    /// A failed read leaves the list empty.
    void readFromDatabase();
    /// Takes the selected files out of the list and out of the database, whatever the latter answers.
    void deleteSelected();
};
