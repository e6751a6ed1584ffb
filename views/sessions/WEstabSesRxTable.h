#pragma once

#include "db/Info.h"
#include "views/sessions/WEstabSesTable.h"

/// Receivers that a user could be logged in to now.
class WEstabSesRxTable : public WEstabSesTable {
public:
    explicit WEstabSesRxTable(Wt::WContainerWidget* parent = nullptr);

    /// Offers the Receivers that take sessions of this mode and of this user's modes, are ready and idle, and
    /// have nobody logged in. Empty after a failed read.
    virtual void readFromDatabase(Info_AccessMode mode, unsigned int usrIndex);
};
