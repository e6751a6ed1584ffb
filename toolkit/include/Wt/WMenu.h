#pragma once

#include <Wt/WCompositeWidget.h>
#include <Wt/WMenuItem.h>

#include <memory>
#include <vector>

namespace Wt {

class WStackedWidget;

/// A list of items of which one is selected; with a stack, the selected item's contents are on top.
class WMenu : public WCompositeWidget {
public:
    explicit WMenu(WContainerWidget* parent = nullptr);
    explicit WMenu(WStackedWidget* contentsStack, WContainerWidget* parent = nullptr);
    ~WMenu() override;

    WMenuItem* addItem(const WString& label, WWidget* contents = nullptr,
                       WMenuItem::LoadPolicy policy = WMenuItem::LazyLoading);
    WMenuItem* addItem(WMenuItem* item);
    WMenuItem* insertItem(int index, WMenuItem* item);
    void removeItem(WMenuItem* item); ///< the caller owns it, and its contents

    void select(int index);
    void select(WMenuItem* item);
    WMenuItem* currentItem() const;
    int currentIndex() const { return mCurrent; } ///< -1: none
    int count() const { return static_cast<int>(mItems.size()); }
    WMenuItem* itemAt(int index) const; ///< null when out of range
    int indexOf(WMenuItem* item) const; ///< -1 when not of this menu
    const std::vector<WMenuItem*>& items() const { return mItems; }
    WStackedWidget* contentsStack() const { return mStack; }
    void close(int index);
    void close(WMenuItem* item);
    void setItemHidden(int index, bool hidden);
    void setItemDisabled(int index, bool disabled);

    Signal<WMenuItem*>& itemSelected() { return mItemSelected; }
    Signal<WMenuItem*>& itemSelectRendered() { return mItemSelected; }
    Signal<WMenuItem*>& itemClosed() { return mItemClosed; }

private:
    friend class WMenuItem;
    friend class WTabWidget;
    class List;

    int nearestSelectable(int index) const;
    void setCurrent(int index);

    std::vector<WMenuItem*> mItems; ///< owned by mList
    List* mList;
    WStackedWidget* mStack = nullptr;
    int mCurrent = -1;
    bool mTabs = false; ///< of a WTabWidget
    std::shared_ptr<char> mAlive =
        std::make_shared<char>(); ///< watched over handlers, which may delete the menu
    Signal<WMenuItem*> mItemSelected, mItemClosed;
};

} // namespace Wt
