#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Automatic login and connection, USB, access.
class WDevViewRxSettingsTable1 : public WSettingsTable {
public:
    explicit WDevViewRxSettingsTable1(Wt::WContainerWidget* parent = nullptr);

    /// Enables what automatic login and connection need, as far as they are chosen.
    void enableDependents();

    /// Automatic login needs a user, automatic connection a target.
    bool isAllValid() override;
    bool isAnyValid() override { return true; }
};

/// Video, audio, input, timeouts.
class WDevViewRxSettingsTable2 : public WSettingsTable {
public:
    explicit WDevViewRxSettingsTable2(Wt::WContainerWidget* parent = nullptr);
};

class WDevViewRxSettings : public WSettingsTab {
public:
    explicit WDevViewRxSettings(Wt::WContainerWidget* parent = nullptr);

    void contentChangedHandler();

protected:
    void readTables(const std::vector<unsigned>& indexes, bool force) override;

private:
    WDevViewRxSettingsTable1* mTable1;
};
