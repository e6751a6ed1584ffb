#pragma once

#include <Wt/WBoxLayout.h>

namespace Wt {

/// Places items in a row, left to right.
class WHBoxLayout : public WBoxLayout {
public:
    explicit WHBoxLayout(WWidget* parent = nullptr) : WBoxLayout(LeftToRight, parent) {}
};

} // namespace Wt
