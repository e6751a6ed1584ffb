#pragma once

#include "frame/ShownTables.h"
#include "widgets/WSettingsTable.h"

// What devices are and do at present. Several devices show what they have in common.

class WDevViewRxStatusTable : public WSettingsTable {
public:
    explicit WDevViewRxStatusTable(Wt::WContainerWidget* parent = nullptr);
};
class WDevViewRxStatus : public ShownTable<WDevViewRxStatusTable> {
public:
    using ShownTable::ShownTable;
};

class WDevViewTxStatusTable : public WSettingsTable {
public:
    explicit WDevViewTxStatusTable(Wt::WContainerWidget* parent = nullptr);
};
class WDevViewTxStatus : public ShownTable<WDevViewTxStatusTable> {
public:
    using ShownTable::ShownTable;
};

class WDevViewSwxStatusTable : public WSettingsTable {
public:
    explicit WDevViewSwxStatusTable(Wt::WContainerWidget* parent = nullptr);
};
class WDevViewSwxStatus : public ShownTable<WDevViewSwxStatusTable> {
public:
    using ShownTable::ShownTable;
};
