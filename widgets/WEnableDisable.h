#pragma once

#include "widgets/WComboBoxZeq.h"

inline constexpr WComboBoxPlus::Triplet kEnableDisableChoices[] = {
    {"enabled", "[RSnnn]Enabled", 2},
    {"disabled", "[RSnnn]Disabled", 1},
};

class WEnableDisable : public ZeqSelector<kEnableDisableChoices> {
public:
    using ZeqSelector::ZeqSelector;

    bool isChosenEnabled() const { return currentIndex() == 0; }
    bool isChosenDisabled() const { return currentIndex() == 1; }
};
