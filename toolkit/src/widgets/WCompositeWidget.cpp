#include <Wt/WCompositeWidget.h>

#include <Wt/WContainerWidget.h>
#include <Wt/WCssDecorationStyle.h>
#include <Wt/WWebWidget.h>

#include <utility>

namespace Wt {

WCompositeWidget::WCompositeWidget(WContainerWidget* parent) : mWaitingParent(parent) {}

WCompositeWidget::WCompositeWidget(WWidget* implementation, WContainerWidget* parent)
    : mWaitingParent(parent) {
    setImplementation(implementation);
}

WCompositeWidget::~WCompositeWidget() {
    leaveParent();
    if (mImpl) {
        setOwner(*mImpl, nullptr);
        delete mImpl;
    }
}

void WCompositeWidget::setImplementation(WWidget* widget) {
    mImpl = widget;
    setOwner(*widget, this);
    if (mWaitingParent) std::exchange(mWaitingParent, nullptr)->addWidget(this);
}

WWebWidget* WCompositeWidget::webWidget() const {
    return mImpl ? mImpl->webWidget() : nullptr;
}

void WCompositeWidget::setPositionScheme(PositionScheme scheme) {
    mImpl->setPositionScheme(scheme);
}
void WCompositeWidget::setOffsets(const WLength& offset, WFlags<Side> sides) {
    mImpl->setOffsets(offset, sides);
}
void WCompositeWidget::resize(const WLength& width, const WLength& height) {
    mImpl->resize(width, height);
}
void WCompositeWidget::setMinimumSize(const WLength& width, const WLength& height) {
    mImpl->setMinimumSize(width, height);
}
void WCompositeWidget::setMaximumSize(const WLength& width, const WLength& height) {
    mImpl->setMaximumSize(width, height);
}
void WCompositeWidget::setLineHeight(const WLength& height) {
    mImpl->setLineHeight(height);
}
void WCompositeWidget::setFloatSide(Side side) {
    mImpl->setFloatSide(side);
}
void WCompositeWidget::setClearSides(WFlags<Side> sides) {
    mImpl->setClearSides(sides);
}
void WCompositeWidget::setMargin(const WLength& margin, WFlags<Side> sides) {
    mImpl->setMargin(margin, sides);
}
void WCompositeWidget::setInline(bool isInline) {
    mImpl->setInline(isInline);
}
void WCompositeWidget::setPopup(bool popup) {
    mImpl->setPopup(popup);
}
void WCompositeWidget::setDecorationStyle(const WCssDecorationStyle& style) {
    mImpl->setDecorationStyle(style);
}
void WCompositeWidget::setStyleClass(const WString& styleClass) {
    mImpl->setStyleClass(styleClass);
}
void WCompositeWidget::addStyleClass(const WString& styleClass, bool force) {
    mImpl->addStyleClass(styleClass, force);
}
void WCompositeWidget::removeStyleClass(const WString& styleClass, bool force) {
    mImpl->removeStyleClass(styleClass, force);
}
void WCompositeWidget::setVerticalAlignment(AlignmentFlag alignment, const WLength& length) {
    mImpl->setVerticalAlignment(alignment, length);
}
void WCompositeWidget::setToolTip(const WString& text, TextFormat textFormat) {
    mImpl->setToolTip(text, textFormat);
}
void WCompositeWidget::setHidden(bool hidden, const WAnimation& animation) {
    mImpl->setHidden(hidden, animation);
}
void WCompositeWidget::setDisabled(bool disabled) {
    mImpl->setDisabled(disabled);
}
void WCompositeWidget::setAttributeValue(const std::string& name, const WString& value) {
    mImpl->setAttributeValue(name, value);
}
void WCompositeWidget::setId(const std::string& id) {
    mImpl->setId(id);
}
void WCompositeWidget::setSelectable(bool selectable) {
    mImpl->setSelectable(selectable);
}
void WCompositeWidget::setCanReceiveFocus(bool enabled) {
    mImpl->setCanReceiveFocus(enabled);
}
void WCompositeWidget::setTabIndex(int index) {
    mImpl->setTabIndex(index);
}
void WCompositeWidget::setFocus(bool focus) {
    mImpl->setFocus(focus);
}
void WCompositeWidget::refresh() {
    if (mImpl) mImpl->refresh();
    WWidget::refresh();
}
void WCompositeWidget::setObjectName(const std::string& name) {
    WWidget::setObjectName(name);
}

const std::string WCompositeWidget::id() const {
    return mImpl ? mImpl->id() : WObject::id();
}
PositionScheme WCompositeWidget::positionScheme() const {
    return mImpl->positionScheme();
}
WLength WCompositeWidget::offset(Side side) const {
    return mImpl->offset(side);
}
WLength WCompositeWidget::width() const {
    return mImpl->width();
}
WLength WCompositeWidget::height() const {
    return mImpl->height();
}
WLength WCompositeWidget::minimumWidth() const {
    return mImpl->minimumWidth();
}
WLength WCompositeWidget::minimumHeight() const {
    return mImpl->minimumHeight();
}
WLength WCompositeWidget::maximumWidth() const {
    return mImpl->maximumWidth();
}
WLength WCompositeWidget::maximumHeight() const {
    return mImpl->maximumHeight();
}
WLength WCompositeWidget::lineHeight() const {
    return mImpl->lineHeight();
}
Side WCompositeWidget::floatSide() const {
    return mImpl->floatSide();
}
WFlags<Side> WCompositeWidget::clearSides() const {
    return mImpl->clearSides();
}
WLength WCompositeWidget::margin(Side side) const {
    return mImpl->margin(side);
}
bool WCompositeWidget::isInline() const {
    return mImpl->isInline();
}
bool WCompositeWidget::isPopup() const {
    return mImpl->isPopup();
}
WCssDecorationStyle& WCompositeWidget::decorationStyle() {
    return mImpl->decorationStyle();
}
WString WCompositeWidget::styleClass() const {
    return mImpl->styleClass();
}
bool WCompositeWidget::hasStyleClass(const WString& styleClass) const {
    return mImpl->hasStyleClass(styleClass);
}
AlignmentFlag WCompositeWidget::verticalAlignment() const {
    return mImpl->verticalAlignment();
}
WLength WCompositeWidget::verticalAlignmentLength() const {
    return mImpl->verticalAlignmentLength();
}
WString WCompositeWidget::toolTip() const {
    return mImpl->toolTip();
}
bool WCompositeWidget::isHidden() const {
    return mImpl->isHidden();
}
bool WCompositeWidget::isDisabled() const {
    return mImpl->isDisabled();
}
WString WCompositeWidget::attributeValue(const std::string& name) const {
    return mImpl->attributeValue(name);
}
bool WCompositeWidget::canReceiveFocus() const {
    return mImpl->canReceiveFocus();
}
int WCompositeWidget::tabIndex() const {
    return mImpl->tabIndex();
}
bool WCompositeWidget::hasFocus() const {
    return mImpl->hasFocus();
}
bool WCompositeWidget::isRendered() const {
    return mImpl->isRendered();
}

// The ancestors are this widget's; the implementation's parent is this.
bool WCompositeWidget::isVisible() const {
    if (mImpl->isHidden()) return false;
    const WWidget* owner = parent();
    return !owner || owner->isVisible();
}

bool WCompositeWidget::isEnabled() const {
    if (mImpl->isDisabled()) return false;
    const WWidget* owner = parent();
    return !owner || owner->isEnabled();
}

void WCompositeWidget::propagateSetEnabled(bool enabled) {
    mImpl->propagateSetEnabled(enabled);
}
void WCompositeWidget::propagateSetVisible(bool visible) {
    mImpl->propagateSetVisible(visible);
}

WWidget* WCompositeWidget::find(const std::string& name) {
    if (objectName() == name) return this;
    return mImpl ? mImpl->find(name) : nullptr;
}

} // namespace Wt
