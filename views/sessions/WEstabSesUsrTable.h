#pragma once

#include "db/Info.h"
#include "views/sessions/WEstabSesTable.h"

/// Users that may have sessions of a mode.
class WEstabSesUsrTable : public WEstabSesTable {
public:
    explicit WEstabSesUsrTable(Wt::WContainerWidget* parent = nullptr);

    /// Empty after a failed read.
    virtual void readFromDatabase(Info_ConnectionMode mode);
};
