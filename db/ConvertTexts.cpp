#include "db/Convert.h"
#include "db/InfoTables.h"
#include "db/StringLookup.h"

#include <Wt/WString>

namespace {

constexpr const char* kUnknown = "[RSnnn]Unknown";

// Values that have a word for the user but no number.

constexpr StringLookup::Pair kAlertSeverities[] = {
    {"info", "[RSnnn]Information"},
    {"warning", "[RSnnn]Warning"},
    {"error", "[RSnnn]Error"},
};

constexpr StringLookup::Pair kSyncPolarities[] = {
    {"negative_polarity", "[RSnnn]Negative"},
    {"positive_polarity", "[RSnnn]Positive"},
};

constexpr StringLookup::Pair kPortStates[] = {
    {"no_device", "[RSnnn]No attached device"},
    {"idle", "[RSnnn]Idle"},
    {"in_use", "[RSnnn]In use"},
    {"upgrading", "[RSnnn]Upgrading firmware"},
    {"loopback_detected", "[RSnnn]Loopback detected"},
    {"self_detected", "[RSnnn]Self detected"},
    {"invalid_device", "[RSnnn]Invalid device"},
    {"device_error", "[RSnnn]Device error"},
    {"device_not_added", "[RSnnn]Device not added"},
};

constexpr StringLookup::Pair kDeviceTypes[] = {
    {"none", "[RSnnn]None"},
    {"rx", "[RSnnn]Receiver"},
    {"tx", "[RSnnn]Transmitter"},
    {"swx", "[RSnnn]Switch"},
};

constexpr StringLookup::Pair kDetailedDeviceTypes[] = {
    {"rx_dvi_i_16", "[RSnnn]Receiver16"},
    {"rx_dvi_i", "[RSnnn]Receiver8"},
    {"tx_dvi_d", "[RSnnn]Transmitter (DVI)"},
    {"tx_vga", "[RSnnn]Transmitter (VGA)"},
    {"swx", "[RSnnn]Switch"},
};

constexpr StringLookup::Pair kTxSubTypes[] = {
    {"tx_dvi_d", "[RSnnn]DVI"},
    {"tx_vga", "[RSnnn]VGA"},
};

std::string translated(const char* key) {
    return Wt::WString::tr(key ? key : kUnknown).toUTF8();
}

template <std::size_t N>
std::string uiText(const StringLookup::Pair (&table)[N], const std::string& dbValue) {
    return translated(StringLookup(table).keyToValue(dbValue.c_str()));
}

template <class E>
std::string uiText(const EnumRow<E>* row) {
    return translated(row ? row->textKey : nullptr);
}

} // namespace

std::string Convert_alertSeverityDbStringToUiString(const std::string& text) {
    return uiText(kAlertSeverities, text);
}

std::string Convert_syncPolarityDbStringToUiString(const std::string& text) {
    return uiText(kSyncPolarities, text);
}

std::string Convert_portStateDbStringToUiString(const std::string& text) {
    return uiText(kPortStates, text);
}

std::string Convert_deviceTypeDbStringToUiString(const std::string& text) {
    return uiText(kDeviceTypes, text);
}

std::string Convert_detailedDeviceTypeDbStringToUiString(const std::string& text) {
    return uiText(kDetailedDeviceTypes, text);
}

std::string Convert_detailedDeviceTypeDbStringToTxSubTypeUiString(const std::string& text) {
    return uiText(kTxSubTypes, text);
}

std::string Convert_deviceStatusDbStringToUiString(const std::string& text) {
    return uiText(rowOfString(kDeviceStatusTable, text));
}

std::string Convert_accessModeDbStringToUiString(const std::string& text) {
    return uiText(rowOfString(kAccessModeTable, text));
}

std::string Convert_userRoleDbStringToUiString(const std::string& text) {
    return uiText(rowOfString(kUserRoleTable, text));
}

std::string Convert_accessModeEnumToString(Info_AccessMode mode) {
    return uiText(rowOfValue(kAccessModeTable, mode));
}

std::string Convert_userRoleEnumToString(Info_UserRole role) {
    return uiText(rowOfValue(kUserRoleTable, role));
}
