#include "views/devices/firmware/WDevViewChooseFwUpdateSrcDialog.h"

#include "views/devices/firmware/WDevViewChooseFwUpdateSrcTable.h"

namespace {

constexpr DialogFormHead kHead = {
    "upload.png", "[RSnnn]Update firmware",
    "[RSnnn]Choose a previously used firmware update file, or choose a new file."};

} // namespace

WDevViewChooseFwUpdateSrcDialog::WDevViewChooseFwUpdateSrcDialog() : DialogForm(kHead) {
    using Self = WDevViewChooseFwUpdateSrcDialog;
    mTable = new WDevViewChooseFwUpdateSrcTable(contents());
    mTable->selectionChanged().connect(this, &Self::selectionChangedHandler);
    mProceedButton = addButton("[RSnnn]Proceed", this, &Self::finishButtonClickedHandler);
    addButton("[RSnnn]New file", this, &Self::newFileButtonClickedHandler);
    mDeleteButton = addButton("[RSnnn]Delete", this, &Self::deleteButtonClickedHandler);
    addButton("[RSnnn]Close", this, &Self::cancelButtonClickedHandler);
    mTable->readFromDatabase();
    selectionChangedHandler();
}

int WDevViewChooseFwUpdateSrcDialog::numberOfExistingEntries() const {
    return mTable->rowCount();
}

unsigned WDevViewChooseFwUpdateSrcDialog::selectedZeqIndex() const {
    return mTable->selectedZeqIndex();
}

void WDevViewChooseFwUpdateSrcDialog::cancelButtonClickedHandler() {
    finish(Close, Rejected);
}

void WDevViewChooseFwUpdateSrcDialog::newFileButtonClickedHandler() {
    finish(NewFile);
}

void WDevViewChooseFwUpdateSrcDialog::finishButtonClickedHandler() {
    finish(Proceed);
}

void WDevViewChooseFwUpdateSrcDialog::deleteButtonClickedHandler() {
    noteButton(Delete);
    mTable->deleteSelected();
    selectionChangedHandler();
}

void WDevViewChooseFwUpdateSrcDialog::selectionChangedHandler() {
    const int selected = mTable->numSelected();
    mProceedButton->setEnabled(selected == 1);
    mDeleteButton->setEnabled(selected >= 1);
}
