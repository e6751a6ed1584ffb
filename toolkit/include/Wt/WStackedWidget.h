#pragma once

#include <Wt/WAnimation.h>
#include <Wt/WContainerWidget.h>

namespace Wt {

/// A container that shows one of its children at a time; the first, unless told otherwise.
class WStackedWidget : public WContainerWidget {
public:
    explicit WStackedWidget(WContainerWidget* parent = nullptr);

    void insertWidget(int index, WWidget* widget) override;
    void removeWidget(WWidget* widget) override;

    int currentIndex() const { return mCurrent; } ///< -1 when empty
    WWidget* currentWidget() const;               ///< null when empty
    void setCurrentIndex(int index);
    void setCurrentIndex(int index, const WAnimation& animation, bool autoReverse = true);
    void setCurrentWidget(WWidget* widget);
    void setTransitionAnimation(const WAnimation& animation, bool autoReverse = false);

private:
    void show(int index, const WAnimation& animation, bool autoReverse);

    int mCurrent = -1;
    WAnimation mTransition;
    bool mAutoReverse = false;
};

} // namespace Wt
