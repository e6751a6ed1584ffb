#include "views/cascade/WCascadeViewDetails.h"

#include "views/cascade/WCascadeViewInfo.h"

#include <Wt/WStackedWidget>
#include <Wt/WTabWidget>

WCascadeViewDetails::WCascadeViewDetails(Wt::WContainerWidget* parent)
    : WContextPanel(tr("cascade.page.title"), parent), mInfo(new WCascadeViewInfo) {
    auto* tabs = new Wt::WTabWidget;
    tabs->contentsStack()->setTabIndex(0); // scrolls by keyboard too
    tabs->setStyleClass("mirl-details-tab");
    tabs->addTab(mInfo, tr("cascade.infoTab"));
    setContent(tabs, 1, Wt::AlignJustify);
}

void WCascadeViewDetails::readFromDatabase() {
    mInfo->readFromDatabase(false);
}
