#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Names and notes of Receivers.
class WDevViewRxAttribsTable : public WSettingsTable {
public:
    explicit WDevViewRxAttribsTable(Wt::WContainerWidget* parent = nullptr);
};

class WDevViewRxAttribs : public WSettingsTab {
public:
    explicit WDevViewRxAttribs(Wt::WContainerWidget* parent = nullptr);
};
