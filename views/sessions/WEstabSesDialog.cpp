#include "views/sessions/WEstabSesDialog.h"

#include "views/sessions/WEstabSesRxTable.h"
#include "views/sessions/WEstabSesTxTable.h"
#include "views/sessions/WEstabSesUsrTable.h"
#include "widgets/WSesMode.h"

#include <Wt/WContainerWidget>

namespace {

constexpr DialogFormHead kHead = {
    "establish-kvm-session.png", "[RSnnn]Connect KVM Session",
    "[RSnnn]Select the session mode, user account, receiver and transmitter to be used to connect a new KVM session."};

// Pixels.
constexpr int kUserWidth = 200;
constexpr int kDeviceWidth = 330;
constexpr int kListHeight = 300;

} // namespace

template <class Table>
Table* WEstabSesDialog::addTable(int widthPx, void (WEstabSesDialog::*changed)()) {
    auto* table = new Table(mLists);
    table->resize(widthPx, kListHeight);
    table->selectionChanged().connect(this, changed);
    return table;
}

WEstabSesDialog::WEstabSesDialog() : DialogForm(kHead), mMode(new WSesMode) {
    addField("[RSnnn]Session Mode", mMode);
    mMode->setStyleClass("mirl-attribute-table-read-write-combo-box");
    mMode->changed().connect(this, &WEstabSesDialog::modeChangedHandler);
    mLists = new Wt::WContainerWidget(contents());
    mLists->setStyleClass("mirl-dialog-lists");
    mUsers = addTable<WEstabSesUsrTable>(kUserWidth, &WEstabSesDialog::usrSelectionChangedHandler);
    mReceivers = addTable<WEstabSesRxTable>(kDeviceWidth, &WEstabSesDialog::rxSelectionChangedHandler);
    mTransmitters = addTable<WEstabSesTxTable>(kDeviceWidth, &WEstabSesDialog::txSelectionChangedHandler);
    mUsers->setAttributeValue("aria-label", tr("sessions.pick.user"));
    mReceivers->setAttributeValue("aria-label", tr("sessions.pick.receiver"));
    mTransmitters->setAttributeValue("aria-label", tr("sessions.pick.transmitter"));
    addButton("[RSnnn]Cancel", Cancel);
    mConnect = addButton("[RSnnn]Connect", Connect);
    markMain(mConnect);
    mConnect->disable();
    mUsers->readFromDatabase(wanted());
    sayWhyEmpty();
}

Info_ConnectionMode WEstabSesDialog::wanted() const {
    return static_cast<Info_ConnectionMode>(mMode->getSelection());
}

void WEstabSesDialog::sayWhyEmpty() {
    const bool user = mUsers->selectedZeqIndex() != 0;
    const bool rx = mReceivers->selectedZeqIndex() != 0;
    mUsers->setEmptyText(tr("sessions.users.empty"));
    mReceivers->setEmptyText(tr(user ? "sessions.receivers.empty" : "sessions.pick.user"));
    mTransmitters->setEmptyText(tr(user && rx ? "sessions.transmitters.empty"
                                   : user     ? "sessions.pick.receiver"
                                              : "sessions.pick.user"));
}

// On purpose it leaves Connect as it was: pressed with nothing picked, it is refused in words.
void WEstabSesDialog::modeChangedHandler() {
    mUsers->readFromDatabase(wanted());
    mReceivers->clearData();
    mTransmitters->clearData();
    sayWhyEmpty();
}

void WEstabSesDialog::usrSelectionChangedHandler() {
    if (const unsigned user = mUsers->selectedZeqIndex()) {
        mReceivers->readFromDatabase(static_cast<Info_AccessMode>(wanted()), user);
        mTransmitters->clearData();
        mConnect->disable();
    }
    sayWhyEmpty();
}

void WEstabSesDialog::rxSelectionChangedHandler() {
    const unsigned user = mUsers->selectedZeqIndex();
    const unsigned rx = mReceivers->selectedZeqIndex();
    if (user != 0 && rx != 0) {
        mTransmitters->readFromDatabase(wanted(), user, rx);
        mConnect->disable();
    }
    sayWhyEmpty();
}

void WEstabSesDialog::txSelectionChangedHandler() {
    mConnect->enable();
}

void WEstabSesDialog::getSelectedParameters(unsigned& usrIndex, unsigned& rxIndex, unsigned& txIndex,
                                            Info_ConnectionMode& mode) const {
    usrIndex = mUsers->selectedZeqIndex();
    rxIndex = mReceivers->selectedZeqIndex();
    txIndex = mTransmitters->selectedZeqIndex();
    mode = wanted();
}
