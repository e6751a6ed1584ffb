#include "frame/ShownTables.h"

#include "widgets/WSettingsTable.h"

#include <Wt/WHBoxLayout>

namespace {

constexpr int kSpacing = 10; // pixels

} // namespace

ShownTables::ShownTables(std::initializer_list<WSettingsTable*> tables, Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mTables(tables) {
    if (mTables.size() == 1) {
        addWidget(mTables.front());
        return;
    }
    auto* layout = new Wt::WHBoxLayout;
    layout->setSpacing(kSpacing);
    for (WSettingsTable* table : mTables) layout->addWidget(table, 0, Wt::AlignTop);
    layout->addWidget(new Wt::WTable, 1);
    setLayout(layout);
}

void ShownTables::readFromDatabase(const std::vector<unsigned>& indexes) {
    mHeld.dropChanged();
    if (indexes != mShown) mHeld.clear();
    mShown = indexes;
    const HeldRecords::Use use(mHeld);
    for (WSettingsTable* table : mTables) table->readFromDatabase(indexes, true);
}
