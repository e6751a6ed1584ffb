#include "shell/WPrefs.h"

#include "db/Db.h"
#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"
#include "frame/WMsgBoxDbErr.h"
#include "shell/WPrefsTable.h"

#include <Wt/WPushButton>

namespace {

std::vector<unsigned int> loggedInUser() {
    return {Db::db.getIndexOfCurrentlyLoggedInMirlUsr()};
}

} // namespace

WPrefs::WPrefs() {
    rejectWhenEscapePressed();
    contents()->setPadding(kMsgBoxPaddingPx);
    contents()->addWidget(new WDialogHeading(*this, "preferences.png", tr("[RSnnn]Preferences")));

    mTable = new WPrefsTable(contents());
    mTable->readFromDatabase(loggedInUser(), true);
    mTable->contentChanged().connect(this, &WPrefs::contentChangedHandler);

    Wt::WContainerWidget* buttons = newMsgBoxButtonRow(contents());
    mSaveButton = newMsgBoxButton(tr("[RSnnn]Save"), buttons);
    mCancelButton = newMsgBoxButton(tr("[RSnnn]Cancel"), buttons);
    mSaveButton->disable();
    mSaveButton->clicked().connect(this, &WPrefs::saveButtonClickedHandler);
    mCancelButton->clicked().connect(this, &WPrefs::cancelButtonClickedHandler);
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
