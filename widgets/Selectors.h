#pragma once

#include "widgets/WComboBoxZeq.h"

// Bound combo boxes that are their table and nothing else. The order of the rows is that of the items; the
// first row is also what a database string outside the table shows as.

inline constexpr WComboBoxPlus::Triplet kAccessModeChoices[] = {
    {"share_mode", "[RSnnn]Shared only", 1},
    {"private_mode", "[RSnnn]Private only", 2},
    {"share_or_private_mode", "[RSnnn]Private or shared", 3},
};
/// Modes in which a user or a device may connect; numbers of Info_AccessMode.
class WAccessMode : public ZeqSelector<kAccessModeChoices> {
public:
    using ZeqSelector::ZeqSelector;
};

inline constexpr WComboBoxPlus::Triplet kAutoConnModeChoices[] = {
    {"share_mode", "[RSnnn]Shared", 1},
    {"private_mode", "[RSnnn]Private", 2},
};
/// Mode of an automatic connection.
class WAutoConnMode : public ZeqSelector<kAutoConnModeChoices> {
public:
    using ZeqSelector::ZeqSelector;
};

inline constexpr WComboBoxPlus::Triplet kCascadeModeChoices[] = {
    {"master", "[RSnnn]Switch is a cascade master", 1},
    {"slave", "[RSnnn]Switch is a cascade slave", 2},
};
/// A Switch's place in a cascade.
class WCascadeMode : public ZeqSelector<kCascadeModeChoices> {
public:
    using ZeqSelector::ZeqSelector;
};

inline constexpr WComboBoxPlus::Triplet kCascadeRoleChoices[] = {
    {"not_present", "swx.deviceDetails.cascadeRole.not_present", 0},
    {"controller", "swx.deviceDetails.cascadeRole.controller", 1},
    {"slave", "swx.deviceDetails.cascadeRole.slave", 2},
    {"backup", "swx.deviceDetails.cascadeRole.backup", 3},
};
/// A Switch's role in a cascade.
class WCascadeRole : public ZeqSelector<kCascadeRoleChoices> {
public:
    using ZeqSelector::ZeqSelector;

    /// The current item's position; 0 above 3.
    int getSelection() const { return currentIndex() > 3 ? 0 : currentIndex(); }
};

inline constexpr WComboBoxPlus::Triplet kIpV4ConfigMethodChoices[] = {
    {"dhcp", "[RSnnn]DHCP", 1},
    {"dhcp_plus_zeroconf", "[RSnnn]DHCP plus zeroconf", 2},
    {"zeroconf", "[RSnnn]Zeroconf", 3},
    {"static", "[RSnnn]Static", 4},
};
/// Where an IPv4 address comes from.
class WIpV4ConfigMethod : public ZeqSelector<kIpV4ConfigMethodChoices> {
public:
    using ZeqSelector::ZeqSelector;
};

inline constexpr WComboBoxPlus::Triplet kIpV6ConfigMethodChoices[] = {
    {"dhcp", "devices.ipv6.configmethod.dhcp", 2},
    {"dhcp_info_only", "devices.ipv6.configmethod.dhcp_info_only", 3},
    {"stateless_only", "devices.ipv6.configmethod.stateless_only", 1},
    {"static", "devices.ipv6.configmethod.static", 4},
};
/// Where an IPv6 address comes from.
class WIpV6ConfigMethod : public ZeqSelector<kIpV6ConfigMethodChoices> {
public:
    using ZeqSelector::ZeqSelector;
};

inline constexpr WComboBoxPlus::Triplet kLanguageChoices[] = {
    {"en", "[RSnnn]English", 0},
    {"fr", "[RSnnn]French", 0},
    {"it", "[RSnnn]Italian", 0},
    {"de", "[RSnnn]German", 0},
    {"es", "[RSnnn]Spanish", 0},
    {"zh", "[RSnnn]Chinese", 0},
    {"jp", "[RSnnn]Japanese", 0},
    {"ko", "[RSnnn]Korean", 0},
    {"es_las", "[RSnnn]Spanish (Latin America)", 0},
};
/// Language of the on-screen display and of the interface.
class WLanguage : public ZeqSelector<kLanguageChoices> {
public:
    using ZeqSelector::ZeqSelector;
};

