#pragma once

#include <Wt/WAnimation.h>
#include <Wt/WGlobal.h>
#include <Wt/WLength.h>
#include <Wt/WObject.h>

namespace Wt {

class WContainerWidget;
class WCssDecorationStyle;
class WWebWidget;

/// Base of everything on the page. A widget belongs to the container it was added to;
/// deleting it takes it out.
class WWidget : public WObject {
public:
    ~WWidget() override;

    virtual void setPositionScheme(PositionScheme scheme) = 0;
    virtual void setOffsets(const WLength& offset, WFlags<Side> sides = All) = 0;
    virtual void resize(const WLength& width, const WLength& height) = 0;
    void setWidth(const WLength& width) { resize(width, height()); }
    void setHeight(const WLength& height) { resize(width(), height); }
    virtual void setMinimumSize(const WLength& width, const WLength& height) = 0;
    virtual void setMaximumSize(const WLength& width, const WLength& height) = 0;
    virtual void setLineHeight(const WLength& height) = 0;
    virtual void setFloatSide(Side side) = 0;
    virtual void setClearSides(WFlags<Side> sides) = 0;
    virtual void setMargin(const WLength& margin, WFlags<Side> sides = All) = 0;
    virtual void setInline(bool isInline) = 0;
    virtual void setPopup(bool popup) = 0;
    virtual void setDecorationStyle(const WCssDecorationStyle& style) = 0;
    virtual void setStyleClass(const WString& styleClass) = 0;
    void setStyleClass(const char* styleClass) { setStyleClass(WString(styleClass)); }
    virtual void addStyleClass(const WString& styleClass, bool force = false) = 0;
    void addStyleClass(const char* styleClass, bool force = false) {
        addStyleClass(WString(styleClass), force);
    }
    virtual void removeStyleClass(const WString& styleClass, bool force = false) = 0;
    void removeStyleClass(const char* styleClass, bool force = false) {
        removeStyleClass(WString(styleClass), force);
    }
    void toggleStyleClass(const WString& styleClass, bool add, bool force = false);
    virtual void setVerticalAlignment(AlignmentFlag alignment, const WLength& length = WLength::Auto) = 0;
    virtual void setToolTip(const WString& text, TextFormat textFormat = PlainText) = 0;
    virtual void setHidden(bool hidden, const WAnimation& animation = WAnimation()) = 0;
    void hide() { setHidden(true); }
    void show() { setHidden(false); }
    void animateHide(const WAnimation& animation) { setHidden(true, animation); }
    void animateShow(const WAnimation& animation) { setHidden(false, animation); }
    virtual void setDisabled(bool disabled) = 0;
    void enable() { setDisabled(false); }
    void disable() { setDisabled(true); }
    virtual void setAttributeValue(const std::string& name, const WString& value) = 0;
    virtual void setId(const std::string& id) = 0;
    virtual void setSelectable(bool selectable) = 0;
    virtual void setCanReceiveFocus(bool enabled) = 0;
    virtual void setTabIndex(int index) = 0;
    virtual void setFocus(bool focus) = 0;
    virtual void setFocus() { setFocus(true); }
    virtual void refresh();

    WWidget* parent() const;
    virtual PositionScheme positionScheme() const = 0;
    virtual WLength offset(Side side) const = 0;
    virtual WLength width() const = 0;
    virtual WLength height() const = 0;
    virtual WLength minimumWidth() const = 0;
    virtual WLength minimumHeight() const = 0;
    virtual WLength maximumWidth() const = 0;
    virtual WLength maximumHeight() const = 0;
    virtual WLength lineHeight() const = 0;
    virtual Side floatSide() const = 0;
    virtual WFlags<Side> clearSides() const = 0;
    virtual WLength margin(Side side) const = 0;
    virtual bool isInline() const = 0;
    virtual bool isPopup() const = 0;
    virtual WCssDecorationStyle& decorationStyle() = 0;
    virtual WString styleClass() const = 0;
    virtual bool hasStyleClass(const WString& styleClass) const = 0;
    virtual AlignmentFlag verticalAlignment() const = 0;
    virtual WLength verticalAlignmentLength() const = 0;
    virtual WString toolTip() const = 0;
    /// Asked to be hidden itself; isVisible() asks the ancestors too.
    virtual bool isHidden() const = 0;
    virtual bool isVisible() const = 0;
    /// Asked to be disabled itself; isEnabled() asks the ancestors too.
    virtual bool isDisabled() const = 0;
    virtual bool isEnabled() const = 0;
    virtual WString attributeValue(const std::string& name) const = 0;
    virtual bool canReceiveFocus() const = 0;
    virtual int tabIndex() const = 0;
    /// As of the last event of the browser.
    virtual bool hasFocus() const = 0;
    virtual bool isRendered() const = 0;
    /// The first widget below, or this, with that object name; null if there is none.
    virtual WWidget* find(const std::string& name);

protected:
    WWidget() = default;

    /// Asks the browser to report the size that the layout gave; layoutSizeChanged() then tells it, in
    /// pixels. Only differences to the last report are told, so a handler that sets a size ends.
    void setLayoutSizeAware(bool aware);
    virtual void layoutSizeChanged(int width, int height);
    /// The ancestors' visibility or enabledness changed.
    virtual void propagateSetEnabled(bool enabled);
    virtual void propagateSetVisible(bool visible);

    /// Takes this out of its parent; for the destructors of the classes that have the element.
    void leaveParent();

private:
    friend class WWebWidget;
    friend class WCompositeWidget;
    friend class WContainerWidget;
    friend class WLayout;
    friend class WMenu;
    friend class WTable;
    friend class WBoxLayout;
    friend class WGridLayout;

    /// The widget that has the element.
    virtual WWebWidget* webWidget() const = 0;
};

} // namespace Wt
