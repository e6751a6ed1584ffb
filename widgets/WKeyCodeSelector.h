#pragma once

#include "widgets/WComboBoxPlus.h"

/// A key by its USB HID usage (keyboard page), 0 to 255. Enter, Escape, Tab and the keypad's Enter (40, 41,
/// 43, 88) cannot be chosen.
class WKeyCodeSelector : public WComboBoxPlus {
public:
    explicit WKeyCodeSelector(Wt::WContainerWidget* parent = nullptr);
};
