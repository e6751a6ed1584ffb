#pragma once

#include <Wt/WGlobal.h>
#include <Wt/WLayoutItem.h>
#include <Wt/WObject.h>

#include <memory>
#include <vector>

namespace Wt {

class WContainerWidget;

namespace Impl {
class ElementSpec;
class LayoutBox;
class RenderNode;
} // namespace Impl

/// Places the widgets of a container. Widgets added to a layout become children of the container that has it,
/// at once or when the layout is set.
class WLayout : public WLayoutItem, public WObject {
public:
    ~WLayout() override;

    virtual void addItem(WLayoutItem* item) = 0; ///< takes ownership
    void addWidget(WWidget* widget);
    virtual void removeItem(WLayoutItem* item) = 0; ///< gives up ownership
    virtual void removeWidget(WWidget* widget);
    virtual void clear() = 0; ///< deletes items and widgets
    /// In pixels. The default is 9; a layout inside a layout has none.
    void setContentsMargins(int left, int top, int right, int bottom);

    WLayout* layout() override { return this; }
    WLayout* parentLayout() const override { return mParentLayout; }
    WLayoutItem* findWidgetItem(WWidget* widget) override;
    virtual int count() const = 0;
    virtual WLayoutItem* itemAt(int index) const = 0;
    virtual int indexOf(WLayoutItem* item) const;
    void getContentsMargins(int* left, int* top, int* right, int* bottom) const;
    WContainerWidget* container() const;

protected:
    explicit WLayout(WWidget* parent = nullptr);

    /// Ties an item to this layout and its container, or unties it.
    void itemAdded(WLayoutItem* item);
    void itemRemoved(WLayoutItem* item);
    void changed();
    /// The element that holds the items; null before there is a container.
    Impl::RenderNode* element() const;
    static Impl::RenderNode* nodeOfItem(WLayoutItem* item);
    /// The item is a widget that takes whatever size the layout gives.
    static bool followsSize(const WLayoutItem* item);
    void describeMargins(Impl::ElementSpec& spec) const;

private:
    friend class WContainerWidget;
    friend class WWebWidget;
    friend class Impl::LayoutBox;

    virtual void describeContainer(Impl::ElementSpec& spec) const = 0;
    virtual void describeItem(Impl::ElementSpec& spec, const WLayoutItem* item) const = 0;
    virtual void appendNodes(std::vector<Impl::RenderNode*>& nodes) const = 0;
    /// Elements besides those of the items: made when there is a container,
    /// dropped when there is none any more.
    virtual void adoptExtras() = 0;
    virtual void dropExtras() = 0;
    void itemsChanged();

    void describeWidget(Impl::ElementSpec& spec, const WWidget& widget) const;
    /// The container lost a widget that may be placed here.
    void widgetGone(WWidget* widget);
    void attach(WContainerWidget* container);
    void detach();
    void attachItem(WLayoutItem* item);

    WContainerWidget* mContainer = nullptr; // of the outermost layout
    WLayout* mParentLayout = nullptr;
    std::unique_ptr<Impl::LayoutBox> mElement; // of a layout inside a layout
    int mMargins[4] = {9, 9, 9, 9};            // left, top, right, bottom
    bool mMarginsSet = false;
};

} // namespace Wt
