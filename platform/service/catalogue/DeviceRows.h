// Keys of the devices: "swx", "rx", "tx", and the ports that join them.
#pragma once

#include "platform/service/catalogue/ValueLists.h"

namespace zeqd::rows {

constexpr KeyRow onOff(std::string_view key, std::string_view fallback, std::string_view help) {
    return choice(key, values::enabled, help).def(fallback);
}

// What a person tells about a device.
constexpr KeyRow deviceName(std::string_view help) {
    return text("name", 40, Form::Printable, help);
}
inline constexpr KeyRow kLocation = text("location", 64, Form::PrintableLines, "where it stands");
inline constexpr KeyRow kDescription = text("description", 64, Form::PrintableLines, "what it is for");
inline constexpr KeyRow kNotes = text("notes", 64, Form::PrintableLines, "remarks");

// What a device tells about itself.
inline constexpr KeyRow kEid =
    text("eid", 13, Form::Eid, "identifier of the device, fixed at manufacture").read();
inline constexpr KeyRow kSerial = text("serialNumber", 24, Form::Printable, "serial number").read();
inline constexpr KeyRow kPart = text("partNumber", 24, Form::Printable, "part number").read();
inline constexpr KeyRow kFirmware = text("firmwareVersion", 24, Form::Printable, "running firmware").read();
inline constexpr KeyRow kReset = choice("reset", values::reset, "reboots or restores the device").act();
inline constexpr KeyRow kUpgradeStatus =
    choice("upgradeStatus", values::upgradeStatus, "state of the firmware update").read();
inline constexpr KeyRow kUpgradePercent = number("upgradePercent", 0, 100, "progress of the update").read();
inline constexpr KeyRow kUpgradeIndex =
    number("upgradeIndex", 0, kAnyNumber, "writing the index of an upgrade record starts the update")
        .ref("upgrade");
inline constexpr KeyRow kBacklightFlash =
    choice("lcdBacklightFlash", values::enabled, "the display is flashing").read();

// The simulation's own view of a device.
inline constexpr KeyRow kPowered =
    onOff("simPowered", "enabled", "the device is there and answers").internal().silent();
inline constexpr KeyRow kFlash =
    number("simFlash", 0, kAnyNumber, "number of the flash that runs or ran last").internal().silent();
inline constexpr KeyRow kFailure =
    choice("simFailure", values::simFailure, "how the next firmware update fails").internal().silent();
inline constexpr KeyRow kOwed =
    choice("simOwed", values::simOwed, "what was promised and is still to be done, also after a crash")
        .internal()
        .silent();
inline constexpr KeyRow kSwxOf =
    number("simSwx", 0, kAnyNumber, "index of the Switch it is plugged in to").internal();
inline constexpr KeyRow kPortOf =
    number("simPort", 0, 4096, "port of that Switch, from 1; 0 = none").internal();
inline constexpr KeyRow kNextVersion =
    text("simNextVersion", 24, Form::Printable, "firmware that runs after the next reboot")
        .internal()
        .silent();

inline constexpr KeyRow kIpV4[] = {
    choice("ipv4ConfMethod", values::ipv4Method, "where the address comes from").def("dhcp_plus_zeroconf"),
    text("ipAddress", 15, Form::IpV4, "address"),
    text("subnetMask", 15, Form::IpV4, "subnet mask"),
    text("gatewayAddress", 15, Form::IpV4, "gateway"),
    text("ipv4PrimaryDnsServer", 15, Form::IpV4, "preferred name server").read(),
    text("ipv4SecondaryDnsServer", 15, Form::IpV4, "alternate name server").read(),
};
inline constexpr KeyRow kIpV6[] = {
    choice("ipv6ConfMethod", values::ipv6Method, "where the address comes from").def("stateless_only"),
    text("ipAddress", 57, Form::IpV6, "address"),
    number("prefixLength", 1, 128, "prefix length in bits").def("64"),
    text("gatewayAddress", 57, Form::IpV6, "gateway"),
    text("ipv6PrimaryDnsServer", 57, Form::IpV6, "preferred name server").read(),
    text("ipv6SecondaryDnsServer", 57, Form::IpV6, "alternate name server").read(),
};
inline constexpr KeyRow kNetwork[] = {
    object("ipv4", kIpV4, "IPv4"),
    object("ipv6", kIpV6, "IPv6"),
};

inline constexpr KeyRow kSwx[] = {
    kEid,
    deviceName("name of the Switch"),
    kLocation,
    kDescription,
    kNotes,
    kSerial,
    kPart,
    kFirmware,
    choice("detailedDeviceType", values::swxType, "kind of device").read(),
    choice("status", values::swxStatus, "state of the Switch").read(),
    choice("usage", values::swxUsage, "whether its devices may be used").read(),
    kUpgradeStatus,
    kUpgradePercent,
    kUpgradeIndex,
    choice("mode", values::cascadeMode, "place in the cascade").def("slave"),
    choice("cascadeRole", values::cascadeRole, "role in the cascade").read(),
    object("network", kNetwork, "addresses of the Switch"),
    onOff("ntpEnable", "disabled", "time from a time server"),
    text("primaryNtpIpAddress", 255, Form::Host, "first time server"),
    text("secondaryNtpIpAddress", 255, Form::Host, "second time server"),
    choice("ntpStatus", values::ntpStatus, "state of the time service").def("inactive").read(),
    number("currentSysTime", 0, kAnyNumber, "its clock, in seconds since 1970 UTC").read().silent(),
    kReset,
    kBacklightFlash,
    kFlash,
    kPowered,
    kNextVersion,
    kFailure,
    kOwed,
    number("simPortCount", 1, 4096, "number of ports").def("36").internal(),
};

inline constexpr KeyRow kVideoTiming[] = {
    number("horizontalResolution", 0, kAnyNumber, "visible pixels of a line").read(),
    number("verticalResolution", 0, kAnyNumber, "visible lines").read(),
    number("pixelClockFrequency", 0, kAnyNumber, "pixel clock in kHz").read(),
    choice("horizontalSyncPolarity", values::syncPolarity, "polarity of the horizontal pulse").read(),
    number("horizontalFrontPorch", 0, kAnyNumber, "pixels").read(),
    number("horizontalSyncWidth", 0, kAnyNumber, "pixels").read(),
    number("horizontalBackPorch", 0, kAnyNumber, "pixels").read(),
    choice("verticalSyncPolarity", values::syncPolarity, "polarity of the vertical pulse").read(),
    number("verticalFrontPorch", 0, kAnyNumber, "lines").read(),
    number("verticalSyncWidth", 0, kAnyNumber, "lines").read(),
    number("verticalBackPorch", 0, kAnyNumber, "lines").read(),
};

inline constexpr KeyRow kRx[] = {
    kEid,
    deviceName("name of the Receiver"),
    kLocation,
    kDescription,
    kNotes,
    kSerial,
    kPart,
    kFirmware,
    choice("detailedDeviceType", values::rxType, "generation of the Receiver").read(),
    choice("status", values::deviceStatus, "state of the Receiver").read(),
    choice("usage", values::deviceUsage, "whether it may be used").read(),
    kUpgradeStatus,
    kUpgradePercent,
    kUpgradeIndex,
    onOff("autoLoginControl", "disabled", "a user is logged in when it starts"),
    number("autoLoginUserIndex", 0, kAnyNumber, "that user, 0 = none").ref("user"),
    onOff("autoConnectControl", "disabled", "a session is connected at login"),
    text("autoConnectTxEid", 13, Form::Eid, "EID of the Transmitter of that session"),
    choice("autoConnectMode", values::connectionMode, "mode of that session"),
    choice("usbMode", values::usbMode, "USB devices let through").def("all_devices"),
    onOff("lcdBacklightControl", "enabled", "its display is lit"),
    choice("modeAllowed", values::accessMode, "session modes allowed").def("share_or_private_mode"),
    onOff("videoScaling", "enabled", "the picture is scaled to the monitor"),
    onOff("audioControl", "enabled", "sound output"),
    onOff("microphoneControl", "disabled", "microphone"),
    onOff("autoEnumerateKeyboard", "enabled", "the keyboard is announced at connection"),
    onOff("autoEnumerateMouse", "enabled", "the mouse is announced at connection"),
    number("sessionInactivityTimeout", 0, 1440, "minutes, 0 = never"),
    number("sharingInactivityTimeout", 0, 25, "seconds until another sharer may take control").def("2"),
    choice("usbLogLevel", values::usbLogLevel, "USB log level"),
    choice("keyboardLayout", values::keyboardLayout, "layout of the attached keyboard").def("us").read(),
    object("inputVideoTiming", kVideoTiming, "picture that comes from the Transmitter").read(),
    object("outputVideoTiming", kVideoTiming, "picture sent to the monitor").read(),
    object("monPrefVideoTiming", kVideoTiming, "picture the monitor asks for").read(),
    kReset,
    kBacklightFlash,
    kFlash,
    kPowered,
    kSwxOf.also(2),
    kPortOf.also(2),
    kNextVersion,
    kFailure,
    kOwed,
    binary("simMonitor", 0, 256, "EDID of the attached monitor").internal().silent(),
};

inline constexpr KeyRow kTx[] = {
    kEid.also(10),
    deviceName("name of the Transmitter").also(10),
    kLocation,
    kDescription,
    kNotes,
    kSerial,
    kPart,
    kFirmware,
    choice("detailedDeviceType", values::txType, "kind of video input").read(),
    choice("status", values::deviceStatus, "state of the Transmitter").read(),
    choice("usage", values::deviceUsage, "whether it may be used").read(),
    kUpgradeStatus,
    kUpgradePercent,
    kUpgradeIndex,
    number("iconIndex", 0, 32, "picture shown for it, 0 = none"),
    onOff("wakeOnLan", "disabled", "its computer is woken at connection"),
    text("wakeOnLanMacAddress", 23, Form::Mac, "address of the computer to wake"),
    choice("usbMode", values::usbMode, "USB devices let through").def("all_devices"),
    onOff("lcdBacklightControl", "enabled", "its display is lit"),
    choice("modeAllowed", values::accessMode, "session modes allowed").def("share_or_private_mode"),
    choice("trafficSetting", values::trafficPriority, "which traffic goes first").def("video_priority"),
    onOff("audioControl", "enabled", "sound output"),
    onOff("microphoneControl", "disabled", "microphone input"),
    kReset,
    kBacklightFlash,
    kFlash,
    kPowered,
    kSwxOf.also(2),
    kPortOf.also(2),
    kNextVersion,
    kFailure,
    kOwed,
    binary("simEdid", 0, 256, "EDID shown to the computer").internal().silent(),
    number("simVideoMode", 0, 64, "number of the video mode that the computer sends").internal().silent(),
};

inline constexpr KeyRow kPort[] = {
    number("portIndex", 1, 4096, "number of the port").read(),
    number("remotePort", 0, 4096, "port at the other end, 0 = none").read(),
    choice("deviceType", values::deviceType, "what is plugged in").read(),
    text("eid", 13, Form::Eid, "its EID").read(),
    choice("portState", values::portState, "state of the port").read(),
};
inline constexpr KeyRow kPortStatus[] = {
    number("swxIndex", 0, kAnyNumber, "the Switch, 0 when there is none of that number").read().ref("swx"),
    list("ports", kPort, 4096, "its ports").read(),
};

} // namespace zeqd::rows
