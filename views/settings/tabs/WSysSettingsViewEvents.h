#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

class TwoListMover;
class WSysSettingsViewEnabledEventList;

/// Where the log goes, and which severities go there.
class WSysSettingsViewEventsTable : public WSettingsTable {
public:
    explicit WSysSettingsViewEventsTable(Wt::WContainerWidget* parent = nullptr);
};

/// What the Switch logs, and which events raise an alert.
class WSysSettingsViewEvents : public WSettingsTab {
public:
    explicit WSysSettingsViewEvents(Wt::WContainerWidget* parent = nullptr);

    /// Both are stored, also behind a failure of the first; 1 if either failed.
    unsigned writeToDatabase(const std::vector<unsigned>& indexes, std::vector<std::string>& errors) override;

    void clearSelection();
    void setUserHasChangedContent(bool changed);
    TwoListMover* eventLists() const;

protected:
    void readTables(const std::vector<unsigned>& indexes, bool force) override;

private:
    WSysSettingsViewEnabledEventList* mEvents;
};
