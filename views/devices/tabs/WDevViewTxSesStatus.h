#pragma once

#include "frame/RecordPane.h"
#include "views/devices/tabs/DevTableStatusTab.h"

/// Who is connected to a Transmitter: a row for each session. Empty for several Transmitters.
class WDevViewTxSesStatusTable : public RecordPane {
public:
    explicit WDevViewTxSesStatusTable(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase(const std::vector<unsigned>& indexes, bool force);
};

class WDevViewTxSesStatus : public DevTableStatusTab<WDevViewTxSesStatusTable> {
public:
    using DevTableStatusTab::DevTableStatusTab;
};
