#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

// Network settings of a Switch, a tab for each address family. Any configuration but a static one is valid.

class WDevViewSwxIpV4SettingsTable : public WSettingsTable {
public:
    explicit WDevViewSwxIpV4SettingsTable(Wt::WContainerWidget* parent = nullptr);

    /// The method changed: enables what only a static configuration needs.
    void configMethodSelectionChangedHandler() { followChoices(); }
};
class WDevViewSwxIpV4Settings : public WSettingsTab {
public:
    explicit WDevViewSwxIpV4Settings(Wt::WContainerWidget* parent = nullptr);
};

class WDevViewSwxIpV6SettingsTable : public WSettingsTable {
public:
    explicit WDevViewSwxIpV6SettingsTable(Wt::WContainerWidget* parent = nullptr);

    void configMethodSelectionChangedHandler() { followChoices(); }
};
class WDevViewSwxIpV6Settings : public WSettingsTab {
public:
    explicit WDevViewSwxIpV6Settings(Wt::WContainerWidget* parent = nullptr);
};
