#include "views/devices/tabs/WDevViewRxSettings.h"

#include "widgets/Selectors.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WTargetAny.h"
#include "widgets/WUsr.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "rx"};

constexpr SettingsChoice kLogsIn = {.key = "autoLoginControl", .is = "enabled"};
constexpr SettingsChoice kConnects = {.key = "autoConnectControl", .is = "enabled"};

constexpr SettingsRow kRows1[] = {
    {.label = "[RSnnn]Auto Login",
     .make = makeSettingsField<WEnableDisable>,
     .key = "autoLoginControl",
     .tooltip = "tt.dev.rx.setting.autoLoginEnable"},
    {.label = "[RSnnn]Auto Login Username",
     .make = makeSettingsField<WUsr>,
     .key = "autoLoginUserIndex",
     .tooltip = "tt.dev.rx.setting.autoLoginUsr",
     .enabledWhen = kLogsIn,
     .neededWhen = kLogsIn},
    {.label = "[RSnnn]Auto Connect",
     .make = makeSettingsField<WEnableDisable>,
     .key = "autoConnectControl",
     .tooltip = "tt.dev.rx.setting.autoConnectEnable"},
    {.label = "[RSnnn]Auto Connect Target",
     .make = makeSettingsField<WTargetAny>,
     .tooltip = "tt.dev.rx.setting.autoConnectTarget",
     .enabledWhen = kConnects,
     .neededWhen = kConnects},
    {.label = "[RSnnn]Auto Connect Mode",
     .make = makeSettingsField<WAutoConnMode>,
     .key = "autoConnectMode",
     .tooltip = "tt.dev.rx.setting.autoConnectMode",
     .enabledWhen = kConnects},
    {.label = "[RSnnn]USB Mode",
     .make = makeSettingsField<WUsbMode>,
     .key = "usbMode",
     .tooltip = "tt.dev.rx.setting.rxUsbMode"},
    {.label = "[RSnnn]LCD Backlight",
     .make = makeSettingsField<WEnableDisable>,
     .key = "lcdBacklightControl",
     .tooltip = "tt.dev.rx.setting.lcdBacklight"},
    {.label = "[RSnnn]Allowed Access",
     .make = makeSettingsField<WAccessMode>,
     .key = "modeAllowed",
     .tooltip = "tt.dev.rx.setting.accessMode"},
};

constexpr SettingsRow kRows2[] = {
    {.label = "[RSnnn]Video Scaling",
     .make = makeSettingsField<WEnableDisable>,
     .key = "videoScaling",
     .tooltip = "tt.dev.rx.setting.videoScalingEnable"},
    {.label = "[RSnnn]Audio Output",
     .make = makeSettingsField<WEnableDisable>,
     .key = "audioControl",
     .tooltip = "tt.dev.rx.setting.audioEnable"},
    {.label = "[RSnnn]Microphone",
     .make = makeSettingsField<WEnableDisable>,
     .key = "microphoneControl",
     .tooltip = "tt.dev.rx.setting.micEnable"},
    {.label = "[RSnnn]Keyboard Auto Enumeration",
     .make = makeSettingsField<WEnableDisable>,
     .key = "autoEnumerateKeyboard",
     .tooltip = "tt.dev.rx.setting.kbdAutoEnumerateEnable"},
    {.label = "[RSnnn]Mouse Auto Enumeration",
     .make = makeSettingsField<WEnableDisable>,
     .key = "autoEnumerateMouse",
     .tooltip = "tt.dev.rx.setting.mouseAutoEnumerateEnable"},
    {.label = "[RSnnn]Session Timeout (minutes, 0 means never)",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "sessionInactivityTimeout",
     .bottom = 0,
     .top = 1440, // one day
     .mandatory = true,
     .tooltip = "tt.dev.rx.setting.sessionInactivityTimeout"},
    {.label = "[RSnnn]Share Control Timeout (seconds)",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "sharingInactivityTimeout",
     .bottom = 0,
     .top = 25,
     .mandatory = true,
     .tooltip = "tt.dev.rx.setting.sharingInactivity"},
    {.label = "devices.rx.settings.USBLogLevel",
     .make = makeSettingsField<WUsbLogLevel>,
     .key = "usbLogLevel",
     .tooltip = "tt.dev.rx.setting.usbLogLevel"},
};

} // namespace

WDevViewRxSettingsTable1::WDevViewRxSettingsTable1(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows1, parent) {}

WDevViewRxSettingsTable2::WDevViewRxSettingsTable2(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows2, parent) {}

WDevViewRxSettings::WDevViewRxSettings(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_RX_SETTINGS,
                   {InfoMgr_InfoID::Receivers, InfoMgr_InfoID::Users, InfoMgr_InfoID::Transmitters,
                    InfoMgr_InfoID::Targets}),
      mTable1(new WDevViewRxSettingsTable1) {
    setTables({mTable1, new WDevViewRxSettingsTable2});
}
