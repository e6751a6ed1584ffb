#pragma once

#include <Wt/Impl/RenderNode.h>
#include <Wt/WWidget.h>

#include <functional>

namespace Wt {

class WLayout;

/// Base of the widgets that are one element of the page. State that few widgets have is made on first use.
class WWebWidget : public WWidget, public Impl::RenderNode {
public:
    explicit WWebWidget(WContainerWidget* parent = nullptr);
    ~WWebWidget() override;

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
    bool isInline() const override { return mInline; }
    bool isPopup() const override { return mPopup; }
    WCssDecorationStyle& decorationStyle() override;
    WString styleClass() const override;
    bool hasStyleClass(const WString& styleClass) const override;
    AlignmentFlag verticalAlignment() const override;
    WLength verticalAlignmentLength() const override;
    WString toolTip() const override;
    bool isHidden() const override { return mHidden; }
    bool isVisible() const override;
    bool isDisabled() const override { return mDisabled; }
    bool isEnabled() const override;
    WString attributeValue(const std::string& name) const override;
    bool canReceiveFocus() const override;
    int tabIndex() const override;
    bool hasFocus() const override;
    bool isRendered() const override { return nodeRendered(); }

    // Impl::RenderNode
    bool nodeHidden() const override { return mHidden; }
    bool nodePreloaded() const override { return mPreloaded; }
    bool nodeAcceptsEvents() const override;
    void browserEvent(std::string_view kind, const boost::json::object& event) override;

protected:
    /// Adds what every widget has: size, margins, style classes, visibility, tool tip, attributes. Derived
    /// classes name their tag first and call this at the end.
    void describeCommon(Impl::ElementSpec& spec) const;
    /// What the element is called; used by describe() of this class.
    virtual const char* tag() const { return mInline ? "span" : "div"; }
    void describe(Impl::ElementSpec& spec) override;
    void eventSignalChanged() override { nodeChanged(); }
    /// Takes ownership of `child` as a part of this widget (not of a container); childNodes() must tell its
    /// element. A part that dies is reported by removeChild().
    void adopt(WWidget* child);
    static Impl::RenderNode* nodeOf(const WWidget* widget);

private:
    friend class WWidget;
    friend class WLayout;
    friend class WCompositeWidget;
    friend class WContainerWidget;
    friend class WMenu;

    struct Look; // sizes, margins, offsets, tool tip, attributes, decoration: made on first use
    Look& look();
    WWebWidget* webWidget() const override { return const_cast<WWebWidget*>(this); }
    void setSizeAware(WWidget* listener, bool aware);
    void setLength(int place, const WLength& length);
    void setLengths(int first, const WLength& length, WFlags<Side> sides);
    void noteEcho(int place, const WLength& length);
    WLength length(int place) const;
    WLength sideLength(int first, Side side) const;
    const WWidget& outermost() const;
    void describeSizes(Impl::ElementSpec& spec, const Look& look) const;

    std::unique_ptr<Look> mLook;
    const std::string* mStyleClass = nullptr; // interned, shared by the process; null = none
    bool mHidden : 1 = false;
    bool mDisabled : 1 = false;
    bool mInline : 1 = true;
    bool mPopup : 1 = false;
    bool mSizeAware : 1 = false;
    bool mPreloaded : 1 = false;
};

} // namespace Wt
