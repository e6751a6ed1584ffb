#include "views/settings/tabs/WSysSettingsViewEvents.h"

#include "views/settings/tabs/WSysSettingsViewEnabledEventList.h"
#include "widgets/ValidatedFields.h"
#include "widgets/WEnableDisable.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "eventLogControl", .indexed = false};

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Syslog Server IP Address",
     .make = makeSettingsField<WIpAddr>,
     .key = "syslogDest",
     .resource = "systemGlobals",
     .tooltip = "tt.sysSettings.events.syslogDest"},
    {.label = "[RSnnn]Log Error Events",
     .make = makeSettingsField<WEnableDisable>,
     .key = "error",
     .tooltip = "tt.sysSettings.events.enableLoggingError"},
    {.label = "[RSnnn]Log Warning Events",
     .make = makeSettingsField<WEnableDisable>,
     .key = "warning",
     .tooltip = "tt.sysSettings.events.enableLoggingWarning"},
    {.label = "[RSnnn]Log Informational Events",
     .make = makeSettingsField<WEnableDisable>,
     .key = "info",
     .tooltip = "tt.sysSettings.events.enableLoggingInfo"},
};

} // namespace

WSysSettingsViewEventsTable::WSysSettingsViewEventsTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

WSysSettingsViewEvents::WSysSettingsViewEvents(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SYS_SETTINGS, {}),
      mEvents(new WSysSettingsViewEnabledEventList) {
    setTables({new WSysSettingsViewEventsTable});
    addBelowTables(mEvents);
}

void WSysSettingsViewEvents::readTables(const std::vector<unsigned>& indexes, bool force) {
    WSettingsTab::readTables(indexes, force);
    mEvents->readFromDatabase(force);
}

unsigned WSysSettingsViewEvents::writeToDatabase(const std::vector<unsigned>& indexes,
                                                 std::vector<std::string>& errors) {
    const unsigned table = WSettingsTab::writeToDatabase(indexes, errors);
    // On purpose: what is refused of the switches stands in the log only.
    std::vector<std::string> logged;
    const unsigned events = mEvents->writeToDatabase(logged);
    return table != 0 || events != 0 ? 1 : 0;
}

void WSysSettingsViewEvents::clearSelection() {
    mEvents->clearSelection();
}

void WSysSettingsViewEvents::setUserHasChangedContent(bool changed) {
    mEvents->setUserHasChangedContent(changed);
}

TwoListMover* WSysSettingsViewEvents::eventLists() const {
    return mEvents->mover();
}
