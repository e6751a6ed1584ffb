#pragma once

#include "frame/StatusTab.h"

#include <Wt/WContainerWidget>

/// A status tab that is one table with readFromDatabase(indexes, force).
template <class Table>
class TableStatusTab : public Wt::WContainerWidget, public StatusTab {
public:
    explicit TableStatusTab(Wt::WContainerWidget* parent = nullptr)
        : Wt::WContainerWidget(parent), mTable(new Table(this)) {}

    void readFromDatabase(const std::vector<unsigned>& indexes) override {
        mTable->readFromDatabase(indexes, true);
    }

    Table* table() const { return mTable; }

private:
    Table* mTable;
};
