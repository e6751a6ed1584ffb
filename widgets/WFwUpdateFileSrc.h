#pragma once

#include "widgets/WComboBoxPlus.h"

inline constexpr WComboBoxPlus::Triplet kFwUpdateFileSrcChoices[] = {
    {"ftp", "[RSnnn]FTP", 6},   {"http", "[RSnnn]HTTP", 3},       {"https", "[RSnnn]HTTPS", 4},
    {"tftp", "[RSnnn]TFTP", 5}, {"file", "[RSnnn]Local file", 2},
};

/// Where a firmware file comes from.
class WFwUpdateFileSrc : public WComboBoxPlus {
public:
    explicit WFwUpdateFileSrc(Wt::WContainerWidget* parent = nullptr)
        : WComboBoxPlus(kFwUpdateFileSrcChoices, parent) {}

    /// Database string of the current source; "" when none is current.
    Wt::WString valueText() const override { return Wt::WString::fromUTF8(selection()); }
};
