#include <Wt/WTabWidget.h>

#include <Wt/WMenu.h>
#include <Wt/WStackedWidget.h>

namespace Wt {

WTabWidget::WTabWidget(WContainerWidget* parent) : WCompositeWidget(parent) {
    auto* frame = new WContainerWidget;
    setImplementation(frame);
    frame->setStyleClass("Wt-tabwidget");
    mStack = new WStackedWidget;
    mMenu = new WMenu(mStack);
    mMenu->mTabs = true;
    frame->addWidget(mMenu);
    frame->addWidget(mStack);
    mMenu->itemSelected().connect(this, &WTabWidget::selected);
    mMenu->itemClosed().connect(this, &WTabWidget::closed);
}
WTabWidget::~WTabWidget() = default;

WMenuItem* WTabWidget::addTab(WWidget* child, const WString& label, LoadPolicy loadPolicy) {
    child->setAttributeValue("role", "tabpanel");
    child->setAttributeValue("aria-label", label);
    return mMenu->addItem(label, child,
                          loadPolicy == PreLoading ? WMenuItem::PreLoading : WMenuItem::LazyLoading);
}

void WTabWidget::removeTab(WWidget* child) {
    WMenuItem* item = itemAt(indexOf(child));
    if (!item) return;
    const WWidget* before = currentWidget();
    mMenu->removeItem(item);
    item->forgetContents();
    delete item;
    if (before == child && count()) mCurrentChanged.emit(currentIndex());
}

int WTabWidget::count() const {
    return mMenu->count();
}
WMenuItem* WTabWidget::itemAt(int index) const {
    return mMenu->itemAt(index);
}

WWidget* WTabWidget::widget(int index) const {
    const WMenuItem* item = itemAt(index);
    return item ? item->contents() : nullptr;
}

int WTabWidget::indexOf(WWidget* child) const {
    for (int index = 0; index < count(); ++index)
        if (widget(index) == child) return index;
    return -1;
}

void WTabWidget::setCurrentIndex(int index) {
    mMenu->select(index);
}
int WTabWidget::currentIndex() const {
    return mMenu->currentIndex();
}
void WTabWidget::setCurrentWidget(WWidget* child) {
    if (const int index = indexOf(child); index >= 0) setCurrentIndex(index);
}
WWidget* WTabWidget::currentWidget() const {
    return widget(currentIndex());
}

void WTabWidget::setTabEnabled(int index, bool enable) {
    mMenu->setItemDisabled(index, !enable);
}
bool WTabWidget::isTabEnabled(int index) const {
    const WMenuItem* item = itemAt(index);
    return item && !item->isDisabled();
}

void WTabWidget::setTabHidden(int index, bool hidden) {
    mMenu->setItemHidden(index, hidden);
}
bool WTabWidget::isTabHidden(int index) const {
    const WMenuItem* item = itemAt(index);
    return item && item->isHidden();
}

void WTabWidget::setTabCloseable(int index, bool closeable) {
    if (WMenuItem* item = itemAt(index)) item->setCloseable(closeable);
}
bool WTabWidget::isTabCloseable(int index) const {
    const WMenuItem* item = itemAt(index);
    return item && item->isCloseable();
}
void WTabWidget::closeTab(int index) {
    mMenu->close(index);
}

void WTabWidget::setTabText(int index, const WString& label) {
    if (WMenuItem* item = itemAt(index)) item->setText(label);
}
WString WTabWidget::tabText(int index) const {
    const WMenuItem* item = itemAt(index);
    return item ? item->text() : WString();
}

void WTabWidget::setTabToolTip(int index, const WString& tip) {
    if (WMenuItem* item = itemAt(index)) item->setToolTip(tip);
}
WString WTabWidget::tabToolTip(int index) const {
    const WMenuItem* item = itemAt(index);
    return item ? item->toolTip() : WString();
}

void WTabWidget::selected(WMenuItem* item) {
    mCurrentChanged.emit(mMenu->indexOf(item));
}
void WTabWidget::closed(WMenuItem* item) {
    mTabClosed.emit(mMenu->indexOf(item));
}

} // namespace Wt
