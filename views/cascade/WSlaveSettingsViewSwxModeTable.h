#pragma once

#include "widgets/WSettingsTable.h"

class WCascadeMode;

/// Whether this Switch takes part in a cascade, and whose slave it is.
class WSlaveSettingsViewSwxModeTable : public WSettingsTable {
public:
    explicit WSlaveSettingsViewSwxModeTable(Wt::WContainerWidget* parent = nullptr);

    /// On purpose always: an EID that is not one is left out of the save.
    bool isAllValid() override { return true; }

    WCascadeMode* mode() const;
    bool saysMaster() const;
};
