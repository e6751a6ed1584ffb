#include "platform/ctl/ErrorText.h"

namespace zeqctl {

namespace {

constexpr struct {
    int number;
    const char* text;
} kErrors[] = {
    {1, "general failure"},
    {4, "operation timed out"},
    {6, "subsystem not initialized"},
    {7, "not found"},
    {8, "capacity reached"},
    {9, "invalid parameter"},
    {10, "value out of range"},
    {11, "value not unique"},
    {12, "invalid enumerated value"},
    {13, "too short"},
    {14, "too long"},
    {15, "too large"},
    {16, "bad content"},
    {17, "invalid format"},
    {18, "device type mismatch"},
    {1001, "invalid syntax"},
    {1002, "missing method"},
    {1003, "missing resource"},
    {1004, "invalid method"},
    {1005, "invalid resource"},
    {1006, "method not supported"},
    {1007, "missing parameters"},
    {1008, "missing key"},
    {1009, "no entries"},
    {1010, "invalid enumeration"},
    {1011, "invalid binary length"},
    {1012, "value too long, truncated"},
    {1013, "unknown parameter"},
    {1014, "resource is in use"},
    {1101, "device not online"},
    {1102, "user name or password not present in the request"},
    {1103, "user name or password wrong"},
    {1104, "account is not enabled"},
    {1105, "user lacks the required authorization"},
    {1106, "operation not allowed"},
    {1107, "Switch not online"},
    {1108, "Receiver not online"},
    {1109, "Transmitter not online"},
    {1110, "Switch already resetting"},
    {1111, "Receiver already resetting"},
    {1112, "Transmitter already resetting"},
    {1113, "Switch not ready"},
    {1114, "reset mode not supported by the Receiver"},
    {1115, "reset mode not supported by the Transmitter"},
    {1116, "icon file cannot be created"},
    {1117, "icon file cannot be removed"},
    {1118, "icon file cannot be reverted"},
    {1119, "a user is already logged in at the Receiver"},
    {1120, "connection topology error"},
    {1121, "private session asked for, but the Transmitter is connected"},
    {1122, "shared session asked for, but the Transmitter is in private use"},
    {1123, "limit of shared sessions reached"},
    {1124, "Receiver already connected"},
    {1125, "no path available"},
    {1126, "invalid cascade change"},
    {1127, "backup controller not ready"},
    {1128, "restore not permitted with a linked peer"},
    {1129, "network change not permitted on a backup controller"},
    {1130, "an offline peer cannot be deleted"},
};

} // namespace

const char* errorText(int number) {
    for (const auto& row : kErrors) {
        if (row.number == number) return row.text;
    }
    return "unknown error";
}

} // namespace zeqctl
