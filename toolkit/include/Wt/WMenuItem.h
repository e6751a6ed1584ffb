#pragma once

#include <Wt/WContainerWidget.h>
#include <Wt/WSignal.h>

namespace Wt {

namespace Impl {
class GoneWatch;
}

class WAnchor;
class WMenu;
class WText;

/// An item of a menu, and the contents that selecting it shows.
class WMenuItem : public WContainerWidget {
public:
    enum LoadPolicy {
        LazyLoading, ///< contents go into the page when first shown
        PreLoading   ///< contents are in the page, hidden, from the start, so that they appear without a wait
    };

    explicit WMenuItem(const WString& text, WWidget* contents = nullptr, LoadPolicy policy = LazyLoading);
    ~WMenuItem() override;

    virtual void setText(const WString& text);
    WString text() const;
    WWidget* contents() const { return mContents; }
    WMenu* parentMenu() const { return mMenu; }
    virtual void select();
    bool isSelected() const;
    virtual void setCloseable(bool closeable);
    bool isCloseable() const { return mCloseable; }
    virtual void close(); ///< hides the item, and emits WMenu::itemClosed()

    Signal<WMenuItem*>& triggered() { return mTriggered; } ///< the user clicked it

protected:
    const char* tag() const override { return "li"; }
    void describe(Impl::ElementSpec& spec) override;
    bool needsKeyboardStop() const override { return false; } ///< the menu's keys lead here

private:
    friend class WMenu;
    friend class WTabWidget;
    void clickedByUser();
    void forgetContents();

    WMenu* mMenu = nullptr;
    WWidget* mContents;                ///< owned by its parent, mostly a stack; by this while it has none
    Impl::GoneWatch* mWatch = nullptr; ///< child of the contents: clears mContents when they go
    LoadPolicy mPolicy;
    bool mCloseable = false;
    WText* mText;
    WText* mClose = nullptr;
    Signal<WMenuItem*> mTriggered;
};

} // namespace Wt
