#include "shell/WInitAdminPasswordDialog.h"

#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"
#include "widgets/WLineEditPlus.h"

#include <Wt/WLabel>
#include <Wt/WPushButton>
#include <Wt/WRegExpValidator>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

namespace {

constexpr int kMaxWidthPx = 500;
constexpr int kLabelGapPx = 8;
constexpr int kFieldSizeChars = 50;
constexpr int kPasswordMaxChars = 20;
constexpr char kAllowed[] = "^([!-~]*)$"; // printable ASCII without blanks

} // namespace

WInitAdminPasswordDialog::WInitAdminPasswordDialog(const std::string& name) : username(name) {
    setMaximumSize(kMaxWidthPx, Wt::WLength::Auto);
    contents()->setPadding(kMsgBoxPaddingPx);
    contents()->addWidget(new WDialogHeading(*this, "settings.png", tr("[RSnnn]Set Password")));
    contents()->addWidget(newMsgBoxText(tr("[RSnnn]explanation of setting password")));

    auto* table = new Wt::WTable(contents());
    passwordField = addField(*table, 0, tr("[RSnnn]Password"));
    confirmField = addField(*table, 1, tr("[RSnnn]Confirm Password"));

    setPasswordButton = newMsgBoxButton(tr("[RSnnn]Set Password"), newMsgBoxButtonRow(contents()));
    setPasswordButton->disable();
    passwordField->setFocus();
}

WLineEditPlus* WInitAdminPasswordDialog::addField(Wt::WTable& table, int row, const Wt::WString& labelText) {
    table.elementAt(row, 0)->setPadding(kLabelGapPx, Wt::Right);
    auto* label = new Wt::WLabel(labelText, table.elementAt(row, 0));
    label->setStyleClass("mirl-label");
    auto* field = new WLineEditPlus(table.elementAt(row, 1));
    field->setStyleClass("mirl-attribute-table-read-write-line-edit");
    field->setTextSize(kFieldSizeChars);
    field->setMaxLength(kPasswordMaxChars);
    field->setEchoMode(Wt::WLineEdit::Password);
    field->setAutoComplete(false);
    field->setValidator(new Wt::WRegExpValidator(kAllowed, field));
    field->valueChanged().connect(this, &WInitAdminPasswordDialog::passwordChangedHandler);
    label->setBuddy(field);
    return field;
}

bool WInitAdminPasswordDialog::passwordIsGood() {
    return !passwordField->text().empty() && passwordField->text() == confirmField->text() &&
           passwordField->validate() == Wt::WValidator::Valid;
}

void WInitAdminPasswordDialog::passwordChangedHandler() {
    setPasswordButton->setEnabled(passwordIsGood());
}
