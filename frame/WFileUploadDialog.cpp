#include "frame/WFileUploadDialog.h"

#include <Wt/WCheckBox>
#include <Wt/WContainerWidget>
#include <Wt/WFileUpload>
#include <Wt/WProgressBar>

#include <filesystem>

namespace {

/// Where uploads are spooled.
const std::filesystem::path kSpoolFolder = "/tmp";

constexpr DialogFormHead kHead = {.image = "upload.png",
                                  .title = "[RSnnn]File Transfer",
                                  .text = "[RSnnn]Choose the file to be transferred, then click Send.",
                                  .escapeRejects = false};

} // namespace

WFileUploadDialog::WFileUploadDialog() : DialogForm(kHead) {
    mUpload = new Wt::WFileUpload(contents());
    mUpload->setProgressBar(new Wt::WProgressBar);
    mUpload->setAttributeValue("role", "group");
    nameByText(*mUpload);
    auto* checkBoxRow = new Wt::WContainerWidget(contents());
    mCheckBox = new Wt::WCheckBox(tr("[RSnnn]Close when transfer successfully completes."), checkBoxRow);
    mSendButton = addButton("[RSnnn]Send", this, &WFileUploadDialog::sendButtonClickedHandler);
    mSendButton->disable();
    mCancelButton = addButton("[RSnnn]Cancel", this, &WFileUploadDialog::cancelButtonClickedHandler);

    mUpload->changed().connect(mSendButton, &Wt::WPushButton::enable);
    mUpload->uploaded().connect(this, &WFileUploadDialog::fileUploadedHandler);
    mUpload->fileTooLarge().connect(this, &WFileUploadDialog::fileTooLargeHandler);
}

void WFileUploadDialog::setMessage(const Wt::WString& text) {
    textSet(text);
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
    mCancelButton = addButton("[RSnnn]Close", this, &WFileUploadDialog::closeButtonClickedHandler);
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
