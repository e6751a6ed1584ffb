#pragma once

#include "db/Info.h"
#include "db/InfoMgr.h"
#include "platform/client/ZeqTypes.h"

#include <atomic>
#include <string>
#include <vector>

struct UserTargets;

/// The one door to the internal database service: small blocking operations in the session that the
/// calling thread serves.
///
/// 1. An operation that can fail returns 0 for success and 1 for failure; out-arguments mean something only
///    after a 0.
/// 2. `errors` is appended to and never cleared. It receives what the service refused, translated, one text
///    for each refusal. Local failures (no client, no request, no answer) are at most log lines: `errors`
///    may stay empty.
/// 3. Record index 0 = none. Reads and writes of single values take it for a singleton, whose request names
///    no record; lookups from a record fail with it, without an exchange.
/// 4. "swx" 1 is this Switch.
/// 5. Texts are UTF-8. Nothing throws.
class Db {
public:
    using Errors = std::vector<std::string>;
    using Indexes = std::vector<unsigned>;

    /// Shared by all sessions; holds nothing of theirs.
    static Db db;

    // The session's client (Db.cpp)

    /// `client` is 0 after a failure. The first failure of the process is logged, the others are not.
    unsigned getZeqClient(ZeqClient_s*& client);
    void closeZeqClient();
    /// Logged-in user of this session, 0 outside a session.
    unsigned getIndexOfCurrentlyLoggedInMirlUsr();
    /// Frees the tree and zeroes the pointer; 0 is allowed.
    void zeqObjFree(json_t*& object);

    // One value of one record (DbValues.cpp)

    unsigned readUInt32(const char* resource, unsigned index, const char* key, unsigned& value,
                        Errors& errors);
    /// An absent key leaves `value` as it was and is no failure.
    unsigned readString(const char* resource, unsigned index, const char* key, std::string& value,
                        Errors& errors);
    /// True for "enabled" in any letter case; an absent key reads as false.
    unsigned readEnableDisable(const char* resource, unsigned index, const char* key, bool& value,
                               Errors& errors);
    unsigned writeUInt32(const char* resource, unsigned index, const char* key, unsigned value,
                         Errors& errors);
    unsigned writeString(const char* resource, unsigned index, const char* key, const char* value,
                         Errors& errors);
    unsigned writeString(const char* resource, unsigned index, const char* key, const std::string& value,
                         Errors& errors);
    unsigned writeEnableDisable(const char* resource, unsigned index, const char* key, bool value,
                                Errors& errors);
    unsigned requestDeviceReboot(const char* resource, unsigned index, Errors& errors);
    /// The index is always sent, also 0.
    unsigned deleteRecordByIndex(const char* resource, unsigned index, Errors& errors);

    // One value of a response already held (DbExtract.cpp)

    unsigned extractUInt32(const json_t* rsp, const char* key, unsigned& value);
    /// An absent key empties `value` and is a failure.
    unsigned extractString(const json_t* rsp, const char* key, std::string& value);
    /// True for exactly "enabled".
    unsigned extractEnableDisable(const json_t* rsp, const char* key, bool& value);

    // The value that several records share (DbMerge.cpp). `same` is false when they differ; the value is then
    // empty, and records behind the first difference are not read.

    unsigned readUInt32Merge(const char* resource, const Indexes& indexes, const char* key, unsigned& value,
                             bool& same, Errors& errors);
    unsigned readStringMerge(const char* resource, const Indexes& indexes, const char* key,
                             std::string& value, Errors& errors);
    unsigned readStringMerge(const char* resource, const Indexes& indexes, const char* key,
                             std::string& value, bool& same, Errors& errors);
    unsigned extractUInt32Merge(const json_t* rsp, const Indexes& indexes, const char* key, unsigned& value,
                                bool& same);
    unsigned extractStringMerge(const json_t* rsp, const Indexes& indexes, const char* key,
                                std::string& value, bool& same);
    unsigned extractEnableDisableMerge(const json_t* rsp, const Indexes& indexes, const char* key,
                                       bool& value, bool& same);

    // Find (DbFind.cpp). No match is a failure that adds nothing to `errors`.

