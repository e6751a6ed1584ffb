#include "views/devices/firmware/WDevViewFwUpdateSrcLoginDialog.h"

#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"

#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

WDevViewFwUpdateSrcLoginDialog::WDevViewFwUpdateSrcLoginDialog(const std::string& username) {
    rejectWhenEscapePressed();
    contents()->setPadding(kMsgBoxPaddingPx);
    contents()->addWidget(new WDialogHeading(*this, "upload.png", tr("[RSnnn]Update firmware")));
    contents()->addWidget(newMsgBoxText(tr("[RSnnn]Enter the username and password that should be used to "
                                           "retrieve the firmware update file.")));
    mTable = new Wt::WTable(contents());
    mUsername = addField(0, tr("[RSnnn]Username"));
    mPassword = addField(1, tr("[RSnnn]Password"));
    mPassword->setEchoMode(Wt::WLineEdit::Password);
    mPassword->setAutoComplete(false);
    mUsername->setText(Wt::WString::fromUTF8(username));

    Wt::WContainerWidget* buttons = newMsgBoxButtonRow(contents());
    Wt::WPushButton* proceedButton = newMsgBoxButton(tr("[RSnnn]Proceed"), buttons);
    Wt::WPushButton* closeButton = newMsgBoxButton(tr("[RSnnn]Close"), buttons);
    proceedButton->clicked().connect(this, &WDevViewFwUpdateSrcLoginDialog::proceedButtonClickedHandler);
    closeButton->clicked().connect(this, &WDevViewFwUpdateSrcLoginDialog::closeButtonClickedHandler);
}

Wt::WLineEdit* WDevViewFwUpdateSrcLoginDialog::addField(int row, const Wt::WString& label) {
    auto* text = new Wt::WText(label, Wt::PlainText, mTable->elementAt(row, 0));
    text->setStyleClass("mirl-label");
    auto* field = new Wt::WLineEdit(mTable->elementAt(row, 1));
    field->setStyleClass("mirl-attribute-table-read-write-line-edit");
    field->setAttributeValue("aria-labelledby", text->id());
    return field;
}

void WDevViewFwUpdateSrcLoginDialog::proceedButtonClickedHandler() {
    mButtonClicked = Proceed;
    accept();
}

void WDevViewFwUpdateSrcLoginDialog::closeButtonClickedHandler() {
    mButtonClicked = Close;
    reject();
}

std::string WDevViewFwUpdateSrcLoginDialog::username() const {
    return mUsername->text().toUTF8();
}

std::string WDevViewFwUpdateSrcLoginDialog::password() const {
    return mPassword->text().toUTF8();
}
