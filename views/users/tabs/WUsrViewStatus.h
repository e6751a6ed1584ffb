#pragma once

#include "frame/RecordPane.h"
#include "frame/StatusTab.h"

/// Where the selected users are logged in at Receivers, a row for each login.
class WUsrViewStatusTable : public RecordPane {
public:
    explicit WUsrViewStatusTable(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase(const std::vector<unsigned>& users);
};

class WUsrViewStatus : public Wt::WContainerWidget, public StatusTab {
public:
    explicit WUsrViewStatus(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase(const std::vector<unsigned>& users) override { mTable->readFromDatabase(users); }
    WUsrViewStatusTable* table() const { return mTable; }

private:
    WUsrViewStatusTable* mTable;
};
