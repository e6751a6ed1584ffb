// USB diagnostics of Receivers and Transmitters: counters and flags of their USB controllers,
// as bare numbers.
#pragma once

#include "platform/service/catalogue/ValueLists.h"

namespace zeqd::rows {

constexpr KeyRow diagnostic(std::string_view key, std::uint32_t most, std::string_view help) {
    return number(key, 0, most, help).read();
}

inline constexpr KeyRow kRxUsbDiag[] = {
    diagnostic("srpVersion", 0xFFFF, "version, high byte major"),
    diagnostic("srpStatus", 0xFF, "status"),
    diagnostic("srpFlags", 0xFF, "flags"),
    diagnostic("scpError", 0xFF, "last error"),
    diagnostic("scpFlags", kAnyNumber, "flags"),
    diagnostic("scpPSHeldCount", 0xFF, "packets held"),
    diagnostic("scpPerHeldCount", 0xFF, "periodic packets held"),
    diagnostic("scpCtlHeldCount", 0xFF, "control packets held"),
    diagnostic("scpBulkHeldCount", 0xFF, "bulk packets held"),
    diagnostic("scpRetryHeldCount", 0xFF, "packets held for retry"),
    diagnostic("scpUCount", 0xFFFF, "microframe count"),
    diagnostic("scpPerDropCount", kAnyNumber, "periodic packets dropped"),
    diagnostic("scpOsdActive", 0xFF, "on-screen display is up"),
    diagnostic("scpMemResetReq", 0xFF, "memory reset requested"),
    diagnostic("scpConnectReq", 0xFF, "connection requested"),
    diagnostic("scpConnectActive", 0xFF, "connected"),
    diagnostic("scpDisconnectStatus", 0xFF, "reason of the last disconnection"),
    diagnostic("scpExtensionActive", 0xFF, "extension is active"),
};

inline constexpr KeyRow kTxUsbDiag[] = {
    diagnostic("hcpVersion", 0xFFFF, "version, high byte major"),
    diagnostic("hcpStatus", 0xFF, "status"),
    diagnostic("hcpFlags", 0xFF, "flags"),
    diagnostic("hcpEState", 0xFF, "enumeration state"),
    diagnostic("hcpHub1", 0xFF, "state of the first hub"),
    diagnostic("hcpHub2", 0xFF, "state of the second hub"),
    diagnostic("hcpHid", 0xFF, "keyboard and mouse announced"),
    diagnostic("hcpTxState", 0xFF, "state of the transmitter"),
    diagnostic("hcpGFlags", 0xFF, "global flags"),
    diagnostic("hcpTFlags", 0xFF, "transfer flags"),
    diagnostic("hcpCount", 0xFF, "devices announced"),
    diagnostic("hcpLastDevNum", 0xFF, "last device addressed"),
    diagnostic("hcpLastDevEndPt", 0xFF, "its end point"),
    diagnostic("hrpVersion", 0xFFFF, "version, high byte major"),
    diagnostic("hrpStatus", 0xFF, "status"),
    diagnostic("hspVersion", 0xFFFF, "version, high byte major"),
    diagnostic("hspStatus", 0xFF, "status"),
};

} // namespace zeqd::rows
