#include "shell/WForceLoginDialog.h"

#include "db/Convert.h"
#include "db/Db.h"
#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"
#include "views/sessions/WEstabSesRxTable.h"

#include <Wt/WPushButton>
#include <Wt/WText>

namespace {

constexpr int kTableWidthPx = 420;
constexpr int kTableHeightPx = 240;

} // namespace

WForceLoginDialog::WForceLoginDialog(unsigned int usrIndex) {
    rejectWhenEscapePressed();
    contents()->setPadding(kMsgBoxPaddingPx);
    mHeading = new WDialogHeading(*this, "login-user.png", tr("[RSnnn]Login user"));
    contents()->addWidget(mHeading);
    contents()->addWidget(newMsgBoxText(tr("[RSnnn]Select a receiver to log the user in to.")));

    mTable = new WEstabSesRxTable(contents());
    mTable->resize(kTableWidthPx, kTableHeightPx);
    mTable->selectionChanged().connect(this, &WForceLoginDialog::selectionChangedHandler);

    Wt::WContainerWidget* buttons = newMsgBoxButtonRow(contents());
    mLoginButton = newMsgBoxButton(tr("[RSnnn]Login"), buttons);
    mLoginButton->disable();
    mLoginButton->clicked().connect(this, &WForceLoginDialog::loginButtonClickedHandler);
    Wt::WPushButton* cancelButton = newMsgBoxButton(tr("[RSnnn]Cancel"), buttons);
    cancelButton->clicked().connect(this, &WForceLoginDialog::cancelButtonClickedHandler);

    std::string mode;
    std::vector<std::string> errors;
    Db::db.getAllowedAccessModeFromUserIndex(usrIndex, mode, errors);
    mTable->readFromDatabase(Convert_accessModeDbStringToEnum(mode), usrIndex);
}

void WForceLoginDialog::titleSet(const Wt::WString& title) {
    mHeading->setTitle(title);
}

void WForceLoginDialog::selectionChangedHandler() {
    mLoginButton->enable();
    if (mTable->selectedIndexes().size() == 1) mRxSelected = mTable->selectedZeqIndex();
}

void WForceLoginDialog::loginButtonClickedHandler() {
    finish(1);
}

void WForceLoginDialog::cancelButtonClickedHandler() {
    finish(2);
}

void WForceLoginDialog::finish(int button) {
    mButtonClicked = button;
    accept();
}
