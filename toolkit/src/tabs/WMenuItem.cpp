#include <Wt/WMenuItem.h>

#include "core/GoneWatch.h"
#include "web/ElementSpec.h"

#include <Wt/WMenu.h>
#include <Wt/WText.h>

namespace Wt {

WMenuItem::WMenuItem(const WString& text, WWidget* contents, LoadPolicy policy)
    : mContents(contents), mPolicy(policy), mText(new WText(text, PlainText, this)) {
    if (contents)
        mWatch = new Impl::GoneWatch(*contents, [this] {
            mContents = nullptr;
            mWatch = nullptr;
        });
    clicked().connect(this, &WMenuItem::clickedByUser);
}

WMenuItem::~WMenuItem() {
    if (mMenu) mMenu->removeItem(this);
    WWidget* contents = mContents;
    forgetContents();
    if (contents && !contents->parent()) delete contents;
}

void WMenuItem::forgetContents() {
    Impl::GoneWatch::release(mWatch);
    mContents = nullptr;
}

void WMenuItem::setText(const WString& text) {
    mText->setText(text);
}
WString WMenuItem::text() const {
    return mText->text();
}

bool WMenuItem::isSelected() const {
    return mMenu && mMenu->currentItem() == this;
}

void WMenuItem::select() {
    if (mMenu) mMenu->select(this);
}

void WMenuItem::setCloseable(bool closeable) {
    if (mCloseable == closeable) return;
    mCloseable = closeable;
    if (!closeable) {
        delete mClose;
        mClose = nullptr;
        return;
    }
    mClose = new WText("\u00D7", PlainText, this);
    mClose->setStyleClass("Wt-close");
    mClose->clicked().preventPropagation();
    mClose->clicked().connect(this, &WMenuItem::close);
}

void WMenuItem::close() {
    if (!mMenu) return;
    setHidden(true);
    if (isSelected()) mMenu->setCurrent(mMenu->nearestSelectable(mMenu->indexOf(this)));
    mMenu->itemClosed().emit(this);
}

void WMenuItem::clickedByUser() {
    WMenu* menu = mMenu;
    if (!menu) return;
    const std::weak_ptr<char> alive = menu->mAlive;
    menu->select(this);
    if (!alive.expired() && menu->indexOf(this) >= 0) mTriggered.emit(this);
}

void WMenuItem::describe(Impl::ElementSpec& spec) {
    WContainerWidget::describe(spec);
    spec.styleClass(isSelected() ? "item itemselected" : "item");
    const bool tabs = mMenu && mMenu->mTabs;
    spec.attribute("role", tabs ? "tab" : "menuitemradio");
    spec.attribute(tabs ? "aria-selected" : "aria-checked", isSelected() ? "true" : "false");
    const bool entrance = isSelected() || (mMenu && mMenu->currentIndex() < 0 && mMenu->itemAt(0) == this);
    spec.attribute("tabindex", entrance && isEnabled() ? "0" : "-1");
    if (!isEnabled()) spec.attribute("aria-disabled", "true");
}

} // namespace Wt
