#include <Wt/WMenu.h>

#include "web/ElementSpec.h"

#include <Wt/WStackedWidget.h>

#include <algorithm>

namespace Wt {

/// The element of a menu; the keys are the business of the browser side (client/tabs.js),
/// which clicks the items.
class WMenu::List : public WContainerWidget {
public:
    explicit List(const bool& tabs) : mTabs(tabs) { setList(true); }

protected:
    void describe(Impl::ElementSpec& spec) override {
        WContainerWidget::describe(spec);
        spec.behaviour("tabs");
        spec.attribute("role", mTabs ? "tablist" : "menu");
        spec.styleClass(mTabs ? "Wt-tabs" : "Wt-menu");
    }

private:
    const bool& mTabs;
};

WMenu::WMenu(WContainerWidget* parent) : WMenu(nullptr, parent) {}

WMenu::WMenu(WStackedWidget* contentsStack, WContainerWidget* parent)
    : WCompositeWidget(parent), mList(new List(mTabs)), mStack(contentsStack) {
    setImplementation(mList);
}

WMenu::~WMenu() {
    for (WMenuItem* item : mItems) item->mMenu = nullptr;
}

WMenuItem* WMenu::addItem(const WString& label, WWidget* contents, WMenuItem::LoadPolicy policy) {
    return addItem(new WMenuItem(label, contents, policy));
}

WMenuItem* WMenu::addItem(WMenuItem* item) {
    return insertItem(count(), item);
}

WMenuItem* WMenu::insertItem(int index, WMenuItem* item) {
    index = std::clamp(index, 0, count());
    item->mMenu = this;
    mItems.insert(mItems.begin() + index, item);
    mList->insertWidget(index, item);
    if (mStack && item->mContents) {
        item->mContents->webWidget()->mPreloaded = item->mPolicy == WMenuItem::PreLoading;
        mStack->addWidget(item->mContents);
    }
    if (mCurrent >= index) ++mCurrent;
    if (mCurrent < 0 && mStack) setCurrent(index);
    return item;
}

void WMenu::removeItem(WMenuItem* item) {
    const int index = indexOf(item);
    if (index < 0) return;
    const bool wasCurrent = index == mCurrent;
    const int next = wasCurrent ? nearestSelectable(index) : mCurrent;
    mItems.erase(mItems.begin() + index);
    item->mMenu = nullptr;
    mList->removeWidget(item);
    if (mStack && item->mContents) mStack->removeWidget(item->mContents);
    mCurrent = wasCurrent ? -1 : mCurrent > index ? mCurrent - 1 : mCurrent;
    if (wasCurrent && next >= 0) setCurrent(next > index ? next - 1 : next);
}

/// The item that takes over from the one at `index`: the next one, else the one before;
/// -1 when there is none.
int WMenu::nearestSelectable(int index) const {
    const auto fits = [this](int i) { return !mItems[i]->isHidden() && !mItems[i]->isDisabled(); };
    for (int i = index + 1; i < count(); ++i)
        if (fits(i)) return i;
    for (int i = index - 1; i >= 0; --i)
        if (fits(i)) return i;
    return -1;
}

void WMenu::setCurrent(int index) {
    const int before = mCurrent;
    mCurrent = index;
    for (int touched : {before, index, 0})
        if (touched >= 0 && touched < count()) mItems[touched]->nodeChanged();
    if (mStack && index >= 0 && mItems[index]->mContents) mStack->setCurrentWidget(mItems[index]->mContents);
}

void WMenu::select(int index) {
    if (index == mCurrent || index < -1 || index >= count()) return;
    setCurrent(index);
    if (index >= 0) mItemSelected.emit(mItems[index]);
}

void WMenu::select(WMenuItem* item) {
    if (const int index = indexOf(item); index >= 0) select(index);
}

WMenuItem* WMenu::itemAt(int index) const {
    return index >= 0 && index < count() ? mItems[index] : nullptr;
}
WMenuItem* WMenu::currentItem() const {
    return itemAt(mCurrent);
}

int WMenu::indexOf(WMenuItem* item) const {
    const auto found = std::find(mItems.begin(), mItems.end(), item);
    return found == mItems.end() ? -1 : static_cast<int>(found - mItems.begin());
}

void WMenu::close(int index) {
    if (WMenuItem* item = itemAt(index)) item->close();
}
void WMenu::close(WMenuItem* item) {
    close(indexOf(item));
}

void WMenu::setItemHidden(int index, bool hidden) {
    if (WMenuItem* item = itemAt(index)) item->setHidden(hidden);
}
void WMenu::setItemDisabled(int index, bool disabled) {
    if (WMenuItem* item = itemAt(index)) item->setDisabled(disabled);
}

} // namespace Wt
