#pragma once

#include "widgets/WComboBoxZeq.h"

inline constexpr WComboBoxPlus::Triplet kOsdHotkeyFuncChoices[] = {
    {"none", "[RSnnn]Do nothing", 1},
    {"connect_last_target", "[RSnnn]Connect to last target", 2},
    {"connect_previous_target", "[RSnnn]Connect to previous target in target list", 3},
    {"connect_next_target", "[RSnnn]Connect to next target in target list", 4},
    {"connect_to_target_x", "[RSnnn]Connect to target X", 5},
    {"logout_and_disconnect", "[RSnnn]Logout of OSD and disconnect session", 6},
    {"enumerate_keyboard", "[RSnnn]Enumerate keyboard", 7},
    {"enumerate_mouse", "[RSnnn]Enumerate mouse", 8},
    {"enumerate_keyboard_and_mouse", "[RSnnn]Enumerate keyboard and mouse", 9},
    {"enumerate_all_usb_devices", "[RSnnn]Enumerate all USB devices", 10},
};

/// What a function key does in the on-screen display; numbers of Info_OsdCommonAction. Its
/// table's owner fills it.
class WOsdHotkeyFunc : public ZeqSelector<kOsdHotkeyFuncChoices> {
public:
    using ZeqSelector::ZeqSelector;

    /// Takes the blank item away and selects the value's row; a value without one leaves the selection.
    void showValue(const std::string& value);
    /// Shows the blank item: users that differ cannot be shown by one value.
    void showConflict() { showBlank(); }

    bool isShowingConflict() const { return blankIsShown(); }
};
