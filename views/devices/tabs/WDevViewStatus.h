#pragma once

#include "views/devices/tabs/DevShownTables.h"
#include "widgets/WSettingsTable.h"

// What devices are and do at present. Several devices show what they have in common.

class WDevViewRxStatusTable : public WSettingsTable {
public:
    explicit WDevViewRxStatusTable(Wt::WContainerWidget* parent = nullptr);
};
class WDevViewRxStatus : public DevShownTable<WDevViewRxStatusTable> {
public:
    using DevShownTable::DevShownTable;
};

class WDevViewTxStatusTable : public WSettingsTable {
public:
    explicit WDevViewTxStatusTable(Wt::WContainerWidget* parent = nullptr);
};
class WDevViewTxStatus : public DevShownTable<WDevViewTxStatusTable> {
public:
    using DevShownTable::DevShownTable;
};

class WDevViewSwxStatusTable : public WSettingsTable {
public:
    explicit WDevViewSwxStatusTable(Wt::WContainerWidget* parent = nullptr);
};
class WDevViewSwxStatus : public DevShownTable<WDevViewSwxStatusTable> {
public:
    using DevShownTable::DevShownTable;
};
