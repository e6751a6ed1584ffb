#include <Wt/WLayout.h>

#include "layout/LayoutBox.h"
#include "web/ElementSpec.h"

#include <Wt/WContainerWidget.h>
#include <Wt/WWidgetItem.h>

namespace Wt {

WLayout::WLayout(WWidget* parent) {
    if (auto* container = dynamic_cast<WContainerWidget*>(parent)) container->setLayout(this);
}

WLayout::~WLayout() = default;

void WLayout::addWidget(WWidget* widget) {
    addItem(new WWidgetItem(widget));
}

void WLayout::removeWidget(WWidget* widget) {
    WLayoutItem* item = findWidgetItem(widget);
    if (!item) return;
    auto* layout = item->parentLayout();
    layout->removeItem(item);
    delete item;
    widget->leaveParent();
}

void WLayout::setContentsMargins(int left, int top, int right, int bottom) {
    const int margins[4] = {left, top, right, bottom};
    std::copy(margins, margins + 4, mMargins);
    mMarginsSet = true;
    changed();
}

void WLayout::getContentsMargins(int* left, int* top, int* right, int* bottom) const {
    const bool none = !mMarginsSet && mParentLayout;
    int* const out[4] = {left, top, right, bottom};
    for (int i = 0; i < 4; ++i)
        if (out[i]) *out[i] = none ? 0 : mMargins[i];
}

WLayoutItem* WLayout::findWidgetItem(WWidget* widget) {
    for (int i = 0; i < count(); ++i)
        if (WLayoutItem* item = itemAt(i))
            if (WLayoutItem* found = item->findWidgetItem(widget)) return found;
    return nullptr;
}

int WLayout::indexOf(WLayoutItem* item) const {
    for (int i = 0; i < count(); ++i)
        if (itemAt(i) == item) return i;
    return -1;
}

WContainerWidget* WLayout::container() const {
    return mParentLayout ? mParentLayout->container() : mContainer;
}

Impl::RenderNode* WLayout::element() const {
    if (mParentLayout) return mElement.get();
    return mContainer;
}

Impl::RenderNode* WLayout::nodeOfItem(WLayoutItem* item) {
    if (WWidget* widget = item->widget()) return widget->webWidget();
    return item->layout()->mElement.get();
}

bool WLayout::followsSize(const WLayoutItem* item) {
    const WWidget* widget = const_cast<WLayoutItem*>(item)->widget();
    return widget && widget->webWidget()->mSizeAware;
}

void WLayout::itemAdded(WLayoutItem* item) {
    if (auto* widgetItem = dynamic_cast<WWidgetItem*>(item)) widgetItem->mParent = this;
    if (WLayout* inner = item->layout()) inner->mParentLayout = this;
    if (container()) attachItem(item);
    changed();
}

void WLayout::itemRemoved(WLayoutItem* item) {
    if (auto* widgetItem = dynamic_cast<WWidgetItem*>(item)) widgetItem->mParent = nullptr;
    if (WLayout* inner = item->layout()) {
        inner->detach();
        inner->mParentLayout = nullptr;
    }
    changed();
}

void WLayout::changed() {
    Impl::RenderNode* node = element();
    if (!node) return;
    node->nodeChanged();
    node->nodeChildrenChanged();
    itemsChanged();
}

// The style of an item depends on its neighbours' stretch.
void WLayout::itemsChanged() {
    for (int i = 0; i < count(); ++i)
        if (WLayoutItem* item = itemAt(i)) {
            if (WWidget* widget = item->widget())
                widget->webWidget()->nodeChanged();
            else if (WLayout* inner = item->layout(); inner && inner->mElement)
                inner->mElement->nodeChanged();
        }
}

void WLayout::attach(WContainerWidget* container) {
    mContainer = container;
    for (int i = 0; i < count(); ++i)
        if (WLayoutItem* item = itemAt(i)) attachItem(item);
    adoptExtras();
    changed();
}

void WLayout::attachItem(WLayoutItem* item) {
    if (WWidget* widget = item->widget()) {
        WContainerWidget* owner = container();
        if (widget->parent() != owner) {
            widget->leaveParent();
            owner->take(widget, static_cast<std::size_t>(owner->count()));
        }
        widget->webWidget()->setNodeParent(element());
        widget->webWidget()->nodeChanged();
    } else if (WLayout* inner = item->layout()) {
        if (!inner->mElement) inner->mElement = std::make_unique<Impl::LayoutBox>(*inner);
        inner->mElement->setNodeParent(element());
        inner->attach(container());
    }
}

// The widgets stay with the container, the elements go.
void WLayout::detach() {
    for (int i = 0; i < count(); ++i)
        if (WLayoutItem* item = itemAt(i)) {
            if (WWidget* widget = item->widget())
                widget->webWidget()->setNodeParent(mContainer);
            else if (WLayout* inner = item->layout())
                inner->detach();
        }
    dropExtras();
    mElement.reset();
    mContainer = nullptr;
}

void WLayout::widgetGone(WWidget* widget) {
    WLayoutItem* item = findWidgetItem(widget);
    if (!item) return;
    item->parentLayout()->removeItem(item);
    delete item;
}

void WLayout::describeWidget(Impl::ElementSpec& spec, const WWidget& widget) const {
    auto* self = const_cast<WLayout*>(this);
    if (const WLayoutItem* item = self->findWidgetItem(const_cast<WWidget*>(&widget)))
        item->parentLayout()->describeItem(spec, item);
}

void WLayout::describeMargins(Impl::ElementSpec& spec) const {
    int left = 0, top = 0, right = 0, bottom = 0;
    getContentsMargins(&left, &top, &right, &bottom);
    if (!(left || top || right || bottom)) return;
    const auto px = [](int value) { return std::to_string(value) + "px"; };
    spec.style("padding", px(top) + " " + px(right) + " " + px(bottom) + " " + px(left));
}

namespace Impl {

void LayoutBox::describe(ElementSpec& spec) {
    spec.tag("div");
    mLayout.describeContainer(spec);
    mLayout.mParentLayout->describeItem(spec, &mLayout);
}

void LayoutBox::childNodes(std::vector<RenderNode*>& children) {
    mLayout.appendNodes(children);
}

} // namespace Impl
} // namespace Wt
