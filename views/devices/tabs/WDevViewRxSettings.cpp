#include "views/devices/tabs/WDevViewRxSettings.h"

#include "widgets/Selectors.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WTargetAny.h"
#include "widgets/WUsr.h"

namespace {

// A refusal is logged; only a lost connection is told to the user.
constexpr SettingsTableSpec kSpec{.resource = "rx", .refusalFails = false};

enum Row1 { kAutoLogin, kAutoLoginUsr, kAutoConnect, kAutoConnectTarget, kAutoConnectMode };

constexpr SettingsRow kRows1[] = {
    {.label = "[RSnnn]Auto Login",
     .make = makeSettingsField<WEnableDisable>,
     .key = "autoLoginControl",
     .tooltip = "tt.dev.rx.setting.autoLoginEnable"},
    {.label = "[RSnnn]Auto Login Username",
     .make = makeSettingsField<WUsr>,
     .key = "autoLoginUserIndex",
     .tooltip = "tt.dev.rx.setting.autoLoginUsr"},
    {.label = "[RSnnn]Auto Connect",
     .make = makeSettingsField<WEnableDisable>,
     .key = "autoConnectControl",
     .tooltip = "tt.dev.rx.setting.autoConnectEnable"},
    {.label = "[RSnnn]Auto Connect Target",
     .make = makeSettingsField<WTargetAny>,
     .tooltip = "tt.dev.rx.setting.autoConnectTarget"},
    {.label = "[RSnnn]Auto Connect Mode",
     .make = makeSettingsField<WAutoConnMode>,
     .key = "autoConnectMode",
     .tooltip = "tt.dev.rx.setting.autoConnectMode"},
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

// The text on show decides, not the item.
void WDevViewRxSettingsTable1::enableDependents() {
    const Wt::WString enabled = tr("[RSnnn]Enabled");
    setRowEnabled(kAutoLoginUsr, widget<Wt::WComboBox>(kAutoLogin)->currentText() == enabled);
    const bool connects = widget<Wt::WComboBox>(kAutoConnect)->currentText() == enabled;
    setRowEnabled(kAutoConnectTarget, connects);
    setRowEnabled(kAutoConnectMode, connects);
}

bool WDevViewRxSettingsTable1::isAllValid() {
    const auto lacks = [this](std::size_t control, std::size_t choice) {
        return widget<Wt::WComboBox>(control)->currentIndex() == 0 &&
               widget<Wt::WComboBox>(choice)->currentText().empty();
    };
    return !lacks(kAutoLogin, kAutoLoginUsr) && !lacks(kAutoConnect, kAutoConnectTarget);
}

WDevViewRxSettingsTable2::WDevViewRxSettingsTable2(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows2, parent) {}

WDevViewRxSettings::WDevViewRxSettings(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_RX_SETTINGS,
                   {InfoMgr_InfoID::Receivers, InfoMgr_InfoID::Users, InfoMgr_InfoID::Transmitters,
                    InfoMgr_InfoID::Targets}),
      mTable1(new WDevViewRxSettingsTable1) {
    setTables({mTable1, new WDevViewRxSettingsTable2});
    mTable1->contentChanged().connect(this, &WDevViewRxSettings::contentChangedHandler);
}

void WDevViewRxSettings::contentChangedHandler() {
    mTable1->enableDependents();
}

void WDevViewRxSettings::readTables(const std::vector<unsigned>& indexes, bool force) {
    WSettingsTab::readTables(indexes, force);
    contentChangedHandler();
}
