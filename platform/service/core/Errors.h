// Error numbers of answers. Readers translate them; a detail names what was wrong.
#pragma once

#include <string>
#include <vector>

namespace zeqd {

enum class Errno : int {
    General = 1,
    TimedOut = 4,
    NotInitialized = 6,
    NotFound = 7,
    Capacity = 8,
    InvalidParameter = 9,
    OutOfRange = 10,
    NotUnique = 11,
    TooShort = 13,
    TooLong = 14,
    TooLarge = 15,
    BadContent = 16,
    InvalidFormat = 17,
    DeviceTypeMismatch = 18,
    InvalidSyntax = 1001,
    MissingMethod = 1002,
    MissingResource = 1003,
    InvalidMethod = 1004,
    InvalidResource = 1005,
    MethodNotSupported = 1006,
    MissingParameters = 1007,
    MissingKey = 1008,
    NoEntries = 1009,
    InvalidEnumeration = 1010,
    InvalidBinaryLength = 1011,
    UnknownParameter = 1013,
    InUse = 1014,
    DeviceNotOnline = 1101,
    CredentialsMissing = 1102,
    CredentialsWrong = 1103,
    AccountDisabled = 1104,
    NotAuthorized = 1105,
    NotAllowed = 1106,
    SwxNotOnline = 1107,
    RxNotOnline = 1108,
    TxNotOnline = 1109,
    SwxResetting = 1110,
    RxResetting = 1111,
    TxResetting = 1112,
    SwxNotReady = 1113,
    RxResetModeNotSupported = 1114,
    TxResetModeNotSupported = 1115,
    RxUserSessionActive = 1119,
    Topology = 1120,
    PrivateToConnectedTx = 1121,
    ShareToPrivateTx = 1122,
    ShareLimit = 1123,
    RxAlreadyConnected = 1124,
    NoPath = 1125,
    InvalidCascadeChange = 1126,
    BackupNotReady = 1127,
    RestoreWithLinkedPeer = 1128,
    NetworkChangeOnBackup = 1129,
    DeleteOfflinePeer = 1130,
};

struct Error {
    Errno number;
    std::string detail; ///< text, or a message key that begins with "service.detail."; may be empty
};

using Errors = std::vector<Error>;

/// An error list longer than this is cut: a request with ten thousand bad keys is one mistake.
constexpr std::size_t kMaxErrors = 32;

inline void addError(Errors& errors, Errno number, std::string detail = {}) {
    if (errors.size() < kMaxErrors) errors.push_back({number, std::move(detail)});
}

} // namespace zeqd
