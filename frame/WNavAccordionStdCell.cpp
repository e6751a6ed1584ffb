#include "frame/WNavAccordionStdCell.h"

#include <Wt/WTableCell>
#include <Wt/WText>

WNavAccordionStdCell::WNavAccordionStdCell(const Wt::WString& actionLabel, const Wt::WString& help,
                                           Wt::WContainerWidget* parent)
    : Wt::WTable(parent) {
    mActionButton = new Wt::WPushButton(actionLabel, elementAt(0, 0));
    mActionButton->setStyleClass("mirl-nav-accordion-action-button");
    elementAt(0, 0)->setContentAlignment(Wt::AlignLeft);
    new Wt::WText(help, Wt::PlainText, elementAt(1, 0));
}
