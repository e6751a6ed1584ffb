#include "widgets/WTxIconSelDialog.h"

#include "shell/MirlPath.h"

#include <Wt/WContainerWidget>
#include <Wt/WFileResource>
#include <Wt/WImage>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

#include <boost/bind/bind.hpp>

namespace {

constexpr unsigned kColumns = 8;

} // namespace

WTxIconSelDialog::WTxIconSelDialog() {
    setTitleBarEnabled(false);
    rejectWhenEscapePressed();
    new Wt::WText(tr("[RSnnn]Click an icon to associate it with the selected transmitter(s)."), contents());
    auto* grid = new Wt::WTable(contents());
    for (unsigned n = 1; n <= kIcons; ++n) {
        Wt::WTableCell* cell =
            grid->elementAt(static_cast<int>((n - 1) / kColumns), static_cast<int>((n - 1) % kColumns));
        auto* file = new Wt::WFileResource("image/png", MirlPath_iconFileName(n), this);
        auto* image = new Wt::WImage(Wt::WLink(file), tr("tx.icon.number").arg(n), cell);
        image->setStyleClass("mirl-tx-icon");
        image->setAttributeValue("role", "button");
        image->setTabIndex(0);
        image->clicked().connect(boost::bind(&WTxIconSelDialog::iconClickedHandler, this, n));
        image->enterPressed().connect(boost::bind(&WTxIconSelDialog::iconClickedHandler, this, n));
    }
}

void WTxIconSelDialog::iconClickedHandler(unsigned number) {
    mSelection = number;
    accept();
}
