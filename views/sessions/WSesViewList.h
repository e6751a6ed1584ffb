#pragma once

#include "frame/WObjListContextPanel.h"
#include "views/sessions/SessionClock.h"

#include <vector>

/// List of the running sessions. Column 0 is the hidden record index.
class WSesViewList : public WObjListContextPanel {
public:
    enum Column { Index, Username, Receiver, Transmitter, Mode, Duration };
    static constexpr int kColumnCount = 6;

    explicit WSesViewList(const Wt::WString& title, Wt::WContainerWidget* parent = nullptr);

    /// In five exchanges, whatever the number of sessions.
    void readFromDatabase() override;
    /// Brings the durations up to date, without an exchange.
    void refreshDurations() { mClock.show(*mTable, Duration); }
    /// Says in place of the duration that these are about to end; until the next rebuild.
    void showEnding(const std::vector<unsigned>& sessions);

    virtual void refreshSelected() { mTable->keepSelectionInView(mTable->selectedRowInView()); }
    /// Record of the one selected session; 0 when none or several are selected.
    virtual unsigned getCurrentlySelectedRecord() const { return mTable->selectedZeqIndex(); }

private:
    SessionClock mClock;
};
