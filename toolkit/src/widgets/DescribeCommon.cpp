// What every widget tells of its element.
#include "core/ForeignJson.h"
#include "core/OrderedRows.h"
#include "text/XhtmlFilter.h"
#include "web/ElementSpec.h"
#include "web/WebSession.h"
#include "widgets/Look.h"

#include <Wt/WCompositeWidget.h>
#include <Wt/WContainerWidget.h>
#include <Wt/WLayout.h>

namespace Wt {

namespace {

constexpr struct {
    int place;
    const char* name;
} kLengthNames[] = {
    {0, "width"},      {1, "height"},      {2, "min-width"},     {3, "min-height"},     {4, "max-width"},
    {5, "max-height"}, {6, "line-height"}, {8, "top"},           {9, "right"},          {10, "bottom"},
    {11, "left"},      {12, "margin-top"}, {13, "margin-right"}, {14, "margin-bottom"}, {15, "margin-left"},
};

constexpr Impl::RowOf<PositionScheme, const char*> kPositions[] = {
    {Static, "static"}, {Relative, "relative"}, {Absolute, "absolute"}, {Fixed, "fixed"}};
static_assert(coversInOrder(kPositions, Fixed));

const char* verticalName(AlignmentFlag alignment) {
    switch (alignment) {
    case AlignSub:
        return "sub";
    case AlignSuper:
        return "super";
    case AlignTop:
        return "top";
    case AlignTextTop:
        return "text-top";
    case AlignMiddle:
        return "middle";
    case AlignBottom:
        return "bottom";
    case AlignTextBottom:
        return "text-bottom";
    default:
        return nullptr;
    }
}

bool naturallyInline(std::string_view tag) {
    return tag == "span" || tag == "a" || tag == "img" || tag == "input" || tag == "button" ||
           tag == "select" || tag == "textarea" || tag == "label";
}

/// `[hidden, effects, timing, milliseconds]`, as the browser side's animate.js reads it.
std::string hiddenJson(bool hidden, const WAnimation& animation) {
    std::string json = hidden ? "[true" : "[false";
    if (!animation.empty())
        json += "," + std::to_string(animation.effects().value()) + "," +
                std::to_string(animation.timingFunction()) + "," + std::to_string(animation.duration());
    return json + "]";
}

} // namespace

// A composite widget stands in its container for the widget that has the element.
const WWidget& WWebWidget::outermost() const {
    const WWidget* outer = this;
    while (const auto* composite = dynamic_cast<const WCompositeWidget*>(outer->WObject::parent())) {
        if (static_cast<const WWidget*>(composite)->webWidget() != this) break;
        outer = composite;
    }
    return *outer;
}

void WWebWidget::describe(Impl::ElementSpec& spec) {
    spec.tag(tag());
    describeCommon(spec);
}

void WWebWidget::describeSizes(Impl::ElementSpec& spec, const Look& look) const {
    const Look::Rare& rare = look.seldom();
    for (const auto& [place, name] : kLengthNames) {
        const WLength length = look.length(static_cast<Look::Place>(place));
        if (length.isAuto()) continue;
        if ((place == Look::Width && (look.echoed & 1)) || (place == Look::Height && (look.echoed & 2)))
            continue;
        const bool minimum = place == Look::MinWidth || place == Look::MinHeight;
        if (!minimum || length.value() != 0) spec.style(name, length.cssText());
    }
    if (rare.position != Static) spec.style("position", kPositions[rare.position].is);
    if (rare.floatSide == Left) spec.style("float", "left");
    if (rare.floatSide == Right) spec.style("float", "right");
    if (const int clear = rare.clearSides & (Left | Right); clear)
        spec.style("clear", clear == Left ? "left" : clear == Right ? "right" : "both");
    if (look.vertical == AlignLength)
        spec.style("vertical-align", look.length(Look::VerticalLength).cssText());
    else if (const char* name = verticalName(look.vertical))
        spec.style("vertical-align", name);
}

void WWebWidget::describeCommon(Impl::ElementSpec& spec) const {
    if (mStyleClass) spec.styleClass(*mStyleClass);
    const bool inlineTag = naturallyInline(tag());
    if (inlineTag && !mInline) spec.style("display", "block");
    const WAnimation animation = mLook ? mLook->seldom().animation : WAnimation();
    if (mHidden || !animation.empty()) spec.propertyJson("wtHidden", hiddenJson(mHidden, animation));
    if (mPopup) spec.styleClass("Wt-popup");
    if (mLook) {
        const Look& look = *mLook;
        const Look::Rare& rare = look.seldom();
        describeSizes(spec, look);
        if (!rare.givenId.empty()) spec.attribute("id", rare.givenId);
        if (!look.toolTip.literal() || !look.toolTip.empty()) {
            const std::string text = look.toolTip.toUTF8();
            if (!text.empty())
                spec.attribute("title", look.toolTipFormat == PlainText ? text : Impl::xhtmlToPlain(text));
        }
        if (rare.tabIndex) spec.attribute("tabindex", std::to_string(*rare.tabIndex));
        if (rare.unselectable) spec.styleClass("Wt-unselectable");
        if (rare.decoration)
            rare.decoration->forEachProperty(
                [&](const char* name, const std::string& value) { spec.style(name, value); });
        for (const auto& [name, value] : rare.attributes) spec.attribute(name, value.toUTF8());
    }
    if (mSizeAware) spec.listen("size");
    const WWidget& outer = outermost();
    if (const auto* container = dynamic_cast<const WContainerWidget*>(outer.WObject::parent()))
        if (const WLayout* layout = container->layout()) layout->describeWidget(spec, outer);
}

void WWebWidget::browserEvent(std::string_view kind, const boost::json::object& event) {
    if (kind != "size" || !mSizeAware) return;
    const int width = Impl::foreignInt(event, "w"), height = Impl::foreignInt(event, "h");
    if (width < 0 || height < 0) return;
    if (mLook->seldom().sizeWidth == width && mLook->seldom().sizeHeight == height) return;
    mLook->rare().sizeWidth = width;
    mLook->rare().sizeHeight = height;
    mLook->reporting = true;
    Impl::Renderer* renderer = Impl::Renderer::current();
    const std::uint32_t id = nodeId();
    mLook->seldom().sizeListener->layoutSizeChanged(width, height);
    if (!renderer || renderer->find(id) == this) mLook->reporting = false; // else this is gone
}

} // namespace Wt
