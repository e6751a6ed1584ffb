#pragma once

#include "frame/WContextPanel.h"

class WCascadeViewInfo;

/// The pane of the Cascade page: one tab, which only shows.
class WCascadeViewDetails : public WContextPanel {
public:
    static constexpr int kHeightPx = 510;

    explicit WCascadeViewDetails(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase();

    WCascadeViewInfo* info() const { return mInfo; }

private:
    WCascadeViewInfo* mInfo;
};
