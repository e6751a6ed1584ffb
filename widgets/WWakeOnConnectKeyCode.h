#pragma once

#include "widgets/WComboBoxZeq.h"

inline constexpr WComboBoxPlus::Triplet kWakeOnConnectKeyCodeChoices[] = {
    {nullptr, "[RSnnn]Ctrl", 0},      {nullptr, "[RSnnn]Alt", 0},    {nullptr, "[RSnnn]Shift", 0},
    {nullptr, "[RSnnn]Caps Lock", 0}, {nullptr, "[RSnnn]Custom", 0},
};

/// The key that wakes a computer, by its USB HID usage. The rows have no database value: the
/// owner fills it by number.
class WWakeOnConnectKeyCode : public ZeqSelector<kWakeOnConnectKeyCodeChoices> {
public:
    using ZeqSelector::ZeqSelector;

    /// Takes the blank item away and shows the code's row, "Custom" for a code without one.
    void showValue(unsigned code);
    void showConflict() { showBlank(); }

    bool customIsSelected() const;
};
