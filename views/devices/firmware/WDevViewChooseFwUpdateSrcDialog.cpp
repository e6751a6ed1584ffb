#include "views/devices/firmware/WDevViewChooseFwUpdateSrcDialog.h"

#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"
#include "views/devices/firmware/WDevViewChooseFwUpdateSrcTable.h"

#include <Wt/WPushButton>
#include <Wt/WText>

WDevViewChooseFwUpdateSrcDialog::WDevViewChooseFwUpdateSrcDialog() {
    rejectWhenEscapePressed();
    contents()->setPadding(kMsgBoxPaddingPx);
    mHeading = new WDialogHeading(*this, "upload.png", tr("[RSnnn]Update firmware"));
    contents()->addWidget(mHeading);
    contents()->addWidget(
        newMsgBoxText(tr("[RSnnn]Choose a previously used firmware update file, or choose a new file.")));
    mTable = new WDevViewChooseFwUpdateSrcTable(contents());
    mTable->selectionChanged().connect(this, &WDevViewChooseFwUpdateSrcDialog::selectionChangedHandler);

    Wt::WContainerWidget* buttons = newMsgBoxButtonRow(contents());
    mProceedButton = newMsgBoxButton(tr("[RSnnn]Proceed"), buttons);
    Wt::WPushButton* newFileButton = newMsgBoxButton(tr("[RSnnn]New file"), buttons);
    mDeleteButton = newMsgBoxButton(tr("[RSnnn]Delete"), buttons);
    Wt::WPushButton* closeButton = newMsgBoxButton(tr("[RSnnn]Close"), buttons);
    mProceedButton->clicked().connect(this, &WDevViewChooseFwUpdateSrcDialog::finishButtonClickedHandler);
    newFileButton->clicked().connect(this, &WDevViewChooseFwUpdateSrcDialog::newFileButtonClickedHandler);
    mDeleteButton->clicked().connect(this, &WDevViewChooseFwUpdateSrcDialog::deleteButtonClickedHandler);
    closeButton->clicked().connect(this, &WDevViewChooseFwUpdateSrcDialog::cancelButtonClickedHandler);
    mTable->readFromDatabase();
    selectionChangedHandler();
}

void WDevViewChooseFwUpdateSrcDialog::titleSet(const Wt::WString& title) {
    mHeading->setTitle(title);
}

int WDevViewChooseFwUpdateSrcDialog::numberOfExistingEntries() const {
    return mTable->rowCount();
}

unsigned WDevViewChooseFwUpdateSrcDialog::selectedZeqIndex() const {
    return mTable->selectedZeqIndex();
}

void WDevViewChooseFwUpdateSrcDialog::cancelButtonClickedHandler() {
    mButtonClicked = Close;
    reject();
}

void WDevViewChooseFwUpdateSrcDialog::newFileButtonClickedHandler() {
    mButtonClicked = NewFile;
    accept();
}

void WDevViewChooseFwUpdateSrcDialog::finishButtonClickedHandler() {
    mButtonClicked = Proceed;
    accept();
}

void WDevViewChooseFwUpdateSrcDialog::deleteButtonClickedHandler() {
    mButtonClicked = Delete;
    mTable->deleteSelected();
    selectionChangedHandler();
}

void WDevViewChooseFwUpdateSrcDialog::selectionChangedHandler() {
    const int selected = mTable->numSelected();
    mProceedButton->setEnabled(selected == 1);
    mDeleteButton->setEnabled(selected >= 1);
}
