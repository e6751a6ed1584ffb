#pragma once

#include <Wt/WLayoutItem.h>

namespace Wt {

/// A widget in a layout.
class WWidgetItem : public WLayoutItem {
public:
    explicit WWidgetItem(WWidget* widget) : mWidget(widget) {}

    WWidget* widget() override { return mWidget; }
    WLayout* parentLayout() const override { return mParent; }
    WLayoutItem* findWidgetItem(WWidget* widget) override { return widget == mWidget ? this : nullptr; }

private:
    friend class WLayout;

    WWidget* mWidget; // owned by the container that has the layout
    WLayout* mParent = nullptr;
};

} // namespace Wt
