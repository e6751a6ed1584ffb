#include <Wt/WStackedWidget.h>

#include <algorithm>

namespace Wt {

WStackedWidget::WStackedWidget(WContainerWidget* parent) : WContainerWidget(parent) {
    addStyleClass("Wt-stack");
}

void WStackedWidget::insertWidget(int index, WWidget* widget) {
    WContainerWidget::insertWidget(index, widget);
    const int at = indexOf(widget);
    if (mCurrent < 0)
        mCurrent = at;
    else if (at <= mCurrent)
        ++mCurrent;
    widget->setHidden(at != mCurrent);
}

void WStackedWidget::removeWidget(WWidget* widget) {
    const int at = indexOf(widget);
    if (at < 0) return;
    WContainerWidget::removeWidget(widget);
    if (at < mCurrent) {
        --mCurrent;
    } else if (at == mCurrent) {
        mCurrent = std::min(mCurrent, count() - 1);
        if (mCurrent >= 0) WContainerWidget::widget(mCurrent)->setHidden(false);
    }
}

WWidget* WStackedWidget::currentWidget() const {
    return widget(mCurrent);
}

void WStackedWidget::setCurrentIndex(int index) {
    show(index, mTransition, mAutoReverse);
}

void WStackedWidget::setCurrentIndex(int index, const WAnimation& animation, bool autoReverse) {
    show(index, animation, autoReverse);
}

void WStackedWidget::setCurrentWidget(WWidget* widget) {
    setCurrentIndex(indexOf(widget));
}

void WStackedWidget::setTransitionAnimation(const WAnimation& animation, bool autoReverse) {
    mTransition = animation;
    mAutoReverse = autoReverse;
}

void WStackedWidget::show(int index, const WAnimation& animation, bool autoReverse) {
    if (index == mCurrent || index < 0 || index >= count()) return;
    // A page that leaves without an animation of its own makes room at once.
    currentWidget()->setHidden(true, autoReverse ? animation : WAnimation());
    mCurrent = index;
    currentWidget()->setHidden(false, animation);
}

} // namespace Wt
