#include "shell/WForceLoginDialog.h"

#include "db/Convert.h"
#include "db/Db.h"
#include "views/sessions/WEstabSesRxTable.h"

namespace {

constexpr int kTableWidthPx = 420;
constexpr int kTableHeightPx = 240;

constexpr DialogFormHead kHead = {"login-user.png", "[RSnnn]Login user",
                                  "[RSnnn]Select a receiver to log the user in to."};

} // namespace

WForceLoginDialog::WForceLoginDialog(unsigned int usrIndex) : DialogForm(kHead) {
    mTable = new WEstabSesRxTable(contents());
    mTable->resize(kTableWidthPx, kTableHeightPx);
    mTable->selectionChanged().connect(this, &WForceLoginDialog::selectionChangedHandler);
    mLoginButton = addButton("[RSnnn]Login", this, &WForceLoginDialog::loginButtonClickedHandler);
    mLoginButton->disable();
    addButton("[RSnnn]Cancel", this, &WForceLoginDialog::cancelButtonClickedHandler);

    std::string mode;
    std::vector<std::string> errors;
    Db::db.getAllowedAccessModeFromUserIndex(usrIndex, mode, errors);
    mTable->readFromDatabase(Convert_accessModeDbStringToEnum(mode), usrIndex);
}

void WForceLoginDialog::selectionChangedHandler() {
    mLoginButton->enable();
    if (mTable->selectedIndexes().size() == 1) mRxSelected = mTable->selectedZeqIndex();
}

void WForceLoginDialog::loginButtonClickedHandler() {
    finish(Login);
}

void WForceLoginDialog::cancelButtonClickedHandler() {
    finish(Cancel);
}
