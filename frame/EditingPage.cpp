#include "frame/EditingPage.h"

#include "frame/ActionColumn.h"
#include "frame/DetailsTabs.h"
#include "frame/Place.h"
#include "frame/WMsgBoxDbErr.h"

void EditingPage::contentChangedHandler() {
    actions()->disableForEdits();
    const std::size_t records = chosenRecords().size();
    WSettingsTab* tab = mDetails->shownSettingsTab();
    if (!tab || (records == 0 && !editsSingletons())) return;
    tab->indicateChangedContent(true);
    tab->say(Wt::WString());
    tab->enableButtons(records > 1 ? tab->isAnyValid() : tab->isAllValid(), true);
}

std::string EditingPage::placeInAddress() const {
    const std::string tab = mDetails ? mDetails->shownTabWord() : "";
    return tab.empty() ? "" : "/" + tab;
}

void EditingPage::goTo(std::string_view place) {
    if (mDetails) mDetails->showTabOf(Place::takePart(place));
}

bool EditingPage::save(WSettingsTab& tab, OnFailure onFailure) {
    std::vector<std::string> errors;
    const unsigned result = tab.writeToDatabase(chosenRecords(), errors);
    const bool failed = result != 0 || !errors.empty();
    if (failed) {
        WMsgBoxDbErr(WMsgBoxDbErr::Write, errors).exec();
        if (onFailure == OnFailure::KeepsEdits) return false;
    }
    endEdits(tab);
    // What was refused is no news for the change status: the tab is read all the same, and shows what is stored.
    readAgain(failed);
    afterSave();
    if (!failed) saySaved(tab);
    tab.keepFocus();
    return !failed;
}

void EditingPage::saySaved(WSettingsTab& tab) const {
    const Wt::WString chosen = chosenInWords(); // with the name that was just saved
    if (chosen.empty())
        tab.say(tr("page.saved"));
    else
        tab.say(tr(chosenRecords().size() == 1 ? "page.saved.one" : "page.saved.many").arg(chosen));
}

void EditingPage::cancel(WSettingsTab& tab) {
    endEdits(tab);
    tab.readFromDatabase(false, chosenRecords(), true);
    readAgain(false);
    tab.say(Wt::WString());
    tab.keepFocus();
}

void EditingPage::endEdits(WSettingsTab& tab) {
    tab.enableButtons(false, false);
    tab.indicateChangedContent(false);
}
