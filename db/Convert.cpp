#include "db/Convert.h"

#include "db/InfoTables.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>

Info_DeviceStatus Convert_deviceStatusStringToEnum(const char* text) {
    return valueOfString(kDeviceStatusTable, text);
}

Info_SwxStatus Convert_swxStatusStringToEnum(const char* text) {
    return valueOfString(kSwxStatusTable, text);
}

Info_DeviceUpgradeStatus Convert_deviceUpgradeStatusStringToEnum(const char* text) {
    return valueOfString(kDeviceUpgradeStatusTable, text);
}

Info_DeviceUsage Convert_deviceUsageStringToEnum(const char* text) {
    return valueOfString(kDeviceUsageTable, text);
}

Info_SwxUsage Convert_swxUsageStringToEnum(const char* text) {
    return valueOfString(kSwxUsageTable, text);
}

Info_FunctionKey Convert_functionKeyStringToEnum(const char* text) {
    return valueOfString(kFunctionKeyTable, text);
}

Info_OsdCommonAction Convert_osdCommonActionStringToEnum(const char* text) {
    return valueOfString(kOsdCommonActionTable, text);
}

Info_WakeOnConnectAction Convert_wakeOnConnectActionStringToEnum(const char* text) {
    return valueOfString(kWakeOnConnectActionTable, text);
}

Info_AccessMode Convert_accessModeDbStringToEnum(const std::string& text) {
    const EnumRow<Info_AccessMode>* row = rowOfString(kAccessModeTable, text);
    return row ? row->value : Info_AccessMode::ShareOrPrivate;
}

Info_ConnectionMode Convert_connectionModeDbStringToEnum(const std::string& text) {
    const EnumRow<Info_ConnectionMode>* row = rowOfString(kConnectionModeTable, text);
    return row ? row->value : Info_ConnectionMode::None;
}

const char* Convert_functionKeyEnumToZeqString(Info_FunctionKey key) {
    const EnumRow<Info_FunctionKey>* row = rowOfValue(kFunctionKeyTable, key);
    return row ? row->dbValue.data() : "none";
}

const char* Convert_osdCommonActionEnumToZeqString(Info_OsdCommonAction action) {
    const EnumRow<Info_OsdCommonAction>* row = rowOfValue(kOsdCommonActionTable, action);
    return row ? row->dbValue.data() : "";
}

unsigned Convert_stringToUInt32(const std::string& text, unsigned& value) {
    char* end = nullptr;
    const unsigned long parsed = std::strtoul(text.c_str(), &end, 10);
    value = static_cast<unsigned>(std::min<unsigned long>(parsed, std::numeric_limits<unsigned>::max()));
    return end == text.c_str() + text.size() ? 0 : 1;
}

void Convert_dateTimeStampToString(long seconds, char* buffer, int size) {
    if (size <= 0) return;
    const std::time_t stamp = seconds;
    std::tm local{};
    if (!localtime_r(&stamp, &local)) local = {};
    if (local.tm_mon > 11) local.tm_mon = 1;
    std::snprintf(buffer, static_cast<std::size_t>(size), "%d-%d-%d %02d:%02d:%02d", local.tm_year + 1900,
                  local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
}
