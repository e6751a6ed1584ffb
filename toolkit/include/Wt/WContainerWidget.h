#pragma once

#include <Wt/WInteractWidget.h>

namespace Wt {

class WLayout;

/// A widget that holds others. Children are shown one after another, or placed by a layout.
class WContainerWidget : public WInteractWidget {
public:
    enum Overflow { OverflowVisible, OverflowAuto, OverflowHidden, OverflowScroll };

    explicit WContainerWidget(WContainerWidget* parent = nullptr);
    ~WContainerWidget() override;

    /// Takes ownership. A widget that is elsewhere moves here.
    virtual void addWidget(WWidget* widget);
    virtual void insertWidget(int index, WWidget* widget);
    virtual void insertBefore(WWidget* widget, WWidget* before);
    /// Gives up ownership; the widget leaves the page.
    virtual void removeWidget(WWidget* widget);
    void removeChild(WObject* child) override;
    /// Deletes all children, and the layout.
    virtual void clear();
    /// Takes ownership of the layout; its widgets become children of this.
    /// Replaces and deletes the former layout.
    void setLayout(WLayout* layout);
    void setLayout(WLayout* layout, WFlags<AlignmentFlag> alignment);
    virtual void setContentAlignment(WFlags<AlignmentFlag> alignment);
    virtual void setPadding(const WLength& padding, WFlags<Side> sides = All);
    void setOverflow(Overflow overflow, WFlags<Orientation> orientation = (Horizontal | Vertical));
    void setList(bool list, bool ordered = false);

    void refresh() override;

    virtual WWidget* widget(int index) const;
    virtual int count() const;
    virtual int indexOf(WWidget* widget) const;
    std::vector<WWidget*> children() const { return mChildren; }
    WWidget* find(const std::string& name) override;
    WLayout* layout() const { return mLayout; }
    WFlags<AlignmentFlag> contentAlignment() const;
    WLength padding(Side side) const;
    bool isList() const { return mList; }
    /// As of the last event; only while scrolled() is connected.
    int scrollTop() const;
    int scrollLeft() const;

    EventSignal<WScrollEvent>& scrolled();

    void childNodes(std::vector<Impl::RenderNode*>& children) override;
    void browserEvent(std::string_view kind, const boost::json::object& event) override;

protected:
    const char* tag() const override;
    void describe(Impl::ElementSpec& spec) override;
    void propagateSetEnabled(bool enabled) override;
    void propagateSetVisible(bool visible) override;

private:
    friend class WLayout;

    struct Box; // padding, alignment, overflow, scroll signal: made on first use
    Box& box();
    /// Makes `widget` a child at the place; it must have no parent.
    void take(WWidget* widget, std::size_t place);

    std::vector<WWidget*> mChildren;
    WLayout* mLayout = nullptr; // owned
    std::unique_ptr<Box> mBox;
    bool mList = false, mOrdered = false;
};

} // namespace Wt
