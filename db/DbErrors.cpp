// What the service refuses, in the user's words.

#include "db/Db.h"
#include "platform/client/EventLog.h"
#include "platform/client/ZeqRsp.h"

#include <Wt/WString>

namespace {

struct ErrorRow {
    int number;
    const char* key;
};

constexpr ErrorRow sLookupTable[] = {
    {1, "[RSnnn]General failure"},
    {4, "[RSnnn]Operation timed out"},
    {6, "[RSnnn]Subsystem not initialized"},
    {7, "[RSnnn]Not found"},
    {8, "[RSnnn]Capacity reached"},
    {9, "[RSnnn]Invalid parameter"},
    {10, "[RSnnn]Value out of range"},
    {11, "[RSnnn]Value not unique"},
    {12, "[RSnnn]Invalid enumerated value"},
    {13, "[RSnnn]Too short"},
    {14, "[RSnnn]Too long"},
    {15, "[RSnnn]Too large"},
    {16, "[RSnnn]Bad content"},
    {17, "[RSnnn]Invalid format"},
    {18, "[RSnnn]Device type mismatch"},
    {1001, "[RSnnn]Invalid syntax"},
    {1002, "[RSnnn]Missing method"},
    {1003, "[RSnnn]Missing resource"},
    {1004, "[RSnnn]Invalid method"},
    {1005, "[RSnnn]Invalid resource"},
    {1006, "[RSnnn]Method not supported"},
    {1007, "[RSnnn]Missing parameter(s)"},
    {1008, "[RSnnn]Missing key"},
    {1009, "[RSnnn]No entries"},
    {1010, "[RSnnn]Invalid enumeration"},
    {1011, "[RSnnn]Invalid binary length"},
    {1012, "[RSnnn]Value too long -- truncated"},
    {1013, "[RSnnn]Unknown parameter"},
    {1014, "[RSnnn]Resource is in use"},
    {1101, "[RSnnn]Device Not Online"},
    {1102, "[RSnnn]Username or Password not present in request"},
    {1103, "[RSnnn]Unable to authenticate user with supplied credentials"},
    {1104, "[RSnnn]User exists, but their account is not enabled"},
    {1105, "[RSnnn]User does not have the required authorization"},
    {1106, "[RSnnn]The operation was not allowed"},
    {1107, "[RSnnn]Swx not online"},
    {1108, "[RSnnn]Rx not online"},
    {1109, "[RSnnn]Tx not online"},
    {1110, "[RSnnn]Swx already resetting"},
    {1111, "[RSnnn]Rx already resetting"},
    {1112, "[RSnnn]Tx already resetting"},
    {1113, "[RSnnn]Swx not ready"},
    {1114, "[RSnnn]Rx reset mode not supported"},
    {1115, "[RSnnn]Tx reset mode not supported"},
    {1116, "[RSnnn]Icon unable to create file"},
    {1117, "[RSnnn]Icon unable to remove file"},
    {1118, "[RSnnn]Icon unable to revert file"},
    {1119, "[RSnnn]Rx user session already active"},
    {1120, "result.failure.connection_topology_error"},
    {1121, "result.failure.connection_topology_private_attempt_to_connected_tx"},
    {1122, "result.failure.connection_topology_share_attempt_to_busy_private_tx"},
    {1123, "result.failure.connection_topology_share_limit"},
    {1124, "result.failure.connection_topology_rx_already_connected"},
    {1125, "result.failure.connection_topology_no_path_available"},
    {1126, "result.failure.invalid_cascade_change"},
    {1127, "result.failure.backup_controller_not_ready"},
    {1128, "result.failure.restore_not_permitted_with_linked_peer"},
    {1129, "result.failure.net_change_not_permitted_on_backup_controller"},
    {1130, "result.failure.delete_offline_peer_not_permitted"},
};
static_assert(sizeof sLookupTable / sizeof sLookupTable[0] == 59);

constexpr int kNoEntries = 1009;

std::string errorText(int number, const char* function) {
    const char* key = nullptr;
    for (const ErrorRow& row : sLookupTable)
        if (row.number == number) key = row.key;
    if (key) return Wt::WString::tr(key).toUTF8();
    EventLog_write(2, 7, function, "Unknown ZEQ error number %d.", number);
    return "[RSnnn]Unknown error";
}

// The detail is a message key or a text. The toolkit marks a key that it does not know;
// the marks stay in the message.
std::string detailText(const std::string& detail, const char* function) {
    const std::string text = Wt::WString::tr(detail).toUTF8();
    if (text == "??" + detail + "??")
        EventLog_write(1, 7, function, "Untranslated ZEQ error detail string: \"%s\"", detail);
    return text;
}

} // namespace

void Db::interpZeqErrors(const json_t* errorsArray, Errors& errors, bool ignoreNoEntries) {
    const int rows = ZeqRspUtil_numEntries(errorsArray);
    for (int row = 0; row < rows; ++row) {
        const int number = static_cast<int>(ZeqRspUtil_getIndexedIntegerParam(errorsArray, row, "errno"));
        const char* detail = ZeqRspUtil_getIndexedStringParam(errorsArray, row, "detail");
        std::string message = errorText(number, __func__);
        if (detail) message += ": " + detailText(detail, __func__);
        message += ".";
        if (!(ignoreNoEntries && number == kNoEntries)) errors.push_back(std::move(message));
    }
}

void Db::logZeqErrors(const Errors& errors) {
    // The text is the format itself, as the log's other readers expect it;
    // the log is safe against a "%" in it.
    for (const std::string& text : errors) EventLog_write(1, 7, __func__, text);
}
