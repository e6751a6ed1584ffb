#include "views/settings/tabs/WSysSettingsViewMirl.h"

#include "views/settings/tabs/SysRows.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WLineEditZeq.h"
#include "widgets/WTextAreaZeq.h"

namespace {

constexpr SettingsTableSpec kSpec = sysTable("systemGlobals");

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]MIRL Inactivity Timeout (minutes, 0 means never)",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "mirlInactivityTimeout",
     .bottom = 0,
     .top = 1440,
     .mandatory = true,
     .tooltip = "tt.sysSettings.mirl.mirlInactivityTimeout"},
    {.label = "[RSnnn]MIRL Banner",
     .make = makeSettingsField<WEnableDisable>,
     .key = "mirlBannerEnable",
     .tooltip = "tt.sysSettings.mirl.mirlBannerEnable"},
    {.label = "[RSnnn]MIRL Banner Text",
     .make = makeSettingsField<WTextAreaZeq>,
     .key = "mirlBannerText",
     .pattern = "([ -~\n]{0,1024})",
     .tooltip = "tt.sysSettings.mirl.mirlBannerText",
     .width = 400,
     .height = 90},
    {.label = "[RSnnn]MIRL Help URL",
     .make = makeSettingsField<WLineEditZeq>,
     .key = "mirlCustomHelpLink",
     .maxLength = 1024,
     .pattern = "^(http[s]?://[ -~]+)$|^$",
     .tooltip = "tt.sysSettings.mirl.mirlHelpUrl",
     .width = 400},
};

} // namespace

WSysSettingsViewMirlTable::WSysSettingsViewMirlTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

WSysSettingsViewMirl::WSysSettingsViewMirl(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SYS_SETTINGS, {}) {
    setTables({new WSysSettingsViewMirlTable});
}
