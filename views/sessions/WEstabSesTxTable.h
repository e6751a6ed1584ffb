#pragma once

#include "db/Info.h"
#include "views/sessions/WEstabSesTable.h"

/// Transmitters that a user at a Receiver could be connected to now.
class WEstabSesTxTable : public WEstabSesTable {
public:
    explicit WEstabSesTxTable(Wt::WContainerWidget* parent = nullptr);

    /// Offers the Transmitters that the user has a right to, that take sessions of this mode and of what user and
    /// Receiver allow, and that are ready. Six exchanges, whatever their number. Empty after a failed read.
    virtual void readFromDatabase(Info_ConnectionMode mode, unsigned int usrIndex, unsigned int rxIndex);
};
