// The enumerations of the vocabulary: lower-case strings on the wire, places in these lists in memory.
#pragma once

#include "platform/service/catalogue/KeyRow.h"

namespace zeqd::values {

#define ZEQD_VALUES(name, ...)                                                                               \
    inline constexpr std::string_view name##Strings[] = {__VA_ARGS__};                                       \
    inline constexpr ValueList name {                                                                        \
#name, name##Strings                                                                                 \
    }

// Places of this list are relied upon: 0 is "disabled".
ZEQD_VALUES(enabled, "disabled", "enabled");
ZEQD_VALUES(initialized, "is_false", "is_true");
ZEQD_VALUES(deviceStatus, "offline", "configuring", "ready", "reset_pending", "in_recovery");
ZEQD_VALUES(swxStatus, "offline", "dc_connected", "conflict_is_master", "conflict_other_master",
            "isc_failure", "ready", "resetting");
ZEQD_VALUES(upgradeStatus, "idle", "upgrading", "failed", "failed_file_get", "failed_file_content",
            "failed_dev_type", "failed_file_push", "failed_flash", "complete");
ZEQD_VALUES(deviceUsage, "usable", "not_usable_swx_capacity", "not_usable_swx_maintenance");
ZEQD_VALUES(swxUsage, "usable", "exceeds_unmanaged_capacity", "maintenance");
ZEQD_VALUES(accessMode, "share_mode", "private_mode", "share_or_private_mode");
ZEQD_VALUES(connectionMode, "share_mode", "private_mode");
ZEQD_VALUES(userRole, "user", "admin");
ZEQD_VALUES(functionKey, "none", "f1", "f2", "f3", "f4", "f5", "f6", "f7", "f8", "f9", "f10", "f11", "f12");
ZEQD_VALUES(osdAction, "none", "connect_last_target", "connect_previous_target", "connect_next_target",
            "connect_to_target_x", "logout_and_disconnect", "enumerate_keyboard", "enumerate_mouse",
            "enumerate_keyboard_and_mouse", "enumerate_all_usb_devices");
ZEQD_VALUES(osdHotKey, "print_screen", "control_control", "alt_alt", "shift_shift", "control_control_left",
            "control_control_right", "alt_alt_left", "alt_alt_right", "shift_shift_left", "shift_shift_right",
            "scroll_lock_scroll_lock", "custom", "none");
ZEQD_VALUES(cascadeMode, "master", "slave");
ZEQD_VALUES(cascadeRole, "not_present", "controller", "slave", "backup");
ZEQD_VALUES(ipv4Method, "dhcp", "dhcp_plus_zeroconf", "zeroconf", "static");
ZEQD_VALUES(ipv6Method, "dhcp", "dhcp_info_only", "stateless_only", "static");
ZEQD_VALUES(ntpStatus, "unknown", "inactive", "bad_configuration", "pending", "network_unreachable",
            "server_unresponsive", "success");
ZEQD_VALUES(trafficPriority, "usb_priority", "video_priority");
ZEQD_VALUES(usbLogLevel, "none", "info", "debug");
ZEQD_VALUES(usbMode, "disabled", "keyboard_mouse_only", "all_except_mass_storage", "all_devices");
ZEQD_VALUES(syncPolarity, "negative_polarity", "positive_polarity");
ZEQD_VALUES(portState, "no_device", "idle", "in_use", "upgrading", "loopback_detected", "self_detected",
            "invalid_device", "device_error", "device_not_added");
ZEQD_VALUES(deviceType, "none", "rx", "tx", "swx");
ZEQD_VALUES(rxType, "rx_dvi_i", "rx_dvi_i_16");
ZEQD_VALUES(txType, "tx_dvi_d", "tx_vga");
ZEQD_VALUES(swxType, "swx");
ZEQD_VALUES(severity, "info", "warning", "error");
ZEQD_VALUES(managedSetting, "non_managed", "enrolling", "managed", "verified", "unenrolling");
ZEQD_VALUES(managerServer, "none", "primary", "auxiliary");
ZEQD_VALUES(upDown, "down", "up");
ZEQD_VALUES(cascadeController, "master", "peer");
ZEQD_VALUES(keyboardLayout, "us", "uk", "fr", "de", "it", "es", "jp", "ko", "no", "se", "dk", "ch");
ZEQD_VALUES(protocol, "ftp", "http", "https", "tftp", "file");
ZEQD_VALUES(reset, "cold_reboot", "factory_default", "factory_default_partial");
ZEQD_VALUES(alertsAction, "ack_all", "ack_specific", "clear_history");
ZEQD_VALUES(edidAction, "pull", "push");
ZEQD_VALUES(cascadeRoleAction, "force_role_switch", "link_peer", "promote_peer", "unlink_peer");
ZEQD_VALUES(settingsAction, "unzip", "zip");
ZEQD_VALUES(simFailure, "none", "push", "flash");
ZEQD_VALUES(simOwed, "nothing", "reset", "restore", "restore_partial");
ZEQD_VALUES(simAction, "offline", "online", "time", "step", "video", "attach", "fail_flash", "fail_push",
            "poke", "alert", "look", "link_down", "link_up", "manager_down", "manager_up");

#undef ZEQD_VALUES

} // namespace zeqd::values
