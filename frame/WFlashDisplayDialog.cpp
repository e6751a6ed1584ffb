#include "frame/WFlashDisplayDialog.h"

#include "db/Db.h"
#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"
#include "widgets/WLineEditPlus.h"

#include <Wt/WIntValidator>
#include <Wt/WLabel>
#include <Wt/WPushButton>
#include <Wt/WText>

#include <cstdlib>

namespace {

constexpr int kMaxDurationSec = 86400; // one day

unsigned int storedDurationSec() {
    unsigned int seconds = 0;
    std::vector<std::string> errors;
    Db::db.readUInt32("systemGlobals", 0, "backlightFlashDuration", seconds, errors);
    return seconds;
}

} // namespace

WFlashDisplayDialog::WFlashDisplayDialog(const char* explanationKey) {
    rejectWhenEscapePressed();
    contents()->setPadding(kMsgBoxPaddingPx);
    contents()->addWidget(new WDialogHeading(*this, "flash-display.png", tr("[RSnnn]Flash Device Display")));
    contents()->addWidget(newMsgBoxText(tr(explanationKey)));

    auto* row = new Wt::WContainerWidget(contents());
    auto* label = new Wt::WLabel(tr("[RSnnn]Flash duration (seconds)"), row);
    label->setStyleClass("mirl-label");
    mDurationField = new WLineEditPlus(row);
    mDurationField->setStyleClass("mirl-attribute-table-read-write-line-edit");
    auto* validator = new Wt::WIntValidator(0, kMaxDurationSec, mDurationField);
    validator->setMandatory(true);
    mDurationField->setValidator(validator);
    mDurationField->setText(std::to_string(storedDurationSec()));
    label->setBuddy(mDurationField);

    Wt::WContainerWidget* buttons = newMsgBoxButtonRow(contents());
    mFlashButton = newMsgBoxButton(tr("[RSnnn]Flash"), buttons);
    mCancelButton = newMsgBoxButton(tr("[RSnnn]Cancel"), buttons);
    mDurationField->valueChanged().connect(this, &WFlashDisplayDialog::durationFieldChangedHandler);
    mFlashButton->clicked().connect(this, &WFlashDisplayDialog::flashButtonClickedHandler);
    mCancelButton->clicked().connect(this, &WFlashDisplayDialog::cancelButtonClickedHandler);
}

void WFlashDisplayDialog::durationFieldChangedHandler() {
    const bool valid = mDurationField->validate() == Wt::WValidator::Valid;
    mFlashButton->setEnabled(valid);
    mCancelButton->setEnabled(valid);
}

void WFlashDisplayDialog::flashButtonClickedHandler() {
    finish(false);
}

void WFlashDisplayDialog::cancelButtonClickedHandler() {
    finish(true);
}

void WFlashDisplayDialog::finish(bool cancelled) {
    // A sign in front is read too: a validator may have taken it for part of a number.
    const std::string text = mDurationField->text().toUTF8();
    mDurationSec = static_cast<unsigned>(std::strtoul(text.c_str(), nullptr, 10));
    mCancelled = cancelled;
    accept();
}
