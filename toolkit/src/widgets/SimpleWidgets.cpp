// WBreak, WImage, WIconPair and WLabel.
#include <Wt/WBreak.h>
#include <Wt/WContainerWidget.h>
#include <Wt/WFormWidget.h>
#include <Wt/WIconPair.h>
#include <Wt/WImage.h>
#include <Wt/WLabel.h>
#include <Wt/WResource.h>

#include "text/DescribeText.h"
#include "text/XhtmlFilter.h"
#include "web/ElementSpec.h"
#include "web/JsonText.h"

namespace Wt {

WBreak::WBreak(WContainerWidget* parent) : WWebWidget(parent) {}

WImage::WImage(WContainerWidget* parent) : WInteractWidget(parent) {}
WImage::WImage(const WLink& link, WContainerWidget* parent) : WInteractWidget(parent) {
    setImageLink(link);
}
WImage::WImage(const WLink& link, const WString& altText, WContainerWidget* parent)
    : WInteractWidget(parent), mAlt(altText) {
    setImageLink(link);
}

void WImage::setAlternateText(const WString& text) {
    mAlt = text;
    nodeChanged();
}

void WImage::setImageLink(const WLink& link) {
    if (link == mLink && link.type() != WLink::Resource) return;
    mLink = link;
    mResourceChanged.disconnect();
    if (link.resource())
        mResourceChanged = link.resource()->dataChanged().connect(this, &WImage::eventSignalChanged);
    nodeChanged();
}

void WImage::describe(Impl::ElementSpec& spec) {
    WInteractWidget::describe(spec);
    spec.attribute("alt", mAlt.toUTF8());
    const std::string url = mLink.url();
    if (!url.empty() && Impl::isHarmlessUrl(url)) spec.attribute("src", url);
}

WIconPair::WIconPair(const std::string& icon1Ref, const std::string& icon2Ref, bool clickIsSwitch,
                     WContainerWidget* parent)
    : WCompositeWidget(parent) {
    auto* both = new WContainerWidget;
    both->setInline(true);
    mIcons[0] = new WImage(WLink(icon1Ref), both);
    mIcons[1] = new WImage(WLink(icon2Ref), both);
    setImplementation(both);
    mIcons[1]->hide();
    if (!clickIsSwitch) return;
    mIcons[0]->clicked().connect(this, &WIconPair::showIcon2);
    mIcons[1]->clicked().connect(this, &WIconPair::showIcon1);
}

void WIconPair::setState(int num) {
    mState = num ? 1 : 0;
    mIcons[0]->setHidden(mState != 0);
    mIcons[1]->setHidden(mState != 1);
}

EventSignal<WMouseEvent>& WIconPair::icon1Clicked() {
    return mIcons[0]->clicked();
}
EventSignal<WMouseEvent>& WIconPair::icon2Clicked() {
    return mIcons[1]->clicked();
}

WLabel::WLabel(WContainerWidget* parent) : WInteractWidget(parent) {}
WLabel::WLabel(const WString& text, WContainerWidget* parent) : WInteractWidget(parent), mText(text) {}
WLabel::WLabel(WImage* image, WContainerWidget* parent) : WInteractWidget(parent) {
    setImage(image);
}

WLabel::~WLabel() {
    setBuddy(nullptr);
    if (WImage* image = std::exchange(mImage, nullptr)) delete image;
}

void WLabel::setBuddy(WFormWidget* buddy) {
    if (buddy == mBuddy) return;
    if (mBuddy) mBuddy->mLabel = nullptr;
    mBuddy = buddy;
    if (buddy) {
        if (buddy->mLabel) buddy->mLabel->setBuddy(nullptr);
        buddy->mLabel = this;
    }
    nodeChanged();
}

void WLabel::setText(const WString& text) {
    if (text == mText && text.literal() && mText.literal()) return;
    mText = text;
    nodeChanged();
}

bool WLabel::setTextFormat(TextFormat format) {
    if (!Impl::readsAs(mText, format)) return false;
    mFormat = format;
    nodeChanged();
    return true;
}

void WLabel::setImage(WImage* image, Side) {
    delete mImage;
    mImage = image;
    if (image) adopt(image);
    nodeChildrenChanged();
}

void WLabel::setWordWrap(bool wordWrap) {
    mWordWrap = wordWrap;
    nodeChanged();
}

void WLabel::childNodes(std::vector<Impl::RenderNode*>& children) {
    if (mImage) children.push_back(mImage);
}

void WLabel::describe(Impl::ElementSpec& spec) {
    WInteractWidget::describe(spec);
    if (mImage)
        spec.body("[" + Impl::jsonText(mText.toUTF8()) + "]");
    else
        Impl::describeText(spec, mText, mFormat);
    if (mBuddy) spec.attribute("for", mBuddy->inputId());
    if (!mWordWrap) spec.style("white-space", "nowrap");
}

} // namespace Wt
