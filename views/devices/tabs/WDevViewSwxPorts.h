#pragma once

#include "frame/RecordPane.h"
#include "frame/StatusTab.h"

/// What is plugged into the ports of a Switch. Meant for one Switch: with several, the rows of each later one
/// take the place of those before, and the rows that are left over stay empty.
class WDevViewSwxPortsTable : public RecordPane {
public:
    explicit WDevViewSwxPortsTable(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase(const std::vector<unsigned>& indexes);

private:
    bool readSwitch(struct ZeqClient_s* client, unsigned swxIndex);
};

class WDevViewSwxPorts : public Wt::WContainerWidget, public StatusTab {
public:
    explicit WDevViewSwxPorts(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase(const std::vector<unsigned>& indexes) override;

private:
    WDevViewSwxPortsTable* mTable;
};
