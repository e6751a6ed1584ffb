#include "views/cascade/WManagedViewSwxModeTable.h"

#include "widgets/WManagementMode.h"
#include "widgets/WSwxCombinedMode.h"

namespace {

constexpr SettingsTableSpec kSpec{
    .resource = "systemGlobals", .headings = {"[RSnnn]Item", "[RSnnn]Value"}, .indexed = false};
constexpr int kUnmanagedMaster = 0;

} // namespace

WManagedViewSwxModeTable::WManagedViewSwxModeTable(const SwxPlace& place, Wt::WContainerWidget* parent)
    : ManagedRowsHolder{managedRows(place)}, WSettingsTable(kSpec, rows, parent) {}

void WManagedViewSwxModeTable::readFromDatabase(const Indexes& indexes, bool force) {
    WSettingsTable::readFromDatabase(indexes, force);
    Errors dropped;
    if (WSwxCombinedMode* combined = combinedMode()) combined->readFromDatabase(indexes, dropped, force);
}

unsigned WManagedViewSwxModeTable::writeToDatabase(const Indexes& indexes, Errors& errors) {
    WSwxCombinedMode* combined = combinedMode();
    const bool changed = combined && !combined->isDisabled() && combined->hasChangedContent();
    unsigned result = WSettingsTable::writeToDatabase(indexes, errors); // which ends every mark
    if (changed) {
        combined->setContentChanged();
        result |= combined->writeToDatabase(indexes, errors);
    }
    return result;
}

WManagementMode* WManagedViewSwxModeTable::management() const {
    return widget<WManagementMode>("managedSetting");
}

WSwxCombinedMode* WManagedViewSwxModeTable::combinedMode() const {
    return widget<WSwxCombinedMode>(kCombinedModeRow);
}

bool WManagedViewSwxModeTable::becomesUnmanagedMaster() const {
    WSwxCombinedMode* combined = combinedMode();
    return combined && !combined->isDisabled() && combined->hasChangedContent() &&
           combined->currentIndex() == kUnmanagedMaster;
}
