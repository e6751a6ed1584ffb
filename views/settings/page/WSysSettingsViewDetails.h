#pragma once

#include "frame/DetailsTabs.h"
#include "views/settings/page/SysTab.h"

class WSysSettingsView;
class WSysSettingsViewEvents;

/// The tabs of the system's settings.
class WSysSettingsViewDetails : public DetailsTabs {
public:
    explicit WSysSettingsViewDetails(WSysSettingsView* view);

    WSettingsTab& settingsTabOf(SysTab tab) const { return *settingsTab(static_cast<std::size_t>(tab)); }
    WSysSettingsViewEvents& eventsTab() const;
};
