#pragma once

#include "widgets/WComboBoxPlus.h"

inline constexpr WComboBoxPlus::Triplet kSesModeChoices[] = {
    {"share_mode", "[RSnnn]Shared session", 1},
    {"private_mode", "[RSnnn]Private session", 2},
};

/// Mode of a session to be set up.
class WSesMode : public WComboBoxPlus {
public:
    explicit WSesMode(Wt::WContainerWidget* parent = nullptr) : WComboBoxPlus(kSesModeChoices, parent) {}

    /// The number of an Info_ConnectionMode.
    int getSelection() const { return currentIndex() == 0 ? 1 : 2; }
};
