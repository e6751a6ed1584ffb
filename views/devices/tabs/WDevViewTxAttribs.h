#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Names and notes of Transmitters.
class WDevViewTxAttribsTable : public WSettingsTable {
public:
    explicit WDevViewTxAttribsTable(Wt::WContainerWidget* parent = nullptr);
};

class WDevViewTxAttribs : public WSettingsTab {
public:
    explicit WDevViewTxAttribs(Wt::WContainerWidget* parent = nullptr);
};
