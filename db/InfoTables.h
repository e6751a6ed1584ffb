#pragma once

#include "db/EnumTable.h"
#include "db/Info.h"

// One table for each enumeration, used in every direction.
// A text key stands only where pages show the value by itself.

inline constexpr EnumRow<Info_DeviceStatus> kDeviceStatusTable[] = {
    {Info_DeviceStatus::Offline, "offline", "[RSnnn]Offline"},
    {Info_DeviceStatus::Configuring, "configuring", "[RSnnn]Configuring"},
    {Info_DeviceStatus::Ready, "ready", "[RSnnn]Ready"},
    {Info_DeviceStatus::ResetPending, "reset_pending", "[RSnnn]Reboot pending"},
    {Info_DeviceStatus::InRecovery, "in_recovery", "[RSnnn]In recovery"},
};
static_assert(coversInOrder(kDeviceStatusTable));

inline constexpr EnumRow<Info_SwxStatus> kSwxStatusTable[] = {
    {Info_SwxStatus::Offline, "offline"},
    {Info_SwxStatus::DcConnected, "dc_connected"},
    {Info_SwxStatus::ConflictIsMaster, "conflict_is_master"},
    {Info_SwxStatus::ConflictOtherMaster, "conflict_other_master"},
    {Info_SwxStatus::IscFailure, "isc_failure"},
    {Info_SwxStatus::Ready, "ready"},
    {Info_SwxStatus::Resetting, "resetting"},
};
static_assert(coversInOrder(kSwxStatusTable));

inline constexpr EnumRow<Info_DeviceUpgradeStatus> kDeviceUpgradeStatusTable[] = {
    {Info_DeviceUpgradeStatus::Idle, "idle"},
    {Info_DeviceUpgradeStatus::Upgrading, "upgrading"},
    {Info_DeviceUpgradeStatus::Failed, "failed"},
    {Info_DeviceUpgradeStatus::FailedFileGet, "failed_file_get"},
    {Info_DeviceUpgradeStatus::FailedFileContent, "failed_file_content"},
    {Info_DeviceUpgradeStatus::FailedDevType, "failed_dev_type"},
    {Info_DeviceUpgradeStatus::FailedFilePush, "failed_file_push"},
    {Info_DeviceUpgradeStatus::FailedFlash, "failed_flash"},
    {Info_DeviceUpgradeStatus::Complete, "complete"},
};
static_assert(coversInOrder(kDeviceUpgradeStatusTable));

inline constexpr EnumRow<Info_DeviceUsage> kDeviceUsageTable[] = {
    {Info_DeviceUsage::Usable, "usable"},
    {Info_DeviceUsage::NotUsableSwxCapacity, "not_usable_swx_capacity"},
    {Info_DeviceUsage::NotUsableSwxMaintenance, "not_usable_swx_maintenance"},
};
static_assert(coversInOrder(kDeviceUsageTable));

inline constexpr EnumRow<Info_SwxUsage> kSwxUsageTable[] = {
    {Info_SwxUsage::Usable, "usable"},
    {Info_SwxUsage::ExceedsUnmanagedCapacity, "exceeds_unmanaged_capacity"},
    {Info_SwxUsage::Maintenance, "maintenance"},
};
static_assert(coversInOrder(kSwxUsageTable));

inline constexpr EnumRow<Info_AccessMode> kAccessModeTable[] = {
    {Info_AccessMode::Share, "share_mode", "[RSnnn]Shared"},
    {Info_AccessMode::Private, "private_mode", "[RSnnn]Private"},
    {Info_AccessMode::ShareOrPrivate, "share_or_private_mode", "[RSnnn]Shared or Private"},
};
static_assert(coversInOrder(kAccessModeTable));

// The first two again, in the words for a running session.
inline constexpr EnumRow<Info_ConnectionMode> kConnectionModeTable[] = {
    {Info_ConnectionMode::Share, kAccessModeTable[0].dbValue, "[RSnnn]Shared only"},
    {Info_ConnectionMode::Private, kAccessModeTable[1].dbValue, "[RSnnn]Private only"},
};
static_assert(coversInOrder(kConnectionModeTable));

inline constexpr EnumRow<Info_UserRole> kUserRoleTable[] = {
    {Info_UserRole::User, "user", "[RSnnn]User"},
    {Info_UserRole::Admin, "admin", "[RSnnn]Admin"},
};
static_assert(coversInOrder(kUserRoleTable));

inline constexpr EnumRow<Info_FunctionKey> kFunctionKeyTable[] = {
    {Info_FunctionKey::None, "none"}, {Info_FunctionKey::F1, "f1"},   {Info_FunctionKey::F2, "f2"},
    {Info_FunctionKey::F3, "f3"},     {Info_FunctionKey::F4, "f4"},   {Info_FunctionKey::F5, "f5"},
    {Info_FunctionKey::F6, "f6"},     {Info_FunctionKey::F7, "f7"},   {Info_FunctionKey::F8, "f8"},
    {Info_FunctionKey::F9, "f9"},     {Info_FunctionKey::F10, "f10"}, {Info_FunctionKey::F11, "f11"},
    {Info_FunctionKey::F12, "f12"},
};
static_assert(coversInOrder(kFunctionKeyTable));

inline constexpr EnumRow<Info_OsdCommonAction> kOsdCommonActionTable[] = {
    {Info_OsdCommonAction::None, "none"},
    {Info_OsdCommonAction::ConnectLastTarget, "connect_last_target"},
    {Info_OsdCommonAction::ConnectPreviousTarget, "connect_previous_target"},
    {Info_OsdCommonAction::ConnectNextTarget, "connect_next_target"},
    {Info_OsdCommonAction::ConnectToTargetX, "connect_to_target_x"},
    {Info_OsdCommonAction::LogoutAndDisconnect, "logout_and_disconnect"},
    {Info_OsdCommonAction::EnumerateKeyboard, "enumerate_keyboard"},
    {Info_OsdCommonAction::EnumerateMouse, "enumerate_mouse"},
    {Info_OsdCommonAction::EnumerateKeyboardAndMouse, "enumerate_keyboard_and_mouse"},
    {Info_OsdCommonAction::EnumerateAllUsbDevices, "enumerate_all_usb_devices"},
};
static_assert(coversInOrder(kOsdCommonActionTable));

inline constexpr EnumRow<Info_WakeOnConnectAction> kWakeOnConnectActionTable[] = {
    {Info_WakeOnConnectAction::None, "none"},
    {Info_WakeOnConnectAction::Keypress, "keypress"},
    {Info_WakeOnConnectAction::MouseMove, "mouse_move"},
};
static_assert(coversInOrder(kWakeOnConnectActionTable));
