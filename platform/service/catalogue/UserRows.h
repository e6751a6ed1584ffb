// Keys of the users, their sessions and the sessions between devices.
#pragma once

#include "platform/service/catalogue/ValueLists.h"

namespace zeqd::rows {

constexpr std::uint32_t kMaxFavorites = 32;
constexpr std::uint32_t kMaxTargets = 20000;

inline constexpr KeyRow kCustomKeys[] = {
    number("length", 0, 2, "number of keys in the sequence"),
    binary("sequence", 2, 2, "two USB keyboard usage codes; unused ones are 0"),
};
inline constexpr KeyRow kOsdHotKey[] = {
    choice("hotKey", values::osdHotKey, "keys that open the on-screen display"),
    object("customKeys", kCustomKeys, "the sequence when the hot key is custom"),
};
inline constexpr KeyRow kOsdShortCut[] = {
    choice("functionKey", values::functionKey, "F1 to F12; names the entry").need(),
    choice("action", values::osdAction, "what the key does"),
    text("txEID", 13, Form::Eid, "EID of the target of connect_to_target_x"),
};
inline constexpr KeyRow kKeySettings[] = {
    list("osdShortCuts", kOsdShortCut, 12,
         "the twelve function keys; an entry with functionKey alone changes nothing")
        .merged("functionKey"),
    object("osdHotKey", kOsdHotKey, "key sequence of the on-screen display"),
};
inline constexpr KeyRow kTargetEntry[] = {
    number("txIndex", 1, kAnyNumber, "index of a Transmitter").ref("tx").need(),
};

constexpr KeyRow warning(std::string_view key, std::string_view help) {
    return choice(key, values::enabled, help).def("enabled");
}

inline constexpr KeyRow kUser[] = {
    text("name", 20, Form::AlphaNumeric, "login name").once().need(),
    text("mgrName", 64, Form::Printable, "name given by a manager").read(),
    text("fullName", 40, Form::Printable, "full name"),
    choice("role", values::userRole, "what the user may do").need(),
    text("password", 20, Form::NoBlank, "password").with(Secret::Hashed),
    choice("passwordIsInitialized", values::initialized, "a password has been set"),
    choice("accountEnable", values::enabled, "the account may be used").def("enabled"),
    choice("allowBlankPassword", values::enabled, "an empty password is allowed").def("disabled"),
    choice("allowPasswordChange", values::enabled, "the user may change the password").def("enabled"),
    choice("allTargetAccess", values::enabled, "every Transmitter is allowed").def("disabled").also(10),
    choice("modeAllowed", values::accessMode, "session modes allowed").def("share_or_private_mode"),
    choice("usbMode", values::usbMode, "USB devices let through").def("all_devices"),
    number("osdInactivityTimeout", 0, 1440, "minutes, 0 = never"),
    object("keySettings", kKeySettings, "keys of the on-screen display"),
    list("favorite", kTargetEntry, kMaxFavorites, "favourite targets, in the user's order"),
    list("target", kTargetEntry, kMaxTargets, "targets the user may connect to").also(10),
    choice("provisional", values::enabled,
           "goes with the connection that made it, unless a change of the account comes first")
        .def("disabled")
        .create(),
    number("simClient", 0, kAnyNumber, "connection that a provisional account goes with").internal().silent(),
    warning("enableClearEventHistoryWarning", "ask before the event history is cleared"),
    warning("enableDeleteMonitorWarning", "ask before a monitor is deleted"),
    warning("enableDeleteUserWarning", "ask before a user is deleted"),
    warning("enableDisconnectSessionWarning", "ask before a session is disconnected"),
    warning("enableLogoutUnsavedChangesWarning", "ask before unsaved changes are lost at logout"),
    warning("enableLogoutUserWarning", "ask before a user is logged out"),
    warning("enableRemoveDevicesWarning", "ask before devices are removed"),
    warning("enableRemoveOfflineDevicesWarning", "ask before offline devices are removed"),
    warning("enableResetDevicesWarning", "ask before devices are rebooted"),
    warning("enableRestoreFactoryDefaultsWarning", "ask before factory defaults are restored"),
};

/// The target list of a user by itself: a view of "user".
inline constexpr KeyRow kUserTargetList[] = {
    list("target", kTargetEntry, kMaxTargets, "targets the user may connect to"),
};

inline constexpr KeyRow kUserSession[] = {
    number("userIndex", 1, kAnyNumber, "the user").ref("user").need().create(),
    number("rxIndex", 1, kAnyNumber, "the Receiver").ref("rx").need().create(),
    number("sessionStartTime", 0, kAnyNumber, "seconds since 1970 UTC").read(),
    choice("simOperator", values::enabled, "a simulated operator, who also leaves by himself")
        .def("disabled")
        .internal()
        .silent(),
};

inline constexpr KeyRow kAdminSession[] = {
    text("username", 60, Form::Any, "login name").create(),
    text("password", 60, Form::Any, "password").with(Secret::Hashed).act(),
    text("resumeKey", 64, Form::AlphaNumeric, "instead of a password: what an earlier login was answered")
        .act(),
    text("sessionType", 16, Form::AlphaNumeric,
         "kind of session; one of type mirl ends with its client's connection")
        .create(),
    text("ipAddress", 64, Form::Printable, "address the administrator comes from").create(),
    number("userIndex", 1, kAnyNumber, "the user").ref("user").read(),
    number("sessionStartTime", 0, kAnyNumber, "seconds since 1970 UTC").read(),
    number("simClient", 0, kAnyNumber, "connection of the client that made it").internal().silent(),
};

inline constexpr KeyRow kConnection[] = {
    number("rxIndex", 1, kAnyNumber, "the Receiver").ref("rx").need().create(),
    number("txIndex", 1, kAnyNumber, "the Transmitter").ref("tx").need().create(),
    choice("mode", values::connectionMode, "shared or private").create(),
    text("rxEid", 13, Form::Eid, "EID of the Receiver").read(),
    text("txEid", 13, Form::Eid, "EID of the Transmitter").read(),
    number("sessionStartTime", 0, kAnyNumber, "seconds since 1970 UTC").read(),
    number("simEndsAt", 0, kAnyNumber, "seconds since 1970 UTC: it ends then without a key; 0 = never")
        .internal()
        .silent(),
};

} // namespace zeqd::rows
