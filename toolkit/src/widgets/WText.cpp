#include <Wt/WText.h>

#include "text/DescribeText.h"
#include "web/ElementSpec.h"

namespace Wt {

struct WText::Padding {
    WLength sides[4] = {WLength::Auto, WLength::Auto, WLength::Auto, WLength::Auto};
};

namespace {
constexpr Side kSides[] = {Top, Right, Bottom, Left};
constexpr const char* kPaddings[] = {"padding-top", "padding-right", "padding-bottom", "padding-left"};

const char* alignName(int alignment) {
    if (alignment & AlignRight) return "right";
    if (alignment & AlignCenter) return "center";
    if (alignment & AlignJustify) return "justify";
    return "left";
}
} // namespace

WText::WText(WContainerWidget* parent) : WInteractWidget(parent) {}

WText::WText(const WString& text, WContainerWidget* parent) : WInteractWidget(parent) {
    setText(text);
}

WText::WText(const WString& text, TextFormat format, WContainerWidget* parent)
    : WInteractWidget(parent), mFormat(format) {
    setText(text);
}

WText::~WText() = default;

bool WText::setText(const WString& text) {
    if (text == mText && text.literal() && mText.literal()) return true;
    mText = text;
    nodeChanged();
    return checkFormat();
}

bool WText::checkFormat() {
    if (Impl::readsAs(mText, mFormat)) return true;
    mFormat = PlainText;
    return false;
}

bool WText::setTextFormat(TextFormat format) {
    if (mFormat == format) return true;
    if (!Impl::readsAs(mText, format)) return false;
    mFormat = format;
    nodeChanged();
    return true;
}

void WText::setWordWrap(bool on) {
    if (mWordWrap == on) return;
    mWordWrap = on;
    nodeChanged();
}

void WText::setTextAlignment(AlignmentFlag alignment) {
    mAlignment = static_cast<unsigned short>(alignment);
    nodeChanged();
}

AlignmentFlag WText::textAlignment() const {
    return mAlignment ? static_cast<AlignmentFlag>(mAlignment) : AlignLeft;
}

void WText::setPadding(const WLength& padding, WFlags<Side> sides) {
    if (!mPadding) mPadding = std::make_unique<Padding>();
    for (int i = 0; i < 4; ++i)
        if (sides & kSides[i]) mPadding->sides[i] = padding;
    nodeChanged();
}

WLength WText::padding(Side side) const {
    for (int i = 0; i < 4; ++i)
        if (mPadding && kSides[i] == side) return mPadding->sides[i];
    return WLength::Auto;
}

void WText::refresh() {
    if (!mText.literal()) nodeChanged();
    WInteractWidget::refresh();
}

void WText::describe(Impl::ElementSpec& spec) {
    WInteractWidget::describe(spec);
    Impl::describeText(spec, mText, mFormat);
    if (mFormat == PlainText && !isInline()) spec.styleClass("Wt-plain");
    if (!mWordWrap) spec.style("white-space", "nowrap");
    if (mAlignment) spec.style("text-align", alignName(mAlignment));
    for (int i = 0; mPadding && i < 4; ++i)
        if (!mPadding->sides[i].isAuto()) spec.style(kPaddings[i], mPadding->sides[i].cssText());
}

} // namespace Wt
