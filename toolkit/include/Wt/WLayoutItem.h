#pragma once

namespace Wt {

class WLayout;
class WWidget;

/// What a layout places: a widget, or a layout inside it.
class WLayoutItem {
public:
    virtual ~WLayoutItem() = default;

    virtual WLayout* layout() { return nullptr; }
    virtual WWidget* widget() { return nullptr; }
    virtual WLayout* parentLayout() const = 0;
    virtual WLayoutItem* findWidgetItem(WWidget* widget) = 0;
};

} // namespace Wt
