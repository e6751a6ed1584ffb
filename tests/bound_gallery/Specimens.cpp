#include "tests/bound_gallery/Specimens.h"

#include "widgets/LookupTexts.h"
#include "widgets/Selectors.h"
#include "widgets/ValidatedFields.h"
#include "widgets/ValueTexts.h"
#include "widgets/WAnchorZeq.h"
#include "widgets/WChangePassword.h"
#include "widgets/WCheckBoxZeq.h"
#include "widgets/WComboBoxZeqDynamic.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WFwUpdateFileSrc.h"
#include "widgets/WKeyCodeSelector.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WLineEditZeq.h"
#include "widgets/WManagementMode.h"
#include "widgets/WMgrCommStatus.h"
#include "widgets/WNtpTime.h"
#include "widgets/WOsdActivateHotkeyCustom.h"
#include "widgets/WOsdHotkeyFunc.h"
#include "widgets/WSesMode.h"
#include "widgets/WSwxCombinedMode.h"
#include "widgets/WTarget.h"
#include "widgets/WTargetAny.h"
#include "widgets/WTextAreaZeq.h"
#include "widgets/WTextZeq.h"
#include "widgets/WTxIcon.h"
#include "widgets/WUInt32Zeq.h"
#include "widgets/WUsr.h"
#include "widgets/WVideoResolution.h"
#include "widgets/WWakeOnConnectKeyCode.h"