    unsigned findIndexOfStringKey(const char* resource, const char* resultKey, const char* searchKey,
                                  const char* searchValue, unsigned& result, Errors& errors);
    /// A resource without entries is a plain "not found" as well.
    unsigned findIndexOfUInt32Key(const char* resource, const char* key, unsigned value, unsigned& index,
                                  Errors& errors);
    /// `offset` is the row number.
    unsigned findOffsetOfUInt32KeyInZeqRsp(const json_t* rsp, const char* key, unsigned value,
                                           unsigned& offset, Errors& errors);

    // Refusals of the service (DbErrors.cpp)

    /// Appends one translated text for each error object; with `ignoreNoEntries`,
    /// none for "no entries" (1009).
    void interpZeqErrors(const json_t* errorsArray, Errors& errors, bool ignoreNoEntries);
    void logZeqErrors(const Errors& errors);

    // Actions (DbActions.cpp, DbSessions.cpp)

    unsigned clearAllHistoricalAlerts(Errors& errors);
    unsigned ackAllAlerts(Errors& errors);
    unsigned ackSpecificAlert(unsigned instanceId, Errors& errors);
    unsigned pushEdidToTx(unsigned txIndex, unsigned edidIndex, Errors& errors);
    /// deviceType "rx" or "tx".
    unsigned pullEdidFromDevice(const std::string& deviceType, unsigned index, const std::string& name,
                                const std::string& description, Errors& errors);
    /// Sends duration 1 for mode 0, 2 for mode 1, else the mode itself; resource "swxControl",
    /// "rxControl" or "txControl".
    unsigned triggerLcdBacklightFlash(const char* eid, const char* resource, unsigned mode, Errors& errors);
    unsigned createUpgradeRecord(const std::string& protocol, const std::string& location,
                                 const std::string& filename, const std::string& username,
                                 const std::string& password, unsigned& index, Errors& errors);
    /// Logs the user in at the Receiver first; a refused connection does not undo that.
    unsigned createKvmSession(unsigned userIndex, unsigned rxIndex, unsigned txIndex,
                              Info_ConnectionMode mode, Errors& errors);
    /// Also logs the user out of the Receiver, whatever became of the connection.
    /// A refused delete shows only in `errors`.
    unsigned destroyKvmSession(unsigned connectionIndex, Errors& errors);

    // Monitor descriptions (DbEdid.cpp)

    /// videoType is a message key, not translated.
    unsigned getEdidInfo(unsigned edidIndex, std::string& manufacturerId, std::string& productCode,
                         std::string& videoType, Errors& errors);
    unsigned getEdidByName(const std::string& name, char* buffer, unsigned size, Errors& errors);

    // Status of a device (DbStatus.cpp). DeviceState.h asks with less ado.

    unsigned getSwxStatus(unsigned index, Info_SwxStatus& status, Info_DeviceUpgradeStatus& upgrade,
                          Info_SwxUsage& usage, Errors& errors);
    unsigned getRxStatus(unsigned index, Info_DeviceStatus& status, Info_DeviceUpgradeStatus& upgrade,
                         Info_DeviceUsage& usage, bool& loggedIn, Errors& errors);
    unsigned getTxStatus(unsigned index, Info_DeviceStatus& status, Info_DeviceUpgradeStatus& upgrade,
                         Info_DeviceUsage& usage, bool& connected, Info_ConnectionMode& mode, Errors& errors);
    // The text is translated and always assigned. An update in progress reads 0% here: only the Fast forms
    // know the percent.
    unsigned getRxOverallStatus(unsigned index, std::string& text, Errors& errors);
    unsigned getTxOverallStatus(unsigned index, std::string& text, Errors& errors);
    unsigned getSwxOverallStatus(unsigned index, std::string& text, Errors& errors);
    // Without any exchange, for lists that hold the fields of all devices.
    unsigned getFastRxOverallStatus(Info_DeviceStatus status, Info_DeviceUsage usage,
                                    Info_DeviceUpgradeStatus upgrade, unsigned percent, bool loggedIn,
                                    std::string& text);
    unsigned getFastTxOverallStatus(Info_DeviceStatus status, Info_DeviceUsage usage,
                                    Info_DeviceUpgradeStatus upgrade, unsigned percent, bool connected,
                                    Info_ConnectionMode mode, std::string& text);
    unsigned getFastSwxOverallStatus(Info_SwxStatus status, Info_DeviceUpgradeStatus upgrade,
                                     Info_SwxUsage usage, std::string& text);

