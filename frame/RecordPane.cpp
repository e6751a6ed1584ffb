#include "frame/RecordPane.h"

namespace {

constexpr int kHeight = 360; // pixels: heading and seventeen rows

} // namespace

RecordPane::RecordPane(RecordTable* table, const char* emptyKey, Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mTable(table) {
    mTable->setSelectionMode(Wt::NoSelection);
    mTable->setInline(false);
    mTable->setHeight(kHeight);
    mTable->setEmptyText(tr(emptyKey));
    addWidget(mTable);
    setLayoutSizeAware(true);
}

void RecordPane::layoutSizeChanged(int width, int /*height*/) {
    mTable->adaptToWidth(width);
}
