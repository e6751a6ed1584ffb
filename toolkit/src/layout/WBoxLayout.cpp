#include <Wt/WBoxLayout.h>

#include "core/OrderedRows.h"
#include "layout/Divider.h"
#include "layout/ItemStyle.h"
#include "layout/LayoutBox.h"
#include "web/ElementSpec.h"

#include <Wt/WContainerWidget.h>
#include <Wt/WWidgetItem.h>

#include <algorithm>

namespace Wt {

struct WBoxLayout::Place {
    std::unique_ptr<WLayoutItem> item; // null: empty room; a layout is deleted as an item
    std::unique_ptr<Impl::Spacer> spacer;
    std::unique_ptr<Impl::Divider> divider;
    WFlags<AlignmentFlag> alignment;
    int stretch = 0;
    bool resizable = false;
    WLength size; // that the user dragged a layout to
};

WBoxLayout::WBoxLayout(Direction direction, WWidget* parent) : WLayout(nullptr), mDirection(direction) {
    if (auto* container = dynamic_cast<WContainerWidget*>(parent)) container->setLayout(this);
}

WBoxLayout::~WBoxLayout() = default;

void WBoxLayout::insert(int index, std::unique_ptr<Place> place) {
    const auto at = static_cast<std::size_t>(std::clamp(index, 0, count()));
    WLayoutItem* item = place->item.get();
    mPlaces.insert(mPlaces.begin() + static_cast<std::ptrdiff_t>(at), std::move(place));
    if (item) return itemAdded(item);
    adoptExtras();
    changed();
}

void WBoxLayout::addItem(WLayoutItem* item) {
    auto place = std::make_unique<Place>();
    place->item.reset(item);
    insert(count(), std::move(place));
}

void WBoxLayout::removeItem(WLayoutItem* item) {
    const auto found =
        std::find_if(mPlaces.begin(), mPlaces.end(), [&](auto& place) { return place->item.get() == item; });
    if (found == mPlaces.end()) return;
    static_cast<void>((*found)->item.release());
    mPlaces.erase(found);
    itemRemoved(item);
}

void WBoxLayout::clear() {
    while (!mPlaces.empty()) {
        WLayoutItem* item = mPlaces.back()->item.get();
        WWidget* widget = item ? item->widget() : nullptr;
        if (item && item->layout()) item->layout()->clear();
        if (widget) delete widget; // takes its item along if it is in a container
        if (!mPlaces.empty() && mPlaces.back()->item.get() == item) mPlaces.pop_back();
    }
    changed();
}

void WBoxLayout::setDirection(Direction direction) {
    mDirection = direction;
    changed();
}

void WBoxLayout::setSpacing(int size) {
    mSpacing = size;
    changed();
}

void WBoxLayout::addWidget(WWidget* widget, int stretch, WFlags<AlignmentFlag> alignment) {
    insertWidget(count(), widget, stretch, alignment);
}

void WBoxLayout::addLayout(WLayout* layout, int stretch, WFlags<AlignmentFlag> alignment) {
    insertLayout(count(), layout, stretch, alignment);
}

void WBoxLayout::addSpacing(const WLength& size) {
    insertSpacing(count(), size);
}
void WBoxLayout::addStretch(int stretch) {
    insertStretch(count(), stretch);
}

void WBoxLayout::insertWidget(int index, WWidget* widget, int stretch, WFlags<AlignmentFlag> alignment) {
    auto place = std::make_unique<Place>();
    place->item = std::make_unique<WWidgetItem>(widget);
    place->stretch = stretch;
    place->alignment = alignment;
    insert(index, std::move(place));
}

void WBoxLayout::insertLayout(int index, WLayout* layout, int stretch, WFlags<AlignmentFlag> alignment) {
    auto place = std::make_unique<Place>();
    place->item.reset(layout);
    place->stretch = stretch;
    place->alignment = alignment;
    insert(index, std::move(place));
}

void WBoxLayout::insertSpacing(int index, const WLength& size) {
    auto place = std::make_unique<Place>();
    place->spacer = std::make_unique<Impl::Spacer>("0 0 " + size.cssText());
    insert(index, std::move(place));
}

void WBoxLayout::insertStretch(int index, int stretch) {
    auto place = std::make_unique<Place>();
    place->stretch = stretch;
    place->spacer = std::make_unique<Impl::Spacer>(std::to_string(std::max(stretch, 1)) + " 1 0px");
    insert(index, std::move(place));
}

WBoxLayout::Place* WBoxLayout::find(const WLayoutItem* item) const {
    for (const auto& place : mPlaces)
        if (place->item.get() == item) return place.get();
    return nullptr;
}

bool WBoxLayout::setStretchFactor(WWidget* widget, int stretch) {
    for (const auto& place : mPlaces)
        if (place->item && place->item->widget() == widget) {
            place->stretch = stretch;
            changed();
            return true;
        }
    return false;
}

bool WBoxLayout::setStretchFactor(WLayout* layout, int stretch) {
    Place* place = find(layout);
    if (!place) return false;
    place->stretch = stretch;
    changed();
    return true;
}

void WBoxLayout::setResizable(int index, bool enabled, const WLength& initialSize) {
    if (index < 0 || index >= count()) return;
    Place& place = *mPlaces[static_cast<std::size_t>(index)];
    place.resizable = enabled;
    if (enabled && !initialSize.isAuto()) resizeItem(place, initialSize);
    if (!enabled) place.divider.reset();
    adoptExtras();
    changed();
}

bool WBoxLayout::isResizable(int index) const {
    return index >= 0 && index < count() && mPlaces[static_cast<std::size_t>(index)]->resizable;
}

void WBoxLayout::resizeItem(Place& place, const WLength& size) {
    WWidget* widget = place.item ? place.item->widget() : nullptr;
    if (!widget)
        place.size = size;
    else if (horizontal())
        widget->setWidth(size);
    else
        widget->setHeight(size);
    changed();
}

int WBoxLayout::count() const {
    return static_cast<int>(mPlaces.size());
}

WLayoutItem* WBoxLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? mPlaces[static_cast<std::size_t>(index)]->item.get() : nullptr;
}

