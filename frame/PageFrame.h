#pragma once

#include <Wt/WContainerWidget>

#include <initializer_list>
#include <string>
#include <string_view>

namespace Wt {
class WHBoxLayout;
class WTimer;
class WVBoxLayout;
} // namespace Wt

class ActionColumn;
class WCollapsingContextPanel;

/// What every page of a main tab is: actions at the left, panes one below the other at the right, dividers between
/// them, and a refresh every five seconds while the page is on show.
class PageFrame : public Wt::WContainerWidget {
public:
    /// The session calls them when the page's tab is entered and left. Not refreshed at first.
    virtual void enableAutoRefresh();
    virtual void disableAutoRefresh();
    /// Refreshes under the session's update lock; nothing outside a session.
    virtual void refreshTimerTimeout();

    /// Where the user is within the page, as the address tells it behind the page's name: "" or "/…" (Place.h).
    virtual std::string placeInAddress() const { return ""; }
    /// Goes there as far as it is there and no unsaved edits hold the user back.
    virtual void goTo(std::string_view place) { static_cast<void>(place); }

    ActionColumn* actions() const { return mActions; }

protected:
    /// One pane of the right column. Sizes in pixels, 0 = none.
    struct Pane {
        Wt::WWidget* widget;
        int height = 0;
        int minHeight = 0;
        int stretch = 0;
        int share = 0; // percent of the browser window's height, where that is more than the height
    };

    explicit PageFrame(Wt::WContainerWidget* parent);

    /// Pixels of a list that takes `share` percent of the browser window's height, but not less than `leastPx`. The
    /// window is as it was when the page was loaded.
    static int heightOf(int leastPx, int share);
    /// Lays the page out, once; takes ownership of all. A divider can be dragged between the actions and the panes
    /// and between any two panes.
    void place(ActionColumn* actions, std::initializer_list<Pane> panes);
    /// The room of the pane at the end goes to the widget above while the pane is folded.
    void giveRoomWhenFolded(WCollapsingContextPanel& pane, Wt::WWidget& above);

    /// What a tick of the timer does.
    virtual void refresh() = 0;

private:
    ActionColumn* mActions = nullptr;
    Wt::WHBoxLayout* mHBox = nullptr;
    Wt::WVBoxLayout* mVBox = nullptr;
    Wt::WTimer* mRefreshTimer;
};
