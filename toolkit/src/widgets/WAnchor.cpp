#include <Wt/WAnchor.h>

#include "text/DescribeLink.h"
#include "text/DescribeText.h"
#include "web/ElementSpec.h"

#include <Wt/WImage.h>
#include <Wt/WResource.h>

namespace Wt {

WAnchor::WAnchor(WContainerWidget* parent) : WContainerWidget(parent) {
    setInline(true);
}

WAnchor::WAnchor(const WLink& link, WContainerWidget* parent) : WAnchor(parent) {
    setLink(link);
}

WAnchor::WAnchor(const WLink& link, const WString& text, WContainerWidget* parent) : WAnchor(parent) {
    setLink(link);
    mText = text;
}

WAnchor::WAnchor(const WLink& link, WImage* image, WContainerWidget* parent) : WAnchor(parent) {
    setLink(link);
    setImage(image);
}

void WAnchor::setLink(const WLink& link) {
    if (link == mLink && !link.resource()) return;
    mLink = link;
    mResourceChanged.disconnect();
    if (link.resource())
        mResourceChanged = link.resource()->dataChanged().connect(this, &WAnchor::eventSignalChanged);
    nodeChanged();
}

bool WAnchor::setText(const WString& text) {
    if (text == mText && text.literal() && mText.literal()) return true;
    mText = text;
    nodeChanged();
    return Impl::readsAs(text, mFormat);
}

bool WAnchor::setTextFormat(TextFormat format) {
    if (!Impl::readsAs(mText, format)) return false;
    mFormat = format;
    nodeChanged();
    return true;
}

void WAnchor::setWordWrap(bool wordWrap) {
    mWordWrap = wordWrap;
    nodeChanged();
}

void WAnchor::setImage(WImage* image) {
    delete mImage;
    mImage = image;
    if (image) addWidget(image);
}

void WAnchor::setTarget(AnchorTarget target) {
    mTarget = target;
    nodeChanged();
}

void WAnchor::removeWidget(WWidget* widget) {
    if (widget == mImage) mImage = nullptr;
    WContainerWidget::removeWidget(widget);
}

void WAnchor::refresh() {
    if (!mText.literal()) nodeChanged();
    WContainerWidget::refresh();
}

void WAnchor::describe(Impl::ElementSpec& spec) {
    WContainerWidget::describe(spec);
    Impl::describeText(spec, mText, mFormat);
    if (!mLink.isNull()) Impl::describeLink(spec, mLink, mTarget, isEnabled());
    if (!mWordWrap) spec.style("white-space", "nowrap");
}

} // namespace Wt
