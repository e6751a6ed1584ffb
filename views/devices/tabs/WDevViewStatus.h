#pragma once

#include "views/devices/tabs/DevTableStatusTab.h"
#include "widgets/WSettingsTable.h"

// What devices are and do at present. Several devices show what they have in common.

class WDevViewRxStatusTable : public WSettingsTable {
public:
    explicit WDevViewRxStatusTable(Wt::WContainerWidget* parent = nullptr);
};
class WDevViewRxStatus : public DevTableStatusTab<WDevViewRxStatusTable> {
public:
    using DevTableStatusTab::DevTableStatusTab;
};

class WDevViewTxStatusTable : public WSettingsTable {
public:
    explicit WDevViewTxStatusTable(Wt::WContainerWidget* parent = nullptr);
};
class WDevViewTxStatus : public DevTableStatusTab<WDevViewTxStatusTable> {
public:
    using DevTableStatusTab::DevTableStatusTab;
};

class WDevViewSwxStatusTable : public WSettingsTable {
public:
    explicit WDevViewSwxStatusTable(Wt::WContainerWidget* parent = nullptr);
};
class WDevViewSwxStatus : public DevTableStatusTab<WDevViewSwxStatusTable> {
public:
    using DevTableStatusTab::DevTableStatusTab;
};
