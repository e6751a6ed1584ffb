#include "shell/WInitAdminPasswordDialog.h"

#include "widgets/WLineEditPlus.h"

#include <Wt/WRegExpValidator>
#include <Wt/WTable>
#include <Wt/WTableCell>

namespace {

constexpr int kMaxWidthPx = 500;
constexpr int kLabelGapPx = 8;
constexpr int kFieldSizeChars = 50;
constexpr int kPasswordMaxChars = 20;
constexpr char kAllowed[] = "^([!-~]*)$"; // printable ASCII without blanks

constexpr DialogFormHead kHead = {.image = "settings.png",
                                  .title = "[RSnnn]Set Password",
                                  .text = "[RSnnn]explanation of setting password",
                                  .escapeRejects = false};

} // namespace

WInitAdminPasswordDialog::WInitAdminPasswordDialog(const std::string& name)
    : DialogForm(kHead), passwordField(newField("[RSnnn]Password")),
      confirmField(newField("[RSnnn]Confirm Password")), username(name) {
    setMaximumSize(kMaxWidthPx, Wt::WLength::Auto);
    setPasswordButton = newButton(tr("[RSnnn]Set Password"));
    setPasswordButton->disable();
    passwordField->setFocus();
}

WLineEditPlus* WInitAdminPasswordDialog::newField(const char* labelKey) {
    auto* field = addPassword<WLineEditPlus>(labelKey);
    fields()->elementAt(fields()->rowCount() - 1, 0)->setPadding(kLabelGapPx, Wt::Right);
    field->setTextSize(kFieldSizeChars);
    field->setMaxLength(kPasswordMaxChars);
    field->setValidator(new Wt::WRegExpValidator(kAllowed, field));
    field->valueChanged().connect(this, &WInitAdminPasswordDialog::passwordChangedHandler);
    return field;
}

bool WInitAdminPasswordDialog::passwordIsGood() {
    return !passwordField->text().empty() && passwordField->text() == confirmField->text() &&
           passwordField->validate() == Wt::WValidator::Valid;
}

void WInitAdminPasswordDialog::passwordChangedHandler() {
    setPasswordButton->setEnabled(passwordIsGood());
}
