// Keys of the system's own records and of the libraries it keeps.
#pragma once

#include "platform/service/catalogue/UserRows.h"

namespace zeqd::rows {

inline constexpr KeyRow kEdid[] = {
    text("name", 40, Form::Printable, "name of the monitor").once().need(),
    text("description", 64, Form::PrintableLines, "remarks"),
    binary("data", 128, 256, "EDID blocks of 128 bytes").need().create(),
    choice("isProtected", values::initialized, "may be neither changed nor deleted").read(),
};

inline constexpr KeyRow kUpgrade[] = {
    choice("protocol", values::protocol, "how the file is fetched").need().create(),
    text("location", 255, Form::Printable, "server").create(),
    text("filename", 255, Form::Printable, "path of the file").need().create(),
    text("username", 64, Form::Printable, "login at the server"),
    text("password", 64, Form::Printable, "password at the server").with(Secret::Masked),
    choice("deviceType", values::deviceType, "kind of device, none until the file was looked at").read(),
    text("version", 24, Form::Printable, "version, once the file was looked at").maybe().read(),
};

inline constexpr KeyRow kRapParameters[] = {
    choice("telnetAccess", values::enabled, "remote access by telnet").def("disabled"),
    number("telnetPort", 1024, 65535, "TCP port of telnet").def("2323"),
    choice("sshAccess", values::enabled, "remote access by SSH").def("disabled"),
    number("sshPort", 1024, 65535, "TCP port of SSH").def("2222"),
    text("sshPassword", 64, Form::NoBlank, "password of SSH").with(Secret::Hashed),
    number("sessionInactivityTimeout", 0, 1440, "minutes, 0 = never").def("15"),
};

constexpr KeyRow setting(std::string_view key, std::string_view fallback, std::string_view help) {
    return choice(key, values::enabled, help).def(fallback);
}

inline constexpr KeyRow kSystemGlobals[] = {
    choice("managedSetting", values::managedSetting, "whether a manager rules this Switch"),
    setting("fullMirlWhenManaged", "disabled", "the full interface stays up when managed"),
    number("switchApiPort", 0, 65535, "TCP port of the Switch's API").def("443"),
    number("managerApiPort", 0, 65535, "TCP port of the manager's API").def("443"),
    text("managerIpAddress", 57, Form::Ip, "primary manager"),
    text("auxiliaryManagerIpAddress", 57, Form::Ip, "auxiliary manager"),
    choice("preferredManager", values::managerServer, "manager used when both answer").read(),
    choice("currentManager", values::managerServer, "manager in use").read(),
    choice("commStatusRestClientPrimary", values::upDown, "requests to the primary manager").read(),
    choice("commStatusRestServerPrimary", values::upDown, "requests from the primary manager").read(),
    choice("commStatusRestClientAuxiliary", values::upDown, "requests to the auxiliary manager").read(),
    choice("commStatusRestServerAuxiliary", values::upDown, "requests from the auxiliary manager").read(),
    text("masterSwitchEid", 13, Form::Eid, "EID of the master Switch"),
    text("peerControllerSwitchEid", 13, Form::Eid, "EID of the linked peer, empty = none").read(),
    choice("cascadeController", values::cascadeController, "who controls the cascade now").read(),
    number("mirlInactivityTimeout", 0, 1440, "minutes, 0 = never").def("10"),
    setting("mirlBannerEnable", "disabled", "a banner is shown before the login"),
    text("mirlBannerText", 1024, Form::PrintableLines, "text of that banner"),
    text("mirlCustomHelpLink", 1024, Form::Url, "address of the help pages"),
    choice("rxOsdHotKey", values::osdHotKey, "keys that open the on-screen display before a login"),
    object("customKeys", kCustomKeys, "the sequence when that hot key is custom"),
    setting("rxOsdBannerEnable", "disabled", "a banner is shown on Receivers"),
    text("rxOsdBannerText", 450, Form::PrintableLines, "text of that banner"),
    setting("resetAfterUpgrade", "enabled", "devices reboot after a firmware update"),
    number("backlightFlashDuration", 1, 86400, "seconds a display flashes").def("30"),
    text("syslogDest", 57, Form::Ip, "syslog server"),
    object("rapParameters", kRapParameters, "remote access"),
    setting("simManager", "enabled", "the primary manager answers").internal(),
};

inline constexpr KeyRow kCfgDefaults[] = {
    number("rxDefaultOsdInactivityTimeout", 0, 1440, "of new users, in minutes"),
    number("rxDefaultSessionInactivityTimeout", 0, 1440, "of new Receivers, in minutes"),
    choice("txDefaultUsbMode", values::usbMode, "of new Transmitters").def("all_devices"),
    choice("txDefaultTrafficPriority", values::trafficPriority, "of new Transmitters").def("video_priority"),
};

inline constexpr KeyRow kEventLogControl[] = {
    setting("error", "enabled", "errors go to the event log"),
    setting("warning", "enabled", "warnings go to the event log"),
    setting("info", "enabled", "informational events go to the event log"),
};

inline constexpr KeyRow kChangeStatus[] = {
    number("lastChange", 1, kAnyNumber,
           "grows whenever data of that kind changes; from 1, so that a reader that knows 0 sees news")
        .def("1")
        .read(),
};

inline constexpr KeyRow kAlert[] = {
    number("instanceId", 1, kAnyNumber, "number of the event; in every row, selected or not").read(),
    number("date", 0, kAnyNumber, "seconds since 1970 UTC").read(),
    text("originatorEid", 13, Form::Eid, "EID of the device it comes from").read(),
    choice("severity", values::severity, "severity").read(),
    text("alertMsg", 1000, Form::Any, "what happened").read(),
};

inline constexpr KeyRow kPendingSettings[] = {
    binary("data", 0, 64U << 20, "the settings as JSON text").internal(),
};

} // namespace zeqd::rows
