#include <Wt/WWidget.h>

#include <Wt/WContainerWidget.h>

namespace Wt {

WWidget::~WWidget() = default;

void WWidget::leaveParent() {
    WObject* owner = WObject::parent();
    if (!owner) return;
    if (auto* container = dynamic_cast<WContainerWidget*>(owner)) container->removeWidget(this);
    if (WObject::parent() == owner) owner->removeChild(this);
}

void WWidget::toggleStyleClass(const WString& styleClass, bool add, bool force) {
    if (add)
        addStyleClass(styleClass, force);
    else
        removeStyleClass(styleClass, force);
}

void WWidget::refresh() {}

WWidget* WWidget::parent() const {
    return dynamic_cast<WWidget*>(WObject::parent());
}

WWidget* WWidget::find(const std::string& name) {
    if (objectName() == name) return this;
    for (WObject* child : WObject::children())
        if (auto* widget = dynamic_cast<WWidget*>(child))
            if (WWidget* found = widget->find(name)) return found;
    return nullptr;
}

void WWidget::setLayoutSizeAware(bool aware) {
    webWidget()->setSizeAware(this, aware);
}

void WWidget::layoutSizeChanged(int, int) {}
void WWidget::propagateSetEnabled(bool) {}
void WWidget::propagateSetVisible(bool) {}

} // namespace Wt
