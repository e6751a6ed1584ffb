#include "frame/WFileUploadDialog.h"

#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"

#include <Wt/WCheckBox>
#include <Wt/WFileUpload>
#include <Wt/WProgressBar>
#include <Wt/WPushButton>
#include <Wt/WText>

#include <filesystem>

namespace {

/// Where uploads are spooled.
const std::filesystem::path kSpoolFolder = "/tmp";

} // namespace

WFileUploadDialog::WFileUploadDialog() {
    contents()->setPadding(kMsgBoxPaddingPx);
    mHeading = new WDialogHeading(*this, "upload.png", tr("[RSnnn]File Transfer"));
    contents()->addWidget(mHeading);
    mText = newMsgBoxText(tr("[RSnnn]Choose the file to be transferred, then click Send."));
    contents()->addWidget(mText);
    mUpload = new Wt::WFileUpload(contents());
    mUpload->setProgressBar(new Wt::WProgressBar);
    mUpload->setAttributeValue("role", "group");
    mUpload->setAttributeValue("aria-labelledby", mText->id());
    auto* checkBoxRow = new Wt::WContainerWidget(contents());
    mCheckBox = new Wt::WCheckBox(tr("[RSnnn]Close when transfer successfully completes."), checkBoxRow);

    mButtons = newMsgBoxButtonRow(contents());
    mSendButton = newMsgBoxButton(tr("[RSnnn]Send"), mButtons);
    mSendButton->disable();
    mCancelButton = newMsgBoxButton(tr("[RSnnn]Cancel"), mButtons);

    mUpload->changed().connect(mSendButton, &Wt::WPushButton::enable);
    mUpload->uploaded().connect(this, &WFileUploadDialog::fileUploadedHandler);
    mUpload->fileTooLarge().connect(this, &WFileUploadDialog::fileTooLargeHandler);
    mSendButton->clicked().connect(this, &WFileUploadDialog::sendButtonClickedHandler);
    mCancelButton->clicked().connect(this, &WFileUploadDialog::cancelButtonClickedHandler);
}

void WFileUploadDialog::titleSet(const Wt::WString& title) {
    mHeading->setTitle(title);
}

void WFileUploadDialog::setMessage(const Wt::WString& text) {
    mText->setText(text);
}

std::string WFileUploadDialog::serverFileName() const {
    return mResult == kTransferred ? mUpload->spoolFileName() : std::string();
}

std::string WFileUploadDialog::clientFileName() const {
    return mUpload->clientFileName().toUTF8();
}

bool WFileUploadDialog::isCheckBoxChecked() const {
    return mCheckBox->isChecked();
}

int WFileUploadDialog::result() const {
    return mResult;
}

void WFileUploadDialog::sendButtonClickedHandler() {
    mSendButton->hide();
    setMessage(tr("[RSnnn]Transferring file."));
    mUpload->upload();
}

void WFileUploadDialog::fileUploadedHandler() {
    mResult = kTransferred;
    if (isCheckBoxChecked()) {
        accept();
        return;
    }
    setMessage(tr("[RSnnn]Completed."));
    delete mSendButton;
    mSendButton = nullptr;
    delete mCancelButton;
    mCancelButton = newMsgBoxButton(tr("[RSnnn]Close"), mButtons);
    mCancelButton->clicked().connect(this, &WFileUploadDialog::closeButtonClickedHandler);
}

void WFileUploadDialog::fileTooLargeHandler() {
    mSendButton->hide();
    setMessage(tr("[RSnnn]File too large."));
    mCancelButton->setText(tr("[RSnnn]Close"));
}

void WFileUploadDialog::cancelButtonClickedHandler() {
    mResult = kCancelled;
    const std::string spooled = mUpload->spoolFileName();
    if (!spooled.empty()) {
        std::error_code ignored; // the toolkit removes what is left
        std::filesystem::remove(kSpoolFolder / std::filesystem::path(spooled).filename(), ignored);
    }
    reject();
}

void WFileUploadDialog::closeButtonClickedHandler() {
    accept();
}
