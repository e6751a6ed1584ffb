#pragma once

#include <Wt/WWebWidget.h>

namespace Wt {

/// A line break.
class WBreak : public WWebWidget {
public:
    explicit WBreak(WContainerWidget* parent = nullptr);

protected:
    const char* tag() const override { return "br"; }
};

} // namespace Wt
