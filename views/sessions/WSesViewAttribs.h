#pragma once

#include "frame/ShownTables.h"
#include "widgets/WSettingsTable.h"

/// What the selected sessions join; "---" where they differ.
class WSesViewAttribs : public WSettingsTable {
public:
    explicit WSesViewAttribs(Wt::WContainerWidget* parent = nullptr);
};

/// The tab with it.
class WSesViewAttribsTab : public ShownTable<WSesViewAttribs> {
public:
    using ShownTable::ShownTable;
};
