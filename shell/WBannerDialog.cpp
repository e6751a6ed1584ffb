#include "shell/WBannerDialog.h"

#include <Wt/WContainerWidget>
#include <Wt/WPushButton>
#include <Wt/WText>

namespace {

constexpr int kDialogWidthPx = 460;
constexpr int kDialogHeightPx = 361;
constexpr int kTextWidthPx = 400;
constexpr int kTextHeightPx = 275;
constexpr int kSidePx = (kDialogWidthPx - kTextWidthPx) / 2;
constexpr int kTopPx = 20;
constexpr int kButtonGapPx = 12;

} // namespace

WBannerDialog::WBannerDialog(const std::string& text) {
    setTitleBarEnabled(false);
    setInline(false);
    resize(kDialogWidthPx, kDialogHeightPx);
    contents()->setPadding(kSidePx, Wt::Left | Wt::Right);
    contents()->setPadding(kTopPx, Wt::Top | Wt::Bottom);

    auto* box = new Wt::WContainerWidget(contents());
    box->setMinimumSize(kTextWidthPx, kTextHeightPx);
    box->setMaximumSize(kTextWidthPx, kTextHeightPx);
    box->setOverflow(Wt::WContainerWidget::OverflowAuto);
    auto* words = new Wt::WText(Wt::WString::fromUTF8(text), Wt::PlainText, box);
    words->setStyleClass("mirl-banner-text");

    proceedButton = new Wt::WPushButton(tr("[RSnnn]Proceed to log in"), contents());
    proceedButton->setStyleClass("mirl-banner-button");
    proceedButton->setMargin(kButtonGapPx, Wt::Top);
    proceedButton->setFocus();
}
