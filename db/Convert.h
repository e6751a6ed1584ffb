#pragma once

#include "db/Info.h"

#include <string>

// Conversions between the three forms of an enumerated value: database string, number, user's text. None
// fails: an unknown string gives the first number (unless told otherwise),
// an unknown number the word "unknown".

Info_DeviceStatus Convert_deviceStatusStringToEnum(const char* text);
Info_SwxStatus Convert_swxStatusStringToEnum(const char* text);
Info_DeviceUpgradeStatus Convert_deviceUpgradeStatusStringToEnum(const char* text);
Info_DeviceUsage Convert_deviceUsageStringToEnum(const char* text);
Info_SwxUsage Convert_swxUsageStringToEnum(const char* text);
Info_FunctionKey Convert_functionKeyStringToEnum(const char* text);
Info_OsdCommonAction Convert_osdCommonActionStringToEnum(const char* text);
Info_WakeOnConnectAction Convert_wakeOnConnectActionStringToEnum(const char* text);

/// An unknown text gives ShareOrPrivate, the widest mode.
Info_AccessMode Convert_accessModeDbStringToEnum(const std::string& text);

/// None for a text that is neither mode of a connection.
Info_ConnectionMode Convert_connectionModeDbStringToEnum(const std::string& text);

/// "none" for a number outside F1 to F12.
const char* Convert_functionKeyEnumToZeqString(Info_FunctionKey key);

/// "" for a number outside the table.
const char* Convert_osdCommonActionEnumToZeqString(Info_OsdCommonAction action);

// User's texts, translated, UTF-8. A value outside the field's table reads as unknown.

std::string Convert_alertSeverityDbStringToUiString(const std::string& text);
std::string Convert_syncPolarityDbStringToUiString(const std::string& text);
std::string Convert_portStateDbStringToUiString(const std::string& text);
std::string Convert_deviceTypeDbStringToUiString(const std::string& text);
std::string Convert_detailedDeviceTypeDbStringToUiString(const std::string& text);
std::string Convert_detailedDeviceTypeDbStringToTxSubTypeUiString(const std::string& text);
std::string Convert_deviceStatusDbStringToUiString(const std::string& text);
std::string Convert_accessModeDbStringToUiString(const std::string& text);
std::string Convert_userRoleDbStringToUiString(const std::string& text);
std::string Convert_accessModeEnumToString(Info_AccessMode mode);
std::string Convert_userRoleEnumToString(Info_UserRole role);

/// Decimal parse; value is always set (the number at the front, at most the largest unsigned). 0 when the
/// whole text was a number or empty, else 1.
unsigned Convert_stringToUInt32(const std::string& text, unsigned& value);

/// Seconds since the epoch as local time, "2024-3-7 09:05:00": no leading zero in month and day.
/// Cut to size bytes.
void Convert_dateTimeStampToString(long seconds, char* buffer, int size);

/// Horizontal frequency, rounded to a tenth of a kHz and then cut to a whole kHz; 0 when there is no timing.
/// Clock in kHz, the others in pixels. Single and double precision are mixed on purpose: the rounding is part
/// of the contract.
unsigned Convert_videoTimingToHorFreq(unsigned pixelClock, unsigned resolution, unsigned frontPorch,
                                      unsigned syncWidth, unsigned backPorch);

/// Frame rate in whole Hz, with the same mixed arithmetic. Clock in kHz, horizontal in pixels,
/// vertical in lines.
unsigned Convert_videoTimingToFrameRate(unsigned pixelClock, unsigned hRes, unsigned hFront, unsigned hSync,
                                        unsigned hBack, unsigned vRes, unsigned vFront, unsigned vSync,
                                        unsigned vBack);
