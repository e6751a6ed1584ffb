#pragma once

// The enumerated values of the database as numbers. Every enumeration starts at 1; the numbers are those that
// the typed getters of the client library return. The strings and the user's words are in InfoTables.h. The
// kinds of devices stand at the end: they are the lists' own.

/// "status" of "rx" and "tx".
enum class Info_DeviceStatus : unsigned { Offline = 1, Configuring, Ready, ResetPending, InRecovery };

/// "status" of "swx".
enum class Info_SwxStatus : unsigned {
    Offline = 1,
    DcConnected,
    ConflictIsMaster,
    ConflictOtherMaster,
    IscFailure,
    Ready,
    Resetting
};

/// "upgradeStatus" of "swx", "rx" and "tx".
enum class Info_DeviceUpgradeStatus : unsigned {
    Idle = 1,
    Upgrading,
    Failed,
    FailedFileGet,
    FailedFileContent,
    FailedDevType,
    FailedFilePush,
    FailedFlash,
    Complete
};

/// "usage" of "rx" and "tx".
enum class Info_DeviceUsage : unsigned { Usable = 1, NotUsableSwxCapacity, NotUsableSwxMaintenance };

/// "usage" of "swx".
enum class Info_SwxUsage : unsigned { Usable = 1, ExceedsUnmanagedCapacity, Maintenance };

/// "modeAllowed" of "user", "rx" and "tx".
enum class Info_AccessMode : unsigned { Share = 1, Private, ShareOrPrivate };

/// "mode" of "connection"; shares its numbers with Info_AccessMode. None = the record holds neither mode.
enum class Info_ConnectionMode : unsigned { None = 0, Share = 1, Private };

/// "role" of "user".
enum class Info_UserRole : unsigned { User = 1, Admin };

/// "functionKey" of an OSD short cut.
enum class Info_FunctionKey : unsigned { None = 1, F1, F2, F3, F4, F5, F6, F7, F8, F9, F10, F11, F12 };

/// "action" of an OSD short cut.
enum class Info_OsdCommonAction : unsigned {
    None = 1,
    ConnectLastTarget,
    ConnectPreviousTarget,
    ConnectNextTarget,
    ConnectToTargetX,
    LogoutAndDisconnect,
    EnumerateKeyboard,
    EnumerateMouse,
    EnumerateKeyboardAndMouse,
    EnumerateAllUsbDevices
};

/// What a Receiver sends to wake the computer when it connects.
enum class Info_WakeOnConnectAction : unsigned { None = 1, Keypress, MouseMove };

/// What a list row or a selection is. None also stands for a mix of kinds.
enum class Info_DeviceType : unsigned { None = 1, Receiver, Transmitter, Switch };

enum class Info_DetailedDeviceType : unsigned {
    None = 1,
    ReceiverG1,
    TransmitterDvi,
    TransmitterVga,
    Switch,
    ReceiverG2
};
