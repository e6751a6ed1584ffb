#include "widgets/WTxIcon.h"

#include "shell/MirlPath.h"
#include "widgets/WTxIconSelDialog.h"

#include <Wt/WFileResource>
#include <Wt/WImage>

namespace {

constexpr unsigned kIcons = WTxIconSelDialog::kIcons;

} // namespace

WTxIcon::WTxIcon(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : ZeqEditField(resource, key, indexed), Wt::WStackedWidget(parent) {
    addPage(MirlPath_iconsBase() + "icon-unknown.png", tr("tx.icon.none"));
    for (unsigned n = 1; n <= kIcons; ++n) addPage(MirlPath_iconFileName(n), tr("tx.icon.number").arg(n));
    setAttributeValue("role", "button");
    setTabIndex(0);
    clicked().connect(this, &WTxIcon::clickedHandler);
    enterPressed().connect(this, &WTxIcon::clickedHandler);
}

void WTxIcon::addPage(const std::string& file, const Wt::WString& name) {
    auto* image = new Wt::WImage(Wt::WLink(new Wt::WFileResource("image/png", file, this)), name);
    image->setStyleClass("mirl-tx-icon-tight");
    addWidget(image);
}

void WTxIcon::showSelectedIcon() {
    if (mValue > kIcons) mValue = 0;
    setCurrentIndex(static_cast<int>(mValue));
}

void WTxIcon::showUnknown() {
    setCurrentIndex(0);
}

// A form field tells by itself that it is disabled; an element in the role of a button has to be told.
void WTxIcon::setDisabled(bool disabled) {
    Wt::WStackedWidget::setDisabled(disabled);
    setAttributeValue("aria-disabled", disabled ? "true" : "false");
    setTabIndex(disabled ? -1 : 0);
}

void WTxIcon::showValue(const unsigned& value) {
    mValue = value;
    showSelectedIcon();
}

void WTxIcon::showNothing() {
    showUnknown();
}

void WTxIcon::clickedHandler() {
    WTxIconSelDialog dialog;
    dialog.exec();
    if (dialog.selection() == 0) return;
    mValue = dialog.selection();
    showSelectedIcon();
    markEdited();
}
