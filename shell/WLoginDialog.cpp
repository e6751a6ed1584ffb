#include "shell/WLoginDialog.h"

#include "platform/client/Attributes.h"
#include "shell/MirlPath.h"

#include <Wt/WAnchor>
#include <Wt/WBreak>
#include <Wt/WImage>
#include <Wt/WLabel>
#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WTableColumn>
#include <Wt/WText>

namespace {

constexpr int kDialogWidthPx = 721;
constexpr int kImageWidthPx = 700;
constexpr int kPaddingPx = 10;
constexpr int kCellWidthPercent = 33;
constexpr int kFieldSizeChars = 30;
constexpr int kFieldMaxChars = 60;

Wt::WLineEdit* addField(Wt::WTableCell* cell, const Wt::WString& labelText) {
    auto* label = new Wt::WLabel(labelText, cell);
    label->addStyleClass("mirl-label");
    new Wt::WBreak(cell);
    auto* field = new Wt::WLineEdit(cell);
    field->setTextSize(kFieldSizeChars);
    field->setMaxLength(kFieldMaxChars);
    field->setAutoComplete(false);
    field->addStyleClass("mirl-login-line-edit");
    label->setBuddy(field);
    return field;
}

} // namespace

WLoginDialog::WLoginDialog(const char* reason) {
    setTitleBarEnabled(false);
    setWidth(kDialogWidthPx);
    contents()->setPadding(kPaddingPx);

    auto* top = new Wt::WTable(contents());
    auto* image = new Wt::WImage(Wt::WLink(MirlPath_themeBase() + "login-banner.png"), top->elementAt(0, 0));
    image->resize(kImageWidthPx, Wt::WLength::Auto);

    if (*reason) {
        auto* why = new Wt::WText(tr(reason), Wt::PlainText, contents());
        why->setInline(false);
        why->addStyleClass("mirl-login-reason");
    }

    auto* row = new Wt::WTable(contents());
    row->addStyleClass("mirl-login-table");
    for (int column = 0; column < 3; ++column)
        row->columnAt(column)->setWidth(Wt::WLength(kCellWidthPercent, Wt::WLength::Percentage));
    usernameField = addField(row->elementAt(0, 0), tr("[RSnnn]Username"));
    passwordField = addField(row->elementAt(0, 1), tr("[RSnnn]Password"));
    passwordField->setEchoMode(Wt::WLineEdit::Password);

    Wt::WTableCell* actions = row->elementAt(0, 2);
    actions->addStyleClass("mirl-login-actions");
    loginButton = new Wt::WPushButton(tr("[RSnnn]Log In"), actions);
    forgotPasswordAnchor = new Wt::WAnchor(actions);
    forgotPasswordAnchor->setText(tr("[RSnnn]Forgot my password"));
    forgotPasswordAnchor->addStyleClass("mirl-link");

    if (const char* version = Attributes_getString("firmware.appversion", nullptr)) {
        auto* text = new Wt::WText(tr("[RSnnn]version") + " " + Wt::WString::fromUTF8(version), Wt::PlainText,
                                   contents());
        text->addStyleClass("mirl-login-version");
    }
}

void WLoginDialog::setFocusOnUsernameField() {
    usernameField->setFocus();
}

void WLoginDialog::clearFields() {
    usernameField->setText("");
    passwordField->setText("");
}

std::string WLoginDialog::usernameGet() const {
    return usernameField->text().toUTF8();
}
