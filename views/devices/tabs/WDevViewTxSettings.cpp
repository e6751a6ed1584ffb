#include "views/devices/tabs/WDevViewTxSettings.h"

#include "widgets/Selectors.h"
#include "widgets/ValidatedFields.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WTxIcon.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "tx"};

constexpr SettingsRow kRows1[] = {
    {.label = "[RSnnn]Icon",
     .make = makeSettingsField<WTxIcon>,
     .key = "iconIndex",
     .tooltip = "tt.dev.tx.setting.iconID"},
    {.label = "[RSnnn]Wake on LAN",
     .make = makeSettingsField<WEnableDisable>,
     .key = "wakeOnLan",
     .tooltip = "tt.dev.tx.setting.wakeOnLan"},
    {.label = "[RSnnn]Wake on LAN MAC Address",
     .make = makeSettingsField<WMacAddr>,
     .key = "wakeOnLanMacAddress",
     .tooltip = "tt.dev.tx.setting.wakeOnLanMacAddress",
     .enabledWhen = {.key = "wakeOnLan", .is = "enabled"},
     .judgedForSeveral = false},
    {.label = "[RSnnn]USB Mode",
     .make = makeSettingsField<WUsbMode>,
     .key = "usbMode",
     .tooltip = "tt.dev.tx.setting.txUsbMode"},
    {.label = "[RSnnn]LCD Backlight",
     .make = makeSettingsField<WEnableDisable>,
     .key = "lcdBacklightControl",
     .tooltip = "tt.dev.tx.setting.lcdBacklight"},
};

constexpr SettingsRow kRows2[] = {
    {.label = "[RSnnn]Allowed Access",
     .make = makeSettingsField<WAccessMode>,
     .key = "modeAllowed",
     .tooltip = "tt.dev.tx.setting.accessMode"},
    {.label = "[RSnnn]Traffic Priority",
     .make = makeSettingsField<WTrafficPriority>,
     .key = "trafficSetting",
     .tooltip = "tt.dev.tx.setting.trafficPriority"},
    {.label = "[RSnnn]Audio Output",
     .make = makeSettingsField<WEnableDisable>,
     .key = "audioControl",
     .tooltip = "tt.dev.tx.setting.audioEnable"},
    {.label = "[RSnnn]Microphone Input",
     .make = makeSettingsField<WEnableDisable>,
     .key = "microphoneControl",
     .tooltip = "tt.dev.tx.setting.micEnable"},
};

} // namespace

WDevViewTxSettingsTable1::WDevViewTxSettingsTable1(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows1, parent) {}

WDevViewTxSettingsTable2::WDevViewTxSettingsTable2(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows2, parent) {}

WDevViewTxSettings::WDevViewTxSettings(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_TX_SETTINGS, {InfoMgr_InfoID::Transmitters}) {
    setTables({new WDevViewTxSettingsTable1, new WDevViewTxSettingsTable2});
}
