#include "frame/WFlashDisplayDialog.h"

#include "db/Db.h"
#include "widgets/WLineEditPlus.h"

#include <Wt/WContainerWidget>
#include <Wt/WIntValidator>

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

WFlashDisplayDialog::WFlashDisplayDialog(const char* explanationKey)
    : DialogForm(DialogFormHead{"flash-display.png", "[RSnnn]Flash Device Display", explanationKey}) {
    auto* row = new Wt::WContainerWidget(contents());
    mDurationField = new WLineEditPlus;
    newLabel("[RSnnn]Flash duration (seconds)", *mDurationField, row);
    row->addWidget(mDurationField);
    mDurationField->setStyleClass(kEditStyle);
    auto* validator = new Wt::WIntValidator(0, kMaxDurationSec, mDurationField);
    validator->setMandatory(true);
    mDurationField->setValidator(validator);
    mDurationField->setText(std::to_string(storedDurationSec()));

    mFlashButton = addButton("[RSnnn]Flash", this, &WFlashDisplayDialog::flashButtonClickedHandler);
    mCancelButton = addButton("[RSnnn]Cancel", this, &WFlashDisplayDialog::cancelButtonClickedHandler);
    enterPresses(mDurationField, mFlashButton);
    mDurationField->valueChanged().connect(this, &WFlashDisplayDialog::durationFieldChangedHandler);
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
