#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Names and notes of Switches. Locked while a Switch among them is in conflict, or does not tell.
class WDevViewSwxAttribsTable : public WSettingsTable {
public:
    explicit WDevViewSwxAttribsTable(Wt::WContainerWidget* parent = nullptr);
};

class WDevViewSwxAttribs : public WSettingsTab {
public:
    explicit WDevViewSwxAttribs(Wt::WContainerWidget* parent = nullptr);
};
