#pragma once

#include <Wt/WWidget.h>

namespace Wt {

/// A widget that is made of another one, to which it hands on everything.
class WCompositeWidget : public WWidget {
public:
    explicit WCompositeWidget(WContainerWidget* parent = nullptr);
    WCompositeWidget(WWidget* implementation, WContainerWidget* parent);
    ~WCompositeWidget() override;

    void setPositionScheme(PositionScheme scheme) override;
    void setOffsets(const WLength& offset, WFlags<Side> sides = All) override;
    void resize(const WLength& width, const WLength& height) override;
    void setMinimumSize(const WLength& width, const WLength& height) override;
    void setMaximumSize(const WLength& width, const WLength& height) override;
    void setLineHeight(const WLength& height) override;
    void setFloatSide(Side side) override;
    void setClearSides(WFlags<Side> sides) override;
    void setMargin(const WLength& margin, WFlags<Side> sides = All) override;
    void setInline(bool isInline) override;
    void setPopup(bool popup) override;
    void setDecorationStyle(const WCssDecorationStyle& style) override;
    void setStyleClass(const WString& styleClass) override;
    using WWidget::setStyleClass;
    void addStyleClass(const WString& styleClass, bool force = false) override;
    using WWidget::addStyleClass;
    void removeStyleClass(const WString& styleClass, bool force = false) override;
    using WWidget::removeStyleClass;
    void setVerticalAlignment(AlignmentFlag alignment, const WLength& length = WLength::Auto) override;
    void setToolTip(const WString& text, TextFormat textFormat = PlainText) override;
    void setHidden(bool hidden, const WAnimation& animation = WAnimation()) override;
    void setDisabled(bool disabled) override;
    void setAttributeValue(const std::string& name, const WString& value) override;
    void setId(const std::string& id) override;
    void setSelectable(bool selectable) override;
    void setCanReceiveFocus(bool enabled) override;
    void setTabIndex(int index) override;
    void setFocus(bool focus) override;
    using WWidget::setFocus;
    void refresh() override;
    void setObjectName(const std::string& name) override;

    const std::string id() const override;
    PositionScheme positionScheme() const override;
    WLength offset(Side side) const override;
    WLength width() const override;
    WLength height() const override;
    WLength minimumWidth() const override;
    WLength minimumHeight() const override;
    WLength maximumWidth() const override;
    WLength maximumHeight() const override;
    WLength lineHeight() const override;
    Side floatSide() const override;
    WFlags<Side> clearSides() const override;
    WLength margin(Side side) const override;
    bool isInline() const override;
    bool isPopup() const override;
    WCssDecorationStyle& decorationStyle() override;
    WString styleClass() const override;
    bool hasStyleClass(const WString& styleClass) const override;
    AlignmentFlag verticalAlignment() const override;
    WLength verticalAlignmentLength() const override;
    WString toolTip() const override;
    bool isHidden() const override;
    bool isVisible() const override;
    bool isDisabled() const override;
    bool isEnabled() const override;
    WString attributeValue(const std::string& name) const override;
    bool canReceiveFocus() const override;
    int tabIndex() const override;
    bool hasFocus() const override;
    bool isRendered() const override;
    WWidget* find(const std::string& name) override;

protected:
    /// Takes ownership; once.
    void setImplementation(WWidget* widget);
    WWidget* implementation() const { return mImpl; }

    void propagateSetEnabled(bool enabled) override;
    void propagateSetVisible(bool visible) override;

private:
    WWebWidget* webWidget() const override;

    WWidget* mImpl = nullptr;
    WContainerWidget* mWaitingParent = nullptr; // until there is an implementation
};

} // namespace Wt