    // KVM sessions and logins of a device (DbDurations.cpp). Texts are translated;
    // durations as MirlUtil_secsToFormattedTimeString.

    unsigned getSessionModeFromRxIndex(unsigned rxIndex, std::string& text, Errors& errors);
    unsigned getSessionModeFromTxIndex(unsigned txIndex, std::string& text, Errors& errors);
    unsigned getSessionDurationFromRxIndex(unsigned rxIndex, std::string& text, Errors& errors);
    unsigned getSessionDurationFromTxIndex(unsigned txIndex, std::string& text, Errors& errors);
    unsigned getLoginDurationFromRxIndex(unsigned rxIndex, std::string& text, Errors& errors);

    // Names (DbNames.cpp). "NameOrEid" falls back to "EID - " and the EID when the name is empty or cannot be
    // read; the result is that of reading the name.

    unsigned getUsernameFromUserIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getUserFullNameFromUserIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getTxEidFromTxIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getTxNameFromTxIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getRxNameFromRxIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getSwxEidFromSwxIndex(unsigned index, std::string& value, Errors& errors);
    /// "unknown" after a failed read, and 0 all the same.
    unsigned getKeyboardLayoutFromRxIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getRxNameOrEidFromRxIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getTxNameOrEidFromTxIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getSwxNameOrEidFromSwxIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getTxNameOrEidFromUsrSesIndex(unsigned sessionIndex, std::string& value, Errors& errors);

    // Users and their rights (DbUsers.cpp)

    /// The role's word for the user, translated.
    unsigned getUserRoleFromUserIndex(unsigned index, std::string& role, Errors& errors);
    /// The database string.
    unsigned getAllowedAccessModeFromUserIndex(unsigned index, std::string& mode, Errors& errors);
    unsigned getEnableAllTargetAccessFromUserIndex(unsigned index, bool& enabled, Errors& errors);
    unsigned getUserTargets(unsigned userIndex, UserTargets& targets, Errors& errors);
    unsigned getUserTxAccessRight(unsigned userIndex, unsigned txIndex, bool& allowed, Errors& errors);
    bool userIsLoggedInToRx(unsigned userIndex, Errors& errors);
    bool userIsLoggedInToMirl(unsigned userIndex, Errors& errors);
    unsigned getLoggedInUserIndexFromRxIndex(unsigned rxIndex, unsigned& userIndex, Errors& errors);
    /// The name that the manager gave when the user has none of his own.
    unsigned getLoggedInUsernameFromRxIndex(unsigned rxIndex, std::string& value, Errors& errors);
    unsigned getConnectedUsernameFromTxIndex(unsigned txIndex, std::string& value, Errors& errors);

    // Where a device is plugged in (DbPorts.cpp). Up to 50 exchanges a call. A device on no port gives 0:
    // Switch and port stay as they were, and the Switch's name is empty.

    unsigned getSwxIndexAndPortIndexFromRxIndex(unsigned rxIndex, unsigned& swxIndex, unsigned& portIndex,
                                                Errors& errors);
    unsigned getSwxIndexAndPortIndexFromTxIndex(unsigned txIndex, unsigned& swxIndex, unsigned& portIndex,
                                                Errors& errors);
    unsigned getSwxNameOrEidFromRxIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getSwxNameOrEidFromTxIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getSwxNameFromRxIndex(unsigned index, std::string& value, Errors& errors);
    unsigned getSwxNameFromTxIndex(unsigned index, std::string& value, Errors& errors);

    // Role of this Switch (DbRole.cpp). A failed read gives false.

    bool thisSwxIsMaster();
    bool thisSwxIsCascadeController();
    bool thisSwxIsBackupCascadeController();
    bool thisSwxIsManaged();
    /// True as soon as one of the Switches is not a master, and for an empty list.
    bool slaveSwxIsInSet(const Indexes& indexes, Errors& errors);

    // Polling (DbPolling.cpp)

    /// Whether the data changed since this reader last asked. Each reader keeps its own `lastChange` for each
    /// id, 0 at first. A failed read counts as a change.
    bool newDataIsAvailable(InfoMgr_InfoID id, unsigned& lastChange);

private:
    /// A dead service must not flood the log. Set by the first failure of any session, never cleared.
    std::atomic<bool> mClientFailureLogged{false};
};