namespace {

// Widgets whose constructors ask for more than a field.

SettingsField makeDynamic(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* cell) {
    SettingsField field;
    auto* box = new WComboBoxZeqDynamic(resource, key, "user", "name", indexed, cell);
    field.widget = box;
    field.bound = box;
    field.form = box;
    field.style = kComboBoxStyle;
    field.namedBy = NamedBy::Label;
    return field;
}

SettingsField makeResolution(const char* resource, const char* key, bool indexed,
                             Wt::WContainerWidget* cell) {
    SettingsField field;
    auto* text = new WVideoResolution(resource, key, "verticalResolution", indexed, cell);
    field.widget = text;
    field.bound = text;
    return field;
}

SettingsField makeScaled(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* cell) {
    SettingsField field = makeSettingsField<WUInt32Zeq>(resource, key, indexed, cell);
    static_cast<WUInt32Zeq*>(field.bound)->setDisplayScaling(0.001);
    return field;
}

SettingsField makeMgrStatus(const char*, const char*, bool, Wt::WContainerWidget* cell) {
    SettingsField field;
    field.widget = new WMgrCommStatus(WMgrCommStatus::MgrInstance::Primary, cell);
    return field;
}

// States of widgets that their owner fills.

void fillHotkey(Wt::WWidget* widget, State state) {
    auto* box = dynamic_cast<WOsdHotkeyFunc*>(widget);
    if (state == State::Different)
        box->showConflict();
    else
        box->showValue("connect_to_target_x");
}

void fillWakeKey(Wt::WWidget* widget, State state) {
    auto* box = dynamic_cast<WWakeOnConnectKeyCode*>(widget);
    if (state == State::Different)
        box->showConflict();
    else
        box->showValue(225);
}

void fillTarget(Wt::WWidget* widget, State state) {
    auto* box = dynamic_cast<WTarget*>(widget);
    box->populateChoices({{1, false, "00A702-030011", "SCADA A"},
                          {2, true, "00A702-030022", "in conflict"},
                          {3, false, "00A702-030033", ""}});
    box->setCurrentChoiceByEid(state == State::Different ? "00A702-030099" : "00A702-030033");
}

void fillKeyCode(Wt::WWidget* widget, State) {
    dynamic_cast<WKeyCodeSelector*>(widget)->setCurrentIndexByValue(44);
}

void fillPassword(Wt::WWidget* widget, State state) {
    auto* box = dynamic_cast<WChangePassword*>(widget);
    box->includeBlankItem(state == State::Different);
    if (state == State::Different) box->showBlankItem();
}

void fillMgrStatus(Wt::WWidget* widget, State) {
    dynamic_cast<WMgrCommStatus*>(widget)->readFromDatabase();
}

void fillNothing(Wt::WWidget*, State) {}

template <class Widget>
constexpr SettingsFieldMaker kMake = makeSettingsField<Widget>;

constexpr const char* kV4 = "swx/network/ipv4";
constexpr const char* kV6 = "swx/network/ipv6";

using S = Specimen;

// clang-format off
constexpr Specimen kSpecimens[] = {
    {"WLineEditZeq", kMake<WLineEditZeq>, S::Text, "rx", "name", "Desk <b>7</b>", "Desk 8"},
    {"WTextAreaZeq", kMake<WTextAreaZeq>, S::Text, "rx", "notes", "first line\nsecond line", "other"},
    {"WLineEditUInt32Zeq", kMake<WLineEditUInt32Zeq>, S::Number, "rx", "sessionInactivityTimeout", "30", "60"},
    {"WCheckBoxZeq", kMake<WCheckBoxZeq>, S::Number, "rx", "sharingInactivityTimeout", "1", "0"},
    {"WTextZeq", kMake<WTextZeq>, S::Text, "rx", "location", "Control room", "Basement"},
    {"WUInt32Zeq", kMake<WUInt32Zeq>, S::Number, "rx", "sessionInactivityTimeout", "30", "60"},
    {"WUInt32Zeq, scaled", makeScaled, S::Held, "rx", "n", R"("n":148500)", R"("n":25175)"},
    {"WAnchorZeq", kMake<WAnchorZeq>, S::Text, kV4, "ipAddress", "10.0.0.1", "10.0.0.2"},

    {"WAccessMode", kMake<WAccessMode>, S::Text, "rx", "modeAllowed", "private_mode", "share_mode"},
    {"WAutoConnMode", kMake<WAutoConnMode>, S::Text, "rx", "autoConnectMode", "private_mode", "share_mode"},
    {"WCascadeMode", kMake<WCascadeMode>, S::Held, "swx", "m", R"("m":"slave")", R"("m":"master")"},
    {"WCascadeRole", kMake<WCascadeRole>, S::Held, "swx", "r", R"("r":"backup")", R"("r":"slave")"},
    {"WEnableDisable", kMake<WEnableDisable>, S::Text, "rx", "audioControl", "disabled", "enabled"},
    {"WIpV4ConfigMethod", kMake<WIpV4ConfigMethod>, S::Text, kV4, "ipv4ConfMethod", "static", "dhcp"},
    {"WIpV6ConfigMethod", kMake<WIpV6ConfigMethod>, S::Text, kV6, "ipv6ConfMethod", "static", "dhcp"},
    {"WLanguage", kMake<WLanguage>, S::Held, "osd", "l", R"("l":"es_las")", R"("l":"en")"},
    {"WOsdActivateHotkey", kMake<WOsdActivateHotkey>, S::Held, "user", "h", R"("h":"alt_alt")", R"("h":"none")"},
    {"WOsdHotkeyFunc", kMake<WOsdHotkeyFunc>, S::ByOwner, "user", "f", "", "", nullptr, fillHotkey},
    {"WTrafficPriority", kMake<WTrafficPriority>, S::Text, "tx", "trafficSetting", "video_priority", "usb_priority"},
    {"WUsbLogLevel", kMake<WUsbLogLevel>, S::Text, "rx", "usbLogLevel", "debug", "none"},
    {"WUsbMode", kMake<WUsbMode>, S::Text, "rx", "usbMode", "all_devices", "disabled"},
    {"WUsrRole", kMake<WUsrRole>, S::Held, "user", "r", R"("r":"admin")", R"("r":"user")"},
    {"WWakeOnConnect", kMake<WWakeOnConnect>, S::Held, "tx", "w", R"("w":"keypress")", R"("w":"none")"},
    {"WWakeOnConnectKeyCode", kMake<WWakeOnConnectKeyCode>, S::ByOwner, "tx", "k", "", "", nullptr, fillWakeKey},
    {"WKeyCodeSelector", kMake<WKeyCodeSelector>, S::ByOwner, "", "", "", "", nullptr, fillKeyCode},

    {"WEid", kMake<WEid>, S::Text, "rx", "autoConnectTxEid", "00A703-03000D", "00A703-03001A", "00A70303000D"},
    {"WIpV4Addr", kMake<WIpV4Addr>, S::Text, kV4, "ipAddress", "10.0.0.1", "10.0.0.2", "256.1.1.1"},
    {"WIpV6Addr", kMake<WIpV6Addr>, S::Text, kV6, "ipAddress", "2001:db8::1", "2001:db8::2", "1::2::3"},
    {"WIpAddr", kMake<WIpAddr>, S::Held, "g", "a", R"("a":"10.0.0.9")", R"("a":"::1")", "10.0.0"},
    {"WHostAddr", kMake<WHostAddr>, S::Text, "swx", "primaryNtpIpAddress", "time.example", "ntp.example", "-a.example"},
    {"WMacAddr", kMake<WMacAddr>, S::Text, "tx", "wakeOnLanMacAddress", "00:11:22:33:44:55", "00:11:22:33:44:66", "00:11"},
    {"WKeyCode", kMake<WKeyCode>, S::Number, "rx", "sharingInactivityTimeout", "1", "0", "256"},
    {"WMouseDelta", kMake<WMouseDelta>, S::Number, "rx", "sharingInactivityTimeout", "1", "0", "128"},
    {"WOsdActivateHotkeyCustom", kMake<WOsdActivateHotkeyCustom>, S::Held, "user", "customKeys", R"("length":2,"sequence":{"$binary":"BAU="})", R"("length":1,"sequence":{"$binary":"BgA="})"},

    {"WTextRxStatus", kMake<WTextRxStatus>, S::Kept},
    {"WTextTxStatus", kMake<WTextTxStatus>, S::Kept},
    {"WTextSwxStatus", kMake<WTextSwxStatus>, S::Kept},
    {"WTextRxSesMode", kMake<WTextRxSesMode>, S::Kept},
    {"WTextTxSesMode", kMake<WTextTxSesMode>, S::Kept},
    {"WTextRxKeyboardLayout", kMake<WTextRxKeyboardLayout>, S::Kept},
    {"WTextRxSwxName", kMake<WTextRxSwxName>, S::Kept},
    {"WTextTxSwxName", kMake<WTextTxSwxName>, S::Kept},
    {"WTextRxSwxPort", kMake<WTextRxSwxPort>, S::Kept},
    {"WTextTxSwxPort", kMake<WTextTxSwxPort>, S::Kept},
    {"WTextRxUsrName", kMake<WTextRxUsrName>, S::Kept},
    {"WTextTxUsrName", kMake<WTextTxUsrName>, S::Kept},
    {"WTextCascadeMode", kMake<WTextCascadeMode>, S::Kept, "swx", "mode"},
    {"WTextCascadeRole", kMake<WTextCascadeRole>, S::Kept, "swx", "cascadeRole"},
    {"WTextManagerServer", kMake<WTextManagerServer>, S::Singleton, "systemGlobals", "preferredManager"},
    {"WNtpStatus", kMake<WNtpStatus>, S::Kept, "swx", "ntpStatus"},
    {"WNtpTime", kMake<WNtpTime>, S::Held, "swx", "t", R"("t":0)", R"("t":1795000000)"},
    {"WVideoResolution", makeResolution, S::Held, "rx", "horizontalResolution", R"("horizontalResolution":1920,"verticalResolution":1080)", R"("horizontalResolution":640,"verticalResolution":480)"},
    {"WVideoSyncPolarity", kMake<WVideoSyncPolarity>, S::Held, "rx", "p", R"("p":"negative_polarity")", R"("p":"positive_polarity")"},
    {"WMgrCommStatus", makeMgrStatus, S::ByOwner, "", "", "", "", nullptr, fillMgrStatus},

    {"WTarget", kMake<WTarget>, S::ByOwner, "user", "txEID", "", "", nullptr, fillTarget},
    {"WTargetAny", kMake<WTargetAny>, S::Kept, "rx", "autoConnectTxEid"},
    {"WUsr", kMake<WUsr>, S::Number, "rx", "autoLoginUserIndex", "2", "3"},
    {"WComboBoxZeqDynamic", makeDynamic, S::Held, "rx", "d", R"("d":"admin")", R"("d":"wall")"},
    {"WManagementMode", kMake<WManagementMode>, S::Singleton, "systemGlobals", "managedSetting"},
    {"WSwxCombinedMode", kMake<WSwxCombinedMode>, S::Singleton},
    {"WTxIcon", kMake<WTxIcon>, S::Number, "tx", "iconIndex", "7", "9"},
    {"WChangePassword", kMake<WChangePassword>, S::ByOwner, "", "", "", "", nullptr, fillPassword},
    {"WFwUpdateFileSrc", kMake<WFwUpdateFileSrc>, S::ByOwner, "", "", "", "", nullptr, fillNothing},
    {"WSesMode", kMake<WSesMode>, S::ByOwner, "", "", "", "", nullptr, fillNothing},
};
// clang-format on

} // namespace

std::span<const Specimen> specimens() {
    return kSpecimens;
}
