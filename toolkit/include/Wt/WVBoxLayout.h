#pragma once

#include <Wt/WBoxLayout.h>

namespace Wt {

/// Places items in a column, top to bottom.
class WVBoxLayout : public WBoxLayout {
public:
    explicit WVBoxLayout(WWidget* parent = nullptr) : WBoxLayout(TopToBottom, parent) {}
};

} // namespace Wt
