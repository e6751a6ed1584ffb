#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Automatic login and connection, USB, access.
class WDevViewRxSettingsTable1 : public WSettingsTable {
public:
    explicit WDevViewRxSettingsTable1(Wt::WContainerWidget* parent = nullptr);
};

/// Video, audio, input, timeouts.
class WDevViewRxSettingsTable2 : public WSettingsTable {
public:
    explicit WDevViewRxSettingsTable2(Wt::WContainerWidget* parent = nullptr);
};

class WDevViewRxSettings : public WSettingsTab {
public:
    explicit WDevViewRxSettings(Wt::WContainerWidget* parent = nullptr);

    /// Has what automatic login and connection need follow them.
    void contentChangedHandler() { mTable1->followChoices(); }

private:
    WDevViewRxSettingsTable1* mTable1;
};
