#pragma once

#include "frame/RecordPane.h"
#include "frame/TableStatusTab.h"

/// Who is connected to a Transmitter: a row for each session. Empty for several Transmitters.
class WDevViewTxSesStatusTable : public RecordPane {
public:
    explicit WDevViewTxSesStatusTable(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase(const std::vector<unsigned>& indexes, bool force);
};

class WDevViewTxSesStatus : public TableStatusTab<WDevViewTxSesStatusTable> {
public:
    using TableStatusTab::TableStatusTab;
};
