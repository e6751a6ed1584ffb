#include "views/settings/files/WSaveSettingsDialog.h"

#include "db/Db.h"

#include <Wt/WAnchor>
#include <Wt/WFileResource>
#include <Wt/WLineEdit>
#include <Wt/WRegExpValidator>
#include <Wt/WStackedWidget>
#include <Wt/WTable>

namespace {

constexpr DialogFormHead kHead = {"settings.png", "[RSnnn]Save Settings", "[RSnnn]explanation of settings"};

constexpr int kMaxWidthPx = 500;
constexpr int kMaxPassword = 50; // characters

} // namespace

WSaveSettingsDialog::WSaveSettingsDialog() : DialogForm(kHead), mStack(new Wt::WStackedWidget(contents())) {
    setMaximumSize(kMaxWidthPx, Wt::WLength::Auto);
    addFields();
    auto* page = new Wt::WContainerWidget;
    mLink = new Wt::WAnchor(Wt::WLink(), tr("[RSnnn]Settings file"), page);
    mStack->addWidget(page);
    mNextButton =
        addButton("[RSnnn]Next (right arrow)", this, &WSaveSettingsDialog::nextButtonClickedHandler);
    mCancelButton = addButton("[RSnnn]Cancel", Cancel, Rejected);
    enterPresses(mPassword, mNextButton);
    enterPresses(mConfirm, mNextButton);
}

void WSaveSettingsDialog::addFields() {
    mPassword = addPassword("[RSnnn]Password");
    mConfirm = addPassword("[RSnnn]Confirm Password");
    for (Wt::WLineEdit* field : {mPassword, mConfirm}) {
        field->setMaxLength(kMaxPassword);
        field->setValidator(new Wt::WRegExpValidator("^[A-Za-z0-9]*$", field));
        field->textInput().connect(this, &WSaveSettingsDialog::passwordChangedHandler);
        field->changed().connect(this, &WSaveSettingsDialog::passwordChangedHandler);
    }
    contents()->removeWidget(fields());
    mStack->addWidget(fields());
}

void WSaveSettingsDialog::passwordChangedHandler() {
    if (!mNextButton) return;
    const bool same = mPassword->text() == mConfirm->text();
    mNextButton->setEnabled(same && mPassword->validate() == Wt::WValidator::Valid);
}

void WSaveSettingsDialog::nextButtonClickedHandler() {
    if (!mNextButton) return;
    mCancelButton->setText(tr("[RSnnn]Close"));
    if (mPassword->text() != mConfirm->text()) { // typed since Next was enabled
        imageSet("event-severity-warning.png");
        textSet(tr("[RSnnn]Password mismatch."));
        mStack->hide();
        return removeNext();
    }
    std::vector<std::string> errors;
    const unsigned failed = mDownload.make(mPassword->text().toUTF8(), errors);
    for (Wt::WLineEdit* field : {mPassword, mConfirm}) field->setText("");
    if (failed == 0) return offer();
    imageSet("event-severity-warning.png");
    textSet(errors.empty() ? tr("result.noSettingsFile") : Wt::WString::fromUTF8(errors.front()));
    mStack->hide();
    removeNext();
}

void WSaveSettingsDialog::offer() {
    textSet(tr("[RSnnn]download explanation"));
    auto* file = new Wt::WFileResource("application/octet-stream", mDownload.path(), this);
    file->suggestFileName(mDownload.name(), Wt::WResource::Attachment);
    mLink->setLink(Wt::WLink(file));
    mStack->setCurrentIndex(1);
    removeNext();
}

void WSaveSettingsDialog::removeNext() {
    delete mNextButton;
    mNextButton = nullptr;
}
