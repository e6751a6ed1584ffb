#include "frame/WDialogHeading.h"

#include "shell/MirlPath.h"

#include <Wt/WDialog>
#include <Wt/WHBoxLayout>
#include <Wt/WImage>
#include <Wt/WLink>
#include <Wt/WText>

namespace {

constexpr int kImageHeightPx = 16;

} // namespace

WDialogHeading::WDialogHeading(Wt::WDialog& dialog, const std::string& imageFile, const Wt::WString& title) {
    addStyleClass("mirl-dialog-heading");
    auto* layout = new Wt::WHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);

    mImage = new Wt::WImage;
    mImage->resize(Wt::WLength::Auto, kImageHeightPx);
    mImage->setAlternateText("");
    setImage(imageFile);
    layout->addWidget(mImage, 0, Wt::AlignMiddle);

    mTitle = new Wt::WText(title, Wt::PlainText);
    mTitle->addStyleClass("mirl-dialog-title");
    layout->addWidget(mTitle, 1, Wt::AlignMiddle);

    dialog.setTitleBarEnabled(false);
    dialog.setAttributeValue("aria-labelledby", mTitle->id());
}

void WDialogHeading::setTitle(const Wt::WString& title) {
    mTitle->setText(title);
}

void WDialogHeading::setImage(const std::string& imageFile) {
    mImage->setImageLink(Wt::WLink(MirlPath_themeBase() + imageFile));
}
