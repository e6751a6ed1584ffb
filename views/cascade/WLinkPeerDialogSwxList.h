#pragma once

#include "frame/RecordTable.h"

/// Switches that can become the peer.
class WLinkPeerDialogSwxList : public RecordTable {
public:
    explicit WLinkPeerDialogSwxList(Wt::WContainerWidget* parent = nullptr);

    /// Slaves that are ready and usable.
    void readFromDatabase();
};