void WBoxLayout::adoptExtras() {
    Impl::RenderNode* parent = element();
    if (!parent) return;
    for (const auto& place : mPlaces) {
        if (place->resizable && !place->divider)
            place->divider = std::make_unique<Impl::Divider>(
                horizontal(), [this, at = place.get()](int size) { resizeItem(*at, WLength(size)); });
        if (place->spacer) place->spacer->setNodeParent(parent);
        if (place->divider) place->divider->setNodeParent(parent);
    }
}

void WBoxLayout::dropExtras() {
    for (const auto& place : mPlaces) {
        if (place->spacer) place->spacer->setNodeParent(nullptr);
        place->divider.reset();
    }
}

void WBoxLayout::appendNodes(std::vector<Impl::RenderNode*>& nodes) const {
    for (const auto& place : mPlaces) {
        if (place->item) nodes.push_back(nodeOfItem(place->item.get()));
        if (place->spacer) nodes.push_back(place->spacer.get());
        if (place->divider && place != mPlaces.back()) nodes.push_back(place->divider.get());
    }
}

void WBoxLayout::describeContainer(Impl::ElementSpec& spec) const {
    static constexpr Impl::RowOf<Direction, const char*> kDirections[] = {{LeftToRight, "row"},
                                                                          {RightToLeft, "row-reverse"},
                                                                          {TopToBottom, "column"},
                                                                          {BottomToTop, "column-reverse"}};
    static_assert(coversInOrder(kDirections, BottomToTop));
    spec.styleClass("Wt-box");
    spec.style("display", "flex");
    spec.style("flex-direction", kDirections[mDirection].is);
    if (mSpacing) spec.style("gap", std::to_string(mSpacing) + "px");
    describeMargins(spec);
}

// Along the layout an item with stretch takes its share of the room. In a column whose height is not given
// there is no room to share, so the natural height is the base there.
void WBoxLayout::describeItem(Impl::ElementSpec& spec, const WLayoutItem* item) const {
    const Place* place = find(item);
    if (!place) return;
    const bool anyStretch =
        std::any_of(mPlaces.begin(), mPlaces.end(), [](auto& p) { return p->stretch > 0; });
    const int along = horizontal() ? place->alignment & AlignHorizontalMask & ~AlignJustify
                                   : place->alignment & AlignVerticalMask;
    if (!place->size.isAuto()) {
        spec.style("flex", "0 0 " + place->size.cssText());
    } else if (place->stretch > 0) {
        const std::string share = std::to_string(place->stretch);
        spec.style("flex", share + " " + share + (horizontal() ? " 0px" : " auto"));
    } else {
        spec.style("flex", anyStretch || place->resizable || along ? "0 0 auto" : "1 1 auto");
    }
    if (place->stretch > 0 || !anyStretch)
        spec.style(horizontal() ? "min-width" : "min-height", minimumAlong(item));
    if (along) {
        const bool end = along & (AlignRight | AlignBottom), middle = along & (AlignCenter | AlignMiddle);
        if (end || middle) spec.style(horizontal() ? "margin-left" : "margin-top", "auto");
        if (!end) spec.style(horizontal() ? "margin-right" : "margin-bottom", "auto");
    }
    Impl::describeAlignment(spec, item, place->alignment, !horizontal(), "align-self", followsSize(item));
}

std::string WBoxLayout::minimumAlong(const WLayoutItem* item) const {
    const WWidget* widget = const_cast<WLayoutItem*>(item)->widget();
    if (!widget) return "0px";
    const WLength least = horizontal() ? widget->minimumWidth() : widget->minimumHeight();
    return least.isAuto() ? "0px" : least.cssText();
}

} // namespace Wt