inline constexpr WComboBoxPlus::Triplet kOsdActivateHotkeyChoices[] = {
    {"print_screen", "[RSnnn]Print Screen", 1},
    {"control_control", "[RSnnn]Ctrl + Ctrl", 2},
    {"alt_alt", "[RSnnn]Alt + Alt", 5},
    {"shift_shift", "[RSnnn]Shift + Shift", 8},
    {"control_control_left", "[RSnnn]Left Ctrl + Left Ctrl", 3},
    {"control_control_right", "[RSnnn]Right Ctrl + Right Ctrl", 4},
    {"alt_alt_left", "[RSnnn]Left Alt + Left Alt", 6},
    {"alt_alt_right", "[RSnnn]Right Alt + Right Alt", 7},
    {"shift_shift_left", "[RSnnn]Left Shift + Left Shift", 9},
    {"shift_shift_right", "[RSnnn]Right Shift + Right Shift", 10},
    {"scroll_lock_scroll_lock", "[RSnnn]Scroll Lock + Scroll Lock", 11},
    {"custom", "[RSnnn]Custom (1 keycode or 2 codes in sequence)", 12},
    {"none", "[RSnnn]None", 13},
};
/// Keys that open the on-screen display.
class WOsdActivateHotkey : public ZeqSelector<kOsdActivateHotkeyChoices> {
public:
    using ZeqSelector::ZeqSelector;
};

inline constexpr WComboBoxPlus::Triplet kTrafficPriorityChoices[] = {
    {"usb_priority", "[RSnnn]USB", 1},
    {"video_priority", "[RSnnn]Video", 2},
};
/// Which traffic goes first.
class WTrafficPriority : public ZeqSelector<kTrafficPriorityChoices> {
public:
    using ZeqSelector::ZeqSelector;
};

inline constexpr WComboBoxPlus::Triplet kUsbLogLevelChoices[] = {
    {"none", "rx.setting.usbLogLevel.none", 0},
    {"info", "rx.setting.usbLogLevel.info", 1},
    {"debug", "rx.setting.usbLogLevel.debug", 2},
};
/// How much a Receiver logs of its USB traffic.
class WUsbLogLevel : public ZeqSelector<kUsbLogLevelChoices> {
public:
    using ZeqSelector::ZeqSelector;
};

inline constexpr WComboBoxPlus::Triplet kUsbModeChoices[] = {
    {"disabled", "[RSnnn]Disabled", 1},
    {"keyboard_mouse_only", "[RSnnn]Keyboard and mouse only", 2},
    {"all_except_mass_storage", "[RSnnn]All devices except mass storage", 3},
    {"all_devices", "[RSnnn]All devices", 4},
};
/// USB devices that are let through.
class WUsbMode : public ZeqSelector<kUsbModeChoices> {
public:
    using ZeqSelector::ZeqSelector;
};

inline constexpr WComboBoxPlus::Triplet kUsrRoleChoices[] = {
    {"user", "[RSnnn]User", 1},
    {"admin", "[RSnnn]Administrator", 2},
};
/// Numbers of Info_UserRole.
class WUsrRole : public ZeqSelector<kUsrRoleChoices> {
public:
    using ZeqSelector::ZeqSelector;
};

inline constexpr WComboBoxPlus::Triplet kWakeOnConnectChoices[] = {
    {"none", "[RSnnn]None", 1},
    {"keypress", "[RSnnn]Send keyboard activity", 2},
    {"mouse_move", "[RSnnn]Send mouse activity", 3},
};
/// What wakes the computer when a Receiver connects.
class WWakeOnConnect : public ZeqSelector<kWakeOnConnectChoices> {
public:
    using ZeqSelector::ZeqSelector;

    bool mouseWakeIsSelected() const { return selection() == "mouse_move"; }
    bool keyboardWakeIsSelected() const { return selection() == "keypress"; }
};
