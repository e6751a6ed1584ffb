#include "shell/WPrefs.h"

#include "db/Db.h"
#include "frame/WMsgBoxDbErr.h"
#include "shell/WPrefsTable.h"

namespace {

std::vector<unsigned int> loggedInUser() {
    return {Db::db.getIndexOfCurrentlyLoggedInMirlUsr()};
}

} // namespace

WPrefs::WPrefs() : DialogForm(DialogFormHead{"preferences.png", "[RSnnn]Preferences"}) {
    mTable = new WPrefsTable(contents());
    mTable->readFromDatabase(loggedInUser(), true);
    mTable->contentChanged().connect(this, &WPrefs::contentChangedHandler);
    mSaveButton = addButton("[RSnnn]Save", this, &WPrefs::saveButtonClickedHandler);
    mSaveButton->disable();
    mCancelButton = addButton("[RSnnn]Cancel", this, &WPrefs::cancelButtonClickedHandler);
}

void WPrefs::contentChangedHandler() {
    mSaveButton->enable();
    mCancelButton->enable();
}

void WPrefs::saveButtonClickedHandler() {
    std::vector<std::string> errors;
    if (mTable->writeToDatabase(loggedInUser(), errors) != 0) {
        WMsgBoxDbErr box(WMsgBoxDbErr::Write, errors);
        box.exec();
    }
    accept();
}

void WPrefs::cancelButtonClickedHandler() {
    reject();
}
