#pragma once

#include <Wt/WCompositeWidget.h>
#include <Wt/WMenuItem.h>

namespace Wt {

class WMenu;
class WStackedWidget;

/// Tabs over a stack of contents. The first tab added is the current one.
class WTabWidget : public WCompositeWidget {
public:
    enum LoadPolicy { LazyLoading, PreLoading };

    explicit WTabWidget(WContainerWidget* parent = nullptr);
    ~WTabWidget() override;

    WMenuItem* addTab(WWidget* child, const WString& label, LoadPolicy loadPolicy = LazyLoading);
    void removeTab(WWidget* child); ///< the caller owns the child
    int count() const;
    WWidget* widget(int index) const;
    WMenuItem* itemAt(int index) const;
    int indexOf(WWidget* widget) const; ///< -1 when not here

    void setCurrentIndex(int index);
    int currentIndex() const;
    void setCurrentWidget(WWidget* widget);
    WWidget* currentWidget() const;
    void setTabEnabled(int index, bool enable);
    bool isTabEnabled(int index) const;
    void setTabHidden(int index, bool hidden);
    bool isTabHidden(int index) const;
    void setTabCloseable(int index, bool closeable);
    bool isTabCloseable(int index) const;
    void closeTab(int index);
    void setTabText(int index, const WString& label);
    WString tabText(int index) const;
    void setTabToolTip(int index, const WString& tip);
    WString tabToolTip(int index) const;
    WStackedWidget* contentsStack() const { return mStack; }

    Signal<int>& currentChanged() {
        return mCurrentChanged;
    } ///< another tab is current, by the user or the program
    Signal<int>& tabClosed() { return mTabClosed; }

private:
    void selected(WMenuItem* item);
    void closed(WMenuItem* item);

    WMenu* mMenu;
    WStackedWidget* mStack;
    Signal<int> mCurrentChanged, mTabClosed;
};

} // namespace Wt
