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

bool EditingPage::save(WSettingsTab& tab) {
    std::vector<std::string> errors;
    const std::vector<unsigned> records = chosenRecords();
    const unsigned result = tab.writeToDatabase(records, errors);
    if (result != 0 || !errors.empty()) {
        WMsgBoxDbErr(WMsgBoxDbErr::Write, errors).exec();
        keepEdits(tab, records, !errors.empty());
        return false;
    }
    endEdits(tab);
    readAgain(false);
    afterSave();
    saySaved(tab);
    tab.keepFocus();
    return true;
}

void EditingPage::keepEdits(WSettingsTab& tab, const std::vector<unsigned>& records, bool serviceAnswers) {
    if (serviceAnswers) showPartlySaved(); // else there is nothing to be seen
    if (chosenRecords() != records) {      // one is gone, perhaps that is why: edits are not for the others
        endEdits(tab);
        readAgain(true);
        return;
    }
    contentChangedHandler();
    tab.tellWhatIsStored(records);
}

void EditingPage::tellWhatChanged() {
    WSettingsTab* tab = mDetails->shownSettingsTab();
    if (tab && tab->hasChanged()) tab->tellWhatChanged(chosenRecords());
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
