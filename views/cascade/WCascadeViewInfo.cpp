#include "views/cascade/WCascadeViewInfo.h"

#include "views/cascade/WCascadeViewInfoTable.h"

#include <Wt/WText>
#include <Wt/WVBoxLayout>

WCascadeViewInfo::WCascadeViewInfo(Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mNotice(new Wt::WText(tr("cascade.info.role.switched"), Wt::PlainText)),
      mTable(new WCascadeViewInfoTable) {
    mNotice->setStyleClass("mirl-notice");
    mNotice->hide();
    auto* box = new Wt::WVBoxLayout;
    box->addWidget(mNotice);
    box->addWidget(mTable, 0, Wt::AlignTop | Wt::AlignLeft);
    box->addStretch(1);
    setLayout(box);
}

void WCascadeViewInfo::readFromDatabase(bool force) {
    mTable->readFromDatabase({}, force);
    setDependentWidgets();
}

void WCascadeViewInfo::setDependentWidgets() {
    mNotice->setHidden(!mTable->rolesSwitched());
}
