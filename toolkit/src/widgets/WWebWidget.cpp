#include <Wt/WWebWidget.h>

#include "web/WebSession.h"
#include "widgets/Interned.h"
#include "widgets/Look.h"

#include <Wt/WContainerWidget.h>

namespace Wt {

using Impl::WebSession;

namespace {

/// Style class lists are short: names separated by blanks.
std::vector<std::string> namesIn(const std::string& classes) {
    std::vector<std::string> names;
    for (std::size_t begin = 0; begin < classes.size();) {
        const std::size_t end = std::min(classes.find(' ', begin), classes.size());
        if (end > begin) names.push_back(classes.substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        if (!text.empty()) text += ' ';
        text += name;
    }
    return text;
}

constexpr struct {
    Side side;
    int offset;
} kSides[] = {{Top, 0}, {Right, 1}, {Bottom, 2}, {Left, 3}};

} // namespace

WWebWidget::WWebWidget(WContainerWidget* parent) {
    if (parent) parent->addWidget(this);
}

WWebWidget::~WWebWidget() {
    leaveParent();
}

WWebWidget::Look& WWebWidget::look() {
    if (!mLook) mLook = std::make_unique<Look>();
    return *mLook;
}

void WWebWidget::adopt(WWidget* child) {
    addChild(child);
    child->webWidget()->setNodeParent(this);
    nodeChildrenChanged();
}

Impl::RenderNode* WWebWidget::nodeOf(const WWidget* widget) {
    return widget ? widget->webWidget() : nullptr;
}

void WWebWidget::setPositionScheme(PositionScheme scheme) {
    if (positionScheme() == scheme) return;
    look().rare().position = scheme;
    nodeChanged();
}

PositionScheme WWebWidget::positionScheme() const {
    return mLook ? mLook->seldom().position : Static;
}

void WWebWidget::setLengths(int first, const WLength& length, WFlags<Side> sides) {
    bool changed = false;
    for (const auto& [side, offset] : kSides)
        if (sides & side) changed |= look().setLength(static_cast<Look::Place>(first + offset), length);
    if (changed) nodeChanged();
}

void WWebWidget::setLength(int place, const WLength& length) {
    if (!mLook && length.isAuto()) return;
    if (place == Look::Width || place == Look::Height) noteEcho(place, length);
    if (look().setLength(static_cast<Look::Place>(place), length)) nodeChanged();
}

void WWebWidget::noteEcho(int place, const WLength& length) {
    Look& own = look();
    const auto bit = static_cast<unsigned char>(place == Look::Width ? 1 : 2);
    const WLength told(place == Look::Width ? own.seldom().sizeWidth : own.seldom().sizeHeight);
    const bool free = (own.echoed & bit) || own.length(static_cast<Look::Place>(place)).isAuto();
    const unsigned char before = own.echoed;
    if (own.reporting && length == told && free)
        own.echoed |= bit;
    else
        own.echoed &= static_cast<unsigned char>(~bit);
    if (own.echoed != before) nodeChanged();
}

WLength WWebWidget::length(int place) const {
    return mLook ? mLook->length(static_cast<Look::Place>(place))
                 : Look().length(static_cast<Look::Place>(place));
}

WLength WWebWidget::sideLength(int first, Side wanted) const {
    for (const auto& [side, offset] : kSides)
        if (side == wanted) return length(first + offset);
    return WLength::Auto;
}

void WWebWidget::setOffsets(const WLength& offset, WFlags<Side> sides) {
    setLengths(Look::OffsetTop, offset, sides);
}

void WWebWidget::setMargin(const WLength& margin, WFlags<Side> sides) {
    setLengths(Look::MarginTop, margin, sides);
}

WLength WWebWidget::offset(Side side) const {
    return sideLength(Look::OffsetTop, side);
}
WLength WWebWidget::margin(Side side) const {
    return sideLength(Look::MarginTop, side);
}

void WWebWidget::resize(const WLength& width, const WLength& height) {
    setLength(Look::Width, width);
    setLength(Look::Height, height);
}

void WWebWidget::setMinimumSize(const WLength& width, const WLength& height) {
    setLength(Look::MinWidth, width);
    setLength(Look::MinHeight, height);
}

void WWebWidget::setMaximumSize(const WLength& width, const WLength& height) {
    setLength(Look::MaxWidth, width);
    setLength(Look::MaxHeight, height);
}

void WWebWidget::setLineHeight(const WLength& height) {
    setLength(Look::LineHeight, height);
}

WLength WWebWidget::width() const {
    return length(Look::Width);
}
WLength WWebWidget::height() const {
    return length(Look::Height);
}
WLength WWebWidget::minimumWidth() const {
    return length(Look::MinWidth);
}
WLength WWebWidget::minimumHeight() const {
    return length(Look::MinHeight);
}
WLength WWebWidget::maximumWidth() const {
    return length(Look::MaxWidth);
}
WLength WWebWidget::maximumHeight() const {
    return length(Look::MaxHeight);
}
WLength WWebWidget::lineHeight() const {
    return length(Look::LineHeight);
}

void WWebWidget::setFloatSide(Side side) {
    look().rare().floatSide = side;
    nodeChanged();
}

Side WWebWidget::floatSide() const {
    return mLook ? mLook->seldom().floatSide : None;
}

void WWebWidget::setClearSides(WFlags<Side> sides) {
    look().rare().clearSides = sides;
    nodeChanged();
}

WFlags<Side> WWebWidget::clearSides() const {
    return mLook ? mLook->seldom().clearSides : WFlags<Side>();
}

void WWebWidget::setInline(bool isInline) {
    if (mInline == isInline) return;
    mInline = isInline;
    nodeChanged();
}

void WWebWidget::setPopup(bool popup) {
    if (mPopup == popup) return;
    mPopup = popup;
    nodeChanged();
}

WCssDecorationStyle& WWebWidget::decorationStyle() {
    auto& decoration = look().rare().decoration;
    if (!decoration) {
        decoration = std::make_unique<WCssDecorationStyle>();
        decoration->mChanged = [this] { nodeChanged(); };
    }
    return *decoration;
}

void WWebWidget::setDecorationStyle(const WCssDecorationStyle& style) {
    WCssDecorationStyle& own = decorationStyle();
    auto changed = std::move(own.mChanged);
    own = style;
    own.mChanged = std::move(changed);
    nodeChanged();
}

void WWebWidget::setStyleClass(const WString& styleClass) {
    const std::string* classes = Impl::interned(styleClass.toUTF8());
    if (classes == mStyleClass) return;
    mStyleClass = classes;
    nodeChanged();
}

void WWebWidget::addStyleClass(const WString& styleClass, bool) {
    std::vector<std::string> names = mStyleClass ? namesIn(*mStyleClass) : std::vector<std::string>();
    for (const std::string& name : namesIn(styleClass.toUTF8()))
        if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    setStyleClass(WString(joined(names)));
}

void WWebWidget::removeStyleClass(const WString& styleClass, bool) {
    if (!mStyleClass) return;
    std::vector<std::string> names = namesIn(*mStyleClass);
    for (const std::string& name : namesIn(styleClass.toUTF8())) std::erase(names, name);
    setStyleClass(WString(joined(names)));
}

WString WWebWidget::styleClass() const {
    return mStyleClass ? WString(*mStyleClass) : WString();
}

bool WWebWidget::hasStyleClass(const WString& styleClass) const {
    if (!mStyleClass) return false;
    const std::vector<std::string> names = namesIn(*mStyleClass);
    return std::find(names.begin(), names.end(), styleClass.toUTF8()) != names.end();
}

void WWebWidget::setVerticalAlignment(AlignmentFlag alignment, const WLength& length) {
    look().vertical = alignment;
    look().setLength(Look::VerticalLength, length);
    nodeChanged();
}

AlignmentFlag WWebWidget::verticalAlignment() const {
    return mLook ? mLook->vertical : AlignBaseline;
}
WLength WWebWidget::verticalAlignmentLength() const {
    return length(Look::VerticalLength);
}

void WWebWidget::setToolTip(const WString& text, TextFormat textFormat) {
    if (!mLook && text.literal() && text.empty()) return;
    look().toolTip = text;
    look().toolTipFormat = textFormat;
    nodeChanged();
}

WString WWebWidget::toolTip() const {
    return mLook ? mLook->toolTip : WString();
}

void WWebWidget::setHidden(bool hidden, const WAnimation& animation) {
    if (mHidden == hidden) return;
    mHidden = hidden;
    if (!animation.empty() || (mLook && !mLook->seldom().animation.empty()))
        look().rare().animation = animation;
    nodeChanged();
    if (WWidget* owner = parent(); !owner || owner->isVisible()) propagateSetVisible(!hidden);
}

bool WWebWidget::isVisible() const {
    if (mHidden) return false;
    const WWidget* owner = parent();
    return !owner || owner->isVisible();
}

void WWebWidget::setDisabled(bool disabled) {
    if (mDisabled == disabled) return;
    mDisabled = disabled;
    nodeChanged();
    if (WWidget* owner = parent(); !owner || owner->isEnabled()) propagateSetEnabled(!disabled);
}

bool WWebWidget::isEnabled() const {
    if (mDisabled) return false;
    const WWidget* owner = parent();
    return !owner || owner->isEnabled();
}

bool WWebWidget::nodeAcceptsEvents() const {
    return isVisible() && isEnabled();
}

void WWebWidget::setAttributeValue(const std::string& name, const WString& value) {
    auto& attributes = look().rare().attributes;
    for (auto& [known, text] : attributes)
        if (known == name) {
            if (text == value) return;
            text = value;
            return nodeChanged();
        }
    attributes.emplace_back(name, value);
    nodeChanged();
}

WString WWebWidget::attributeValue(const std::string& name) const {
    if (mLook)
        for (const auto& [known, text] : mLook->seldom().attributes)
            if (known == name) return text;
    return WString();
}

void WWebWidget::setId(const std::string& id) {
    look().rare().givenId = id;
    nodeChanged();
}

const std::string WWebWidget::id() const {
    return mLook && !mLook->seldom().givenId.empty() ? mLook->seldom().givenId
                                                     : "o" + std::to_string(nodeId());
}

void WWebWidget::setSelectable(bool selectable) {
    look().rare().unselectable = !selectable;
    nodeChanged();
}

void WWebWidget::setCanReceiveFocus(bool enabled) {
    look().rare().canReceiveFocus = enabled;
    if (!look().rare().tabIndex) look().rare().tabIndex = enabled ? 0 : -1;
    nodeChanged();
}

bool WWebWidget::canReceiveFocus() const {
    return mLook && mLook->seldom().canReceiveFocus;
}

void WWebWidget::setTabIndex(int index) {
    if (mLook && mLook->seldom().tabIndex == index) return;
    look().rare().tabIndex = index;
    nodeChanged();
}

int WWebWidget::tabIndex() const {
    return mLook && mLook->seldom().tabIndex ? *mLook->seldom().tabIndex : canReceiveFocus() ? 0 : -1;
}

void WWebWidget::setFocus(bool focus) {
    WebSession* session = WebSession::current();
    if (!session) return;
    if (focus)
        session->setFocused(nodeId());
    else if (session->focused() == nodeId())
        session->setFocused(0);
}

bool WWebWidget::hasFocus() const {
    const WebSession* session = WebSession::current();
    return session && session->focused() == nodeId();
}

void WWebWidget::refresh() {
    if (mLook && !mLook->toolTip.literal()) nodeChanged();
    WWidget::refresh();
}

void WWebWidget::setSizeAware(WWidget* listener, bool aware) {
    if (mSizeAware == aware && (!aware || mLook->seldom().sizeListener == listener)) return;
    mSizeAware = aware;
    if (aware) look().rare().sizeListener = listener;
    nodeChanged();
}

} // namespace Wt
