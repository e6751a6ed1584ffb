#include "views/devices/tabs/WDevViewSwxMode.h"

#include "views/devices/list/DeviceKind.h"
#include "widgets/Selectors.h"
#include "widgets/ValueTexts.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "swx", .save = SettingsTableSpec::Save::OneExchangePerField};

constexpr std::size_t kModeRow = 0;

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Cascade Participation",
     .make = makeSettingsField<WCascadeMode>,
     .key = "mode",
     .tooltip = "tt.dev.swx.mode",
     .cellStyle = kReadWriteNonTextCell},
    {.label = "swx.deviceDetails.label.CascadeRole",
     .make = makeSettingsField<WTextCascadeRole>,
     .key = "cascadeRole",
     .tooltip = "tt.dev.swx.cascadeRole"},
};

} // namespace

WDevViewSwxModeTable::WDevViewSwxModeTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

void WDevViewSwxModeTable::readFromDatabase(const Indexes& indexes, bool force) {
    WSettingsTable::readFromDatabase(indexes, force);
    setRowEnabled(kModeRow, indexes == Indexes{kThisSwxIndex});
}

WDevViewSwxMode::WDevViewSwxMode(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SWX_MODE, {InfoMgr_InfoID::Switches}) {
    setTables({new WDevViewSwxModeTable});
}
