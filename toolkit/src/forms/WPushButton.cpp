#include <Wt/WPushButton.h>

#include "text/DescribeLink.h"
#include "text/DescribeText.h"
#include "text/XhtmlFilter.h"
#include "web/ElementSpec.h"
#include "web/JsonText.h"

#include <Wt/WResource.h>

namespace Wt {

WPushButton::WPushButton(WContainerWidget* parent) : WFormWidget(parent) {}
WPushButton::WPushButton(const WString& text, WContainerWidget* parent) : WFormWidget(parent), mText(text) {}
WPushButton::WPushButton(const WString& text, TextFormat format, WContainerWidget* parent)
    : WFormWidget(parent), mText(text), mFormat(format) {}
WPushButton::~WPushButton() = default;

bool WPushButton::setText(const WString& text) {
    if (text == mText && text.literal() && mText.literal()) return true;
    mText = text;
    nodeChanged();
    return Impl::readsAs(mText, mFormat);
}

bool WPushButton::setTextFormat(TextFormat format) {
    if (!Impl::readsAs(mText, format)) return false;
    mFormat = format;
    nodeChanged();
    return true;
}

void WPushButton::setIcon(const WLink& link) {
    if (link == mIcon) return;
    mIcon = link;
    nodeChanged();
}

void WPushButton::setLink(const WLink& link) {
    if (link == mLink && !link.resource()) return;
    mLink = link;
    mResourceChanged.disconnect();
    if (link.resource())
        mResourceChanged = link.resource()->dataChanged().connect(this, &WPushButton::eventSignalChanged);
    nodeChanged();
}

void WPushButton::setLinkTarget(AnchorTarget target) {
    mTarget = target;
    nodeChanged();
}

void WPushButton::setDefault(bool enabled) {
    mDefault = enabled;
    nodeChanged();
}

void WPushButton::setCheckable(bool checkable) {
    mCheckable = checkable;
    nodeChanged();
}

void WPushButton::setChecked(bool checked) {
    mChecked = checked;
    nodeChanged();
}

void WPushButton::setValueText(const WString&) {}

void WPushButton::refresh() {
    if (!mText.literal()) nodeChanged();
    WFormWidget::refresh();
}

void WPushButton::describe(Impl::ElementSpec& spec) {
    WFormWidget::describe(spec);
    spec.styleClass(mDefault ? "Wt-btn Wt-default" : "Wt-btn");
    if (mLink.isNull()) {
        spec.attribute("type", "button");
    } else {
        spec.attribute("role", "button");
        Impl::describeLink(spec, mLink, mTarget, isEnabled());
    }
    if (mCheckable) spec.attribute("aria-pressed", mChecked ? "true" : "false");
    const std::string icon = mIcon.url();
    if (icon.empty() || !Impl::isHarmlessUrl(icon)) return Impl::describeText(spec, mText, mFormat);
    const std::string text = mFormat == PlainText ? mText.toUTF8() : Impl::xhtmlToPlain(mText.toUTF8());
    spec.body("[[\"img\",{\"src\":" + Impl::jsonText(icon) + ",\"alt\":\"\"}]," + Impl::jsonText(text) + "]");
}

} // namespace Wt
