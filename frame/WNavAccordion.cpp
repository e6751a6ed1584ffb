#include "frame/WNavAccordion.h"

#include "frame/WNavAccordionStdCell.h"
#include "shell/MirlPath.h"

#include <Wt/WAnimation>
#include <Wt/WIconPair>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

namespace {

constexpr int kFoldDuration = 300; // milliseconds

} // namespace

WNavAccordionTitleButton::WNavAccordionTitleButton(const Wt::WString& title, Wt::WWidget* cell,
                                                   Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mCell(cell) {
    mIcon = new Wt::WIconPair(MirlPath_themeBase() + "nav-accordion-title-button-expanded-idle.png",
                              MirlPath_themeBase() + "nav-accordion-title-button-collapsed-idle.png", false,
                              this);
    auto* text = new Wt::WText(title, Wt::PlainText, this);
    text->setWordWrap(false);
    setTabIndex(0);
    setAttributeValue("role", "button");
    setAttributeValue("aria-expanded", "true");
    clicked().connect(this, &WNavAccordionTitleButton::titleButtonClicked);
    enterPressed().connect(this, &WNavAccordionTitleButton::titleButtonClicked);
}

void WNavAccordionTitleButton::titleButtonClicked() {
    Wt::WAnimation animation;
    animation.setDuration(kFoldDuration);
    const bool show = mCell->isHidden();
    mIcon->setState(show ? 0 : 1);
    if (show)
        mCell->animateShow(animation);
    else
        mCell->animateHide(animation);
    setAttributeValue("aria-expanded", show ? "true" : "false");
}

WNavAccordion::WNavAccordion(Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mTable(new Wt::WTable(this)) {
    setOverflow(OverflowAuto, Wt::Vertical); // on a low screen the actions at the bottom stay in reach
    setLayoutSizeAware(true);
}

void WNavAccordion::layoutSizeChanged(int /*width*/, int height) {
    setLayoutSizeAware(false);
    setHeight(Wt::WLength(height));
    setLayoutSizeAware(true);
}

void WNavAccordion::sectionAdd(const Wt::WString& title, WNavAccordionStdCell* cell) {
    const int row = mTable->rowCount();
    auto* button = new WNavAccordionTitleButton(title, cell);
    button->setInline(false);
    cell->setInline(false);
    mTable->elementAt(row, 0)->addWidget(button);
    mTable->elementAt(row + 1, 0)->addWidget(cell);
    mTable->elementAt(row, 0)->setStyleClass("mirl-nav-accordion-title-button");
    mTable->elementAt(row + 1, 0)->setStyleClass("mirl-nav-accordion-cell-body");
    for (const int place : {row, row + 1}) {
        mTable->elementAt(place, 0)->setPadding(Wt::WLength(0));
        mTable->elementAt(place, 0)->setContentAlignment(Wt::AlignTop | Wt::AlignLeft);
    }
}
