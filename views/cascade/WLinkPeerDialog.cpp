#include "views/cascade/WLinkPeerDialog.h"

#include "views/cascade/CascadeRequest.h"
#include "views/cascade/WLinkPeerDialogSwxList.h"

namespace {

constexpr DialogFormHead kHead = {"establish-kvm-session.png", "cascade.linkPeerDialog.title",
                                  "cascade.linkPeerDialog.clickNselect"};

} // namespace

WLinkPeerDialog::WLinkPeerDialog() : DialogForm(kHead), mList(new WLinkPeerDialogSwxList(contents())) {
    nameByText(*mList);
    addButton("[RSnnn]Cancel", Cancel, Rejected);
    mSelect = addButton("cascade.linkPeerDialog.select", this, &WLinkPeerDialog::selectButtonClickedHandler);
    markMain(mSelect);
    mSelect->disable();
    mList->selectionChanged().connect(this, &WLinkPeerDialog::selectionChangedHandler);
    mList->readFromDatabase();
}

void WLinkPeerDialog::selectionChangedHandler() {
    mSelect->setEnabled(mList->selectedZeqIndex() != 0);
}

void WLinkPeerDialog::selectButtonClickedHandler() {
    mSelect->hide();
    if (const unsigned index = mList->selectedZeqIndex())
        requestCascadeChange("link_peer", index, __func__, mResults);
    finish(Select);
}
