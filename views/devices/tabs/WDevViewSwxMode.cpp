#include "views/devices/tabs/WDevViewSwxMode.h"

#include "views/devices/list/DeviceKind.h"
#include "widgets/Selectors.h"
#include "widgets/ValueTexts.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "swx", .save = SettingsTableSpec::Save::OneExchangePerField};

bool isThisSwx(const WWidgetZeq::Indexes& indexes) {
    return indexes == WWidgetZeq::Indexes{kThisSwxIndex};
}

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Cascade Participation",
     .make = makeSettingsField<WCascadeMode>,
     .key = "mode",
     .tooltip = "tt.dev.swx.mode",
     .cellStyle = kReadWriteNonTextCell,
     .editable = isThisSwx},
    {.label = "swx.deviceDetails.label.CascadeRole",
     .make = makeSettingsField<WTextCascadeRole>,
     .key = "cascadeRole",
     .tooltip = "tt.dev.swx.cascadeRole"},
};

} // namespace

WDevViewSwxModeTable::WDevViewSwxModeTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

WDevViewSwxMode::WDevViewSwxMode(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SWX_MODE, {InfoMgr_InfoID::Switches}) {
    setTables({new WDevViewSwxModeTable});
}
