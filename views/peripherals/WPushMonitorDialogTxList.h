#pragma once

#include "frame/RecordTable.h"

/// Transmitters that a monitor can be pushed to.
class WPushMonitorDialogTxList : public RecordTable {
public:
    enum Column { Index, Eid, Type, Name, Swx, kColumnCount };

    explicit WPushMonitorDialogTxList(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase();
};
