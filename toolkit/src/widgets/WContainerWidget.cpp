#include <Wt/WContainerWidget.h>

#include "core/ForeignJson.h"
#include "core/OrderedRows.h"
#include "web/ElementSpec.h"

#include <Wt/WLayout.h>

#include <algorithm>

namespace Wt {

struct WContainerWidget::Box {
    WLength padding[4] = {WLength::Auto, WLength::Auto, WLength::Auto, WLength::Auto};
    WFlags<AlignmentFlag> alignment;
    Overflow overflowX = OverflowVisible, overflowY = OverflowVisible;
    int scrollTop = 0, scrollLeft = 0;
    std::unique_ptr<EventSignal<WScrollEvent>> scrolled;
};

namespace {
constexpr Side kSides[] = {Top, Right, Bottom, Left};
constexpr const char* kPaddings[] = {"padding-top", "padding-right", "padding-bottom", "padding-left"};
using Overflow = WContainerWidget::Overflow;
constexpr Impl::RowOf<Overflow, const char*> kOverflows[] = {{Overflow::OverflowVisible, "visible"},
                                                             {Overflow::OverflowAuto, "auto"},
                                                             {Overflow::OverflowHidden, "hidden"},
                                                             {Overflow::OverflowScroll, "scroll"}};
static_assert(coversInOrder(kOverflows, Overflow::OverflowScroll));
} // namespace

WContainerWidget::WContainerWidget(WContainerWidget* parent) : WInteractWidget(parent) {
    setInline(false);
}

WContainerWidget::~WContainerWidget() {
    WContainerWidget::clear();
    leaveParent();
}

WContainerWidget::Box& WContainerWidget::box() {
    if (!mBox) mBox = std::make_unique<Box>();
    return *mBox;
}

void WContainerWidget::take(WWidget* widget, std::size_t place) {
    mChildren.insert(mChildren.begin() + static_cast<std::ptrdiff_t>(place), widget);
    setOwner(*widget, this);
    nodeOf(widget)->setNodeParent(this);
    nodeChildrenChanged();
    if (!isEnabled()) widget->propagateSetEnabled(false);
}

void WContainerWidget::addWidget(WWidget* widget) {
    insertWidget(count(), widget);
}

void WContainerWidget::insertBefore(WWidget* widget, WWidget* before) {
    insertWidget(indexOf(before), widget);
}

void WContainerWidget::insertWidget(int index, WWidget* widget) {
    widget->leaveParent();
    const int places = count();
    take(widget, static_cast<std::size_t>(index < 0 || index > places ? places : index));
}

void WContainerWidget::removeWidget(WWidget* widget) {
    const auto place = std::find(mChildren.begin(), mChildren.end(), widget);
    if (place == mChildren.end()) return;
    mChildren.erase(place);
    if (mLayout) mLayout->widgetGone(widget);
    setOwner(*widget, nullptr);
    nodeOf(widget)->setNodeParent(nullptr);
    nodeChildrenChanged();
}

void WContainerWidget::removeChild(WObject* child) {
    if (child == static_cast<WObject*>(mLayout)) {
        mLayout->detach();
        mLayout = nullptr;
        setOwner(*child, nullptr);
        return nodeChildrenChanged();
    }
    if (auto* widget = dynamic_cast<WWidget*>(child); widget && indexOf(widget) >= 0)
        return removeWidget(widget);
    WInteractWidget::removeChild(child);
}

void WContainerWidget::clear() {
    if (WLayout* layout = mLayout) {
        removeChild(layout);
        delete layout;
    }
    while (!mChildren.empty()) delete mChildren.back();
}

void WContainerWidget::setLayout(WLayout* layout) {
    if (layout == mLayout) return;
    if (WLayout* former = mLayout) {
        removeChild(former);
        delete former;
    }
    mLayout = layout;
    if (layout) {
        setOwner(*layout, this);
        layout->attach(this);
    }
    nodeChanged();
    nodeChildrenChanged();
}

void WContainerWidget::setLayout(WLayout* layout, WFlags<AlignmentFlag> alignment) {
    setLayout(layout);
    setContentAlignment(alignment);
}

void WContainerWidget::setContentAlignment(WFlags<AlignmentFlag> alignment) {
    if (contentAlignment() == alignment) return;
    box().alignment = alignment;
    nodeChanged();
}

WFlags<AlignmentFlag> WContainerWidget::contentAlignment() const {
    return mBox ? mBox->alignment : WFlags<AlignmentFlag>();
}

void WContainerWidget::setPadding(const WLength& padding, WFlags<Side> sides) {
    for (int i = 0; i < 4; ++i)
        if (sides & kSides[i]) box().padding[i] = padding;
    nodeChanged();
}

WLength WContainerWidget::padding(Side side) const {
    for (int i = 0; i < 4; ++i)
        if (mBox && kSides[i] == side) return mBox->padding[i];
    return WLength::Auto;
}

void WContainerWidget::setOverflow(Overflow overflow, WFlags<Orientation> orientation) {
    if (orientation & Horizontal) box().overflowX = overflow;
    if (orientation & Vertical) box().overflowY = overflow;
    nodeChanged();
}

void WContainerWidget::setList(bool list, bool ordered) {
    mList = list;
    mOrdered = ordered;
    nodeChanged();
}

WWidget* WContainerWidget::widget(int index) const {
    return index >= 0 && index < count() ? mChildren[static_cast<std::size_t>(index)] : nullptr;
}

int WContainerWidget::count() const {
    return static_cast<int>(mChildren.size());
}

int WContainerWidget::indexOf(WWidget* widget) const {
    const auto place = std::find(mChildren.begin(), mChildren.end(), widget);
    return place == mChildren.end() ? -1 : static_cast<int>(place - mChildren.begin());
}

WWidget* WContainerWidget::find(const std::string& name) {
    if (objectName() == name) return this;
    for (WWidget* child : mChildren)
        if (WWidget* found = child->find(name)) return found;
    return nullptr;
}

void WContainerWidget::refresh() {
    for (WWidget* child : mChildren) child->refresh();
    WInteractWidget::refresh();
}

int WContainerWidget::scrollTop() const {
    return mBox ? mBox->scrollTop : 0;
}
int WContainerWidget::scrollLeft() const {
    return mBox ? mBox->scrollLeft : 0;
}

EventSignal<WScrollEvent>& WContainerWidget::scrolled() {
    auto& signal = box().scrolled;
    if (!signal) signal = std::make_unique<EventSignal<WScrollEvent>>(this);
    return *signal;
}

void WContainerWidget::childNodes(std::vector<Impl::RenderNode*>& children) {
    if (mLayout) return mLayout->appendNodes(children);
    for (WWidget* child : mChildren) children.push_back(nodeOf(child));
}

const char* WContainerWidget::tag() const {
    if (mList) return mOrdered ? "ol" : "ul";
    return isInline() ? "span" : "div";
}

void WContainerWidget::describe(Impl::ElementSpec& spec) {
    WInteractWidget::describe(spec);
    if (mBox) {
        for (int i = 0; i < 4; ++i)
            if (!mBox->padding[i].isAuto()) spec.style(kPaddings[i], mBox->padding[i].cssText());
        if (mBox->overflowX != OverflowVisible) spec.style("overflow-x", kOverflows[mBox->overflowX].is);
        if (mBox->overflowY != OverflowVisible) spec.style("overflow-y", kOverflows[mBox->overflowY].is);
        const int alignment = mBox->alignment;
        if (alignment & AlignLeft) spec.style("text-align", "left");
        if (alignment & AlignRight) spec.style("text-align", "right");
        if (alignment & AlignCenter) spec.style("text-align", "center");
        if (alignment & AlignJustify) spec.style("text-align", "justify");
        if (mBox->scrolled && mBox->scrolled->isConnected()) spec.listen("scroll");
    }
    if (mLayout) mLayout->describeContainer(spec);
}

void WContainerWidget::browserEvent(std::string_view kind, const boost::json::object& event) {
    if (kind != "scroll") return WInteractWidget::browserEvent(kind, event);
    if (!mBox || !mBox->scrolled) return;
    mBox->scrollTop = Impl::foreignInt(event, "y");
    mBox->scrollLeft = Impl::foreignInt(event, "x");
    mBox->scrolled->emit(WScrollEvent(event));
}

void WContainerWidget::propagateSetEnabled(bool enabled) {
    for (WWidget* child : mChildren)
        if (!child->isDisabled()) child->propagateSetEnabled(enabled);
    WInteractWidget::propagateSetEnabled(enabled);
}

void WContainerWidget::propagateSetVisible(bool visible) {
    for (WWidget* child : mChildren)
        if (!child->isHidden()) child->propagateSetVisible(visible);
    WInteractWidget::propagateSetVisible(visible);
}

} // namespace Wt
