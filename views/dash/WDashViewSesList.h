#pragma once

#include "frame/WCollapsingObjListContextPanel.h"
#include "views/sessions/SessionClock.h"

/// Who is logged in at which Receiver, and what is on it. A login without a session has neither mode nor duration.
class WDashViewSesList : public WCollapsingObjListContextPanel {
public:
    enum Column { Index, Username, Receiver, Transmitter, Mode, Duration };
    static constexpr int kColumnCount = 6;

    WDashViewSesList(const Wt::WString& title, HeightType heightType, int height,
                     Wt::WContainerWidget* parent = nullptr);

    /// In five exchanges, whatever the number of logins.
    void readFromDatabase() override;
    /// Brings the durations up to date, without an exchange.
    void refreshDurations() { mClock.show(*mTable, Duration); }

private:
    SessionClock mClock;
};
