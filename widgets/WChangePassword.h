#pragma once

#include "widgets/WComboBoxPlus.h"

inline constexpr WComboBoxPlus::Triplet kChangePasswordChoices[] = {
    {nullptr, "[RSnnn]Disabled", 0},
    {nullptr, "[RSnnn]Enabled", 0},
};

/// Whether a password is to be changed along with the other fields.
class WChangePassword : public WComboBoxPlus {
public:
    explicit WChangePassword(Wt::WContainerWidget* parent = nullptr)
        : WComboBoxPlus(kChangePasswordChoices, parent) {}

    /// Adds an empty item behind the table's, or takes it away.
    void includeBlankItem(bool include);
    /// Selects the position behind the table's last item.
    void showBlankItem() { setCurrentIndex(choiceCount()); }
};
