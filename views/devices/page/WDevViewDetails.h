#pragma once

#include "frame/DetailsTabs.h"
#include "views/devices/page/DevTab.h"
#include "views/devices/page/DeviceSelection.h"

class WDevView;

/// The pane below the device list: one page of tabs for each type of device, and an empty one.
class WDevViewDetails : public DetailsTabs {
public:
    using TabSelect = DevDetailsPage;

    /// `list` is locked while a tab has unsaved edits. `height` in pixels.
    WDevViewDetails(const Wt::WString& title, int height, WDevView* view, ObjListParts* list);

    virtual void selectTab(TabSelect page) { showPage(static_cast<int>(page)); }
    virtual TabSelect currentTab() { return static_cast<TabSelect>(shownPage()); }

    WSettingsTab& settingsTabOf(DevTab tab) const { return *settingsTab(static_cast<std::size_t>(tab)); }
};
