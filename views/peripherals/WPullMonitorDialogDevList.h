#pragma once

#include "frame/RecordTable.h"

/// Receivers, then Transmitters that a monitor's block can be pulled from.
class WPullMonitorDialogDevList : public RecordTable {
public:
    /// One number of column 0 tells kind and index: that of a Transmitter is larger by this.
    static constexpr unsigned kTransmitterOffset = 2000;

    explicit WPullMonitorDialogDevList(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase();
};
