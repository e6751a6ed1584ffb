#pragma once

/// The tabs of the details pane, in their order: those of a Receiver, a Transmitter, a Switch.
enum class DevTab {
    RxAttribs,
    RxSettings,
    RxStatus,
    RxVideo,
    RxUsb,
    TxAttribs,
    TxSettings,
    TxStatus,
    TxSessions,
    TxUsb,
    SwxMode,
    SwxAttribs,
    SwxIpV4Settings,
    SwxIpV6Settings,
    SwxNtp,
    SwxStatus,
    SwxPorts
};
