// Parameters of the resources whose writing starts an action.
#pragma once

#include "platform/service/catalogue/ValueLists.h"

namespace zeqd::rows {

inline constexpr KeyRow kAlertsControl[] = {
    choice("alertsAction", values::alertsAction, "what to do").need().act(),
    number("alertInstanceId", 1, kAnyNumber, "the event of ack_specific").act(),
};
inline constexpr KeyRow kEdidControl[] = {
    choice("edidAction", values::edidAction, "pull from a device or push to one").need().act(),
    number("rxIndex", 1, kAnyNumber, "Receiver to pull from").ref("rx").act(),
    number("txIndex", 1, kAnyNumber, "Transmitter to pull from or push to").ref("tx").act(),
    number("edidIndex", 1, kAnyNumber, "record to push").ref("edid").act(),
    text("edidName", 40, Form::Printable, "name of the pulled record").act(),
    text("edidDescription", 255, Form::PrintableLines, "its description, cut to what the record holds").act(),
};

inline constexpr KeyRow kFlashEid =
    text("eid", 13, Form::Eid, "EID of the device whose display flashes").act();
inline constexpr KeyRow kFlashDuration =
    number("lcdBacklightFlashDuration", 0, 86400, "seconds to flash; 0 and 1 stop it").act();

inline constexpr KeyRow kSwxControl[] = {
    choice("cascadeRoleAction", values::cascadeRoleAction, "change of the cascade").act(),
    choice("settingsAction", values::settingsAction, "make or install a settings file").act(),
    text("settingsFilename", 1024, Form::Printable, "path of the file to install").act(),
    text("settingsPassword", 64, Form::Printable, "protects the file; empty = unprotected").act(),
    kFlashEid,
    kFlashDuration,
};
inline constexpr KeyRow kDeviceControl[] = {
    kFlashEid,
    kFlashDuration,
};

inline constexpr KeyRow kSimControl[] = {
    choice("action", values::simAction, "what to do to the simulation").need().act(),
    text("eid", 13, Form::Eid, "the device").act(),
    number("factor", 1, 100000, "time: how much faster than real time").act(),
    number("milliseconds", 0, kAnyNumber, "step: how far the simulated time jumps").act(),
    number("mode", 0, 64, "video: number of the video mode that the computer sends, 0 = none").act(),
    text("resource", 32, Form::AlphaNumeric, "poke: the resource").act(),
    number("record", 0, kAnyNumber, "poke: the record").act(),
    text("key", 64, Form::Printable,
         "poke: the key, also one that only the service writes; alert: a kind of alertLogControl")
        .act(),
    text("value", 1024, Form::Any, "poke: the value, as text").act(),
    choice("severity", values::severity, "alert: severity").act(),
    text("message", 1000, Form::Any, "alert: text").act(),
};

inline constexpr KeyRow kHello[] = {
    number("protocol", 1, 1, "version of the protocol").def("1").read(),
};

} // namespace zeqd::rows
