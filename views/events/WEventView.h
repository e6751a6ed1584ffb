#pragma once

#include "db/WatchedKinds.h"
#include "frame/KeptSelection.h"
#include "frame/PageFrame.h"

class EventList;
class WEventViewDetails;
class WEventViewHistList;
class WEventViewUnAckedList;

enum class EventAction { Acknowledge, AcknowledgeAll, SaveHistory, ClearHistory };

/// The Events tab: what nobody has acknowledged yet, the history, and the one selected event in the pane below.
class WEventView : public PageFrame {
public:
    explicit WEventView(Wt::WContainerWidget* parent = nullptr);

    /// Rebuilds both lists.
    virtual void readFromDatabase(bool ignored);
    virtual void ackActionButtonClicked();
    virtual void ackAllActionButtonClicked();
    virtual void clearActionButtonClicked();
    virtual void unAckedEventListSelectionChangedHandler();
    virtual void histEventListSelectionChangedHandler();

    WEventViewUnAckedList* unAckedList() const { return mUnAcked; }
    WEventViewHistList* histList() const { return mHist; }
    WEventViewDetails* details() const { return mDetails; }

protected:
    void refresh() override;

private:
    void rebuild(KeptSelection& selection, void (WEventView::*changed)());
    /// A row of `list` is selected: of the other one none is any more.
    void show(const EventList& list, const KeptSelection& chosen, KeptSelection& other);
    void enable(EventAction action, bool enabled, const char* why = nullptr);

    WEventViewUnAckedList* mUnAcked;
    WEventViewHistList* mHist;
    WEventViewDetails* mDetails;
    KeptSelection mUnAckedSelection;
    KeptSelection mHistSelection;
    WatchedKinds mWatched;
};
