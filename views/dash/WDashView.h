#pragma once

#include "db/WatchedKinds.h"
#include "frame/KeptSelection.h"
#include "frame/PageFrame.h"

class WDashViewEventList;
class WDashViewSesList;

/// The Dashboard tab: who is at which Receiver, and what nobody has acknowledged yet. It only shows.
class WDashView : public PageFrame {
public:
    explicit WDashView(Wt::WContainerWidget* parent = nullptr);

    /// Rebuilds both lists.
    virtual void readFromDatabase();
    /// The log of events was cleared: the list is empty at once.
    virtual void eventLogClear();

    WDashViewSesList* sesList() const { return mSessions; }
    WDashViewEventList* eventList() const { return mEvents; }

protected:
    void refresh() override;

private:
    WDashViewSesList* mSessions;
    WDashViewEventList* mEvents;
    KeptSelection mSesSelection, mEventSelection;
    WatchedKinds mWatched;
};
