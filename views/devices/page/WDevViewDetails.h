#pragma once

#include "frame/WCollapsingContextPanel.h"
#include "views/devices/page/DeviceSelection.h"

#include <array>
#include <vector>

namespace Wt {
class WStackedWidget;
class WTabWidget;
class WTableView;
} // namespace Wt

class DevStatusTab;
class WSettingsTab;

/// The editable tabs, in the order of their Save and Cancel handlers.
enum class DevEditableTab {
    RxAttribs,
    RxSettings,
    TxAttribs,
    TxSettings,
    SwxMode,
    SwxAttribs,
    SwxIpV4Settings,
    SwxIpV6Settings,
    SwxNtpSettings
};
inline constexpr int kDevEditableTabCount = 9;

/// The pane below the device list: one page of tabs for each type of device, and an empty one.
class WDevViewDetails : public WCollapsingContextPanel {
public:
    using TabSelect = DevDetailsPage;

    /// `list` is locked while a tab has unsaved edits; not owned. `height` in pixels.
    WDevViewDetails(const Wt::WString& title, int height, Wt::WTableView* list,
                    Wt::WContainerWidget* parent = nullptr);

    virtual void selectTab(TabSelect page);
    virtual TabSelect currentTab();

    /// Whether an editable tab has unsaved edits.
    virtual bool hasChanged();

    /// Has the tab on show read itself, and no other one. `cancelled`: edits are thrown away.
    virtual void readFromDatabase(bool force, const std::vector<unsigned int>& indexes, bool cancelled);

    /// Tab widget of a page, whose current-changed signal tells that another tab is on show.
    Wt::WTabWidget* tabWidget(TabSelect page) const { return mPages[static_cast<std::size_t>(page)]; }
    WSettingsTab& editableTab(DevEditableTab tab) const { return *mEditable[static_cast<std::size_t>(tab)]; }
    /// The tab on show if it can be edited, else null.
    WSettingsTab* currentEditableTab();

private:
    struct Tab;
    struct TabRow;
    static const TabRow kTabs[];

    void addTab(const TabRow& row, Wt::WTableView* list);
    Wt::WWidget* currentTabWidget();

    Wt::WStackedWidget* mStack;
    std::array<Wt::WTabWidget*, 4> mPages{};                     // by TabSelect
    std::array<WSettingsTab*, kDevEditableTabCount> mEditable{}; // by DevEditableTab; owned by their pages
};
