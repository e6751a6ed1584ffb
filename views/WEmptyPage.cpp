#include "views/WEmptyPage.h"

#include <Wt/WText>

namespace {

constexpr int kPaddingPx = 12;

} // namespace

WEmptyPage::WEmptyPage(Wt::WContainerWidget* parent) : Wt::WContainerWidget(parent) {
    setStyleClass("mirl-page-empty");
    setPadding(kPaddingPx);
    new Wt::WText(tr("page.empty"), Wt::PlainText, this);
}
