#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Icon, wake on LAN, USB, display.
class WDevViewTxSettingsTable1 : public WSettingsTable {
public:
    explicit WDevViewTxSettingsTable1(Wt::WContainerWidget* parent = nullptr);

    /// The MAC address counts only while wake on LAN is enabled.
    void wakeOnLanSelectionChangedHandler() { followChoices(); }
};

/// Access, traffic, audio.
class WDevViewTxSettingsTable2 : public WSettingsTable {
public:
    explicit WDevViewTxSettingsTable2(Wt::WContainerWidget* parent = nullptr);
};

class WDevViewTxSettings : public WSettingsTab {
public:
    explicit WDevViewTxSettings(Wt::WContainerWidget* parent = nullptr);
};
