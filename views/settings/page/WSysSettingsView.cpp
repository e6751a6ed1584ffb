#include "views/settings/page/WSysSettingsView.h"

#include "db/Db.h"
#include "frame/ActionColumn.h"
#include "frame/RowsInOrder.h"
#include "frame/TwoListMover.h"
#include "platform/client/EventLog.h"
#include "shell/MirlApplication.h"
#include "views/settings/page/WSysSettingsViewDetails.h"
#include "views/settings/tabs/WSysSettingsViewEvents.h"

namespace {

using View = WSysSettingsView;

constexpr ActionRow<View, SysAction> kActions[] = {
    {SysAction::Save, "[RSnnn]Save Settings to File", "[RSnnn]Save",
     "[RSnnn]Store system settings to a file for safekeeping.", &View::saveSettingsButtonClickedHandler,
     Needs::Page},
    {SysAction::Load, "[RSnnn]Load Settings from File", "[RSnnn]Load",
     "[RSnnn]Load system settings from a previously saved settings file.",
     &View::loadSettingsButtonClickedHandler, Needs::Page},
    {SysAction::RestoreFull, "[RSnnn]Restore Full Defaults", "[RSnnn]Restore Full",
     "[RSnnn]Restore this switch to full factory default settings. This includes network settings.",
     &View::fullRestoreFactDefaultsButtonClickedHandler, Needs::Page},
    {SysAction::RestorePartial, "[RSnnn]Restore Partial Defaults", "[RSnnn]Restore Partial",
     "[RSnnn]Restore this switch to factory default settings, excluding the network settings.",
     &View::partialRestoreFactDefaultsButtonClickedHandler, Needs::Page},
};
static_assert(rowsInOrder(kActions));

// On purpose not the number of the Events tab, which is 3: its selection goes when it is entered, and stays
// when the tab behind it is.
constexpr int kKeepsEventSelection = 4;

} // namespace

WSysSettingsView::WSysSettingsView(Wt::WContainerWidget* parent) : EditingPage(parent) {
    auto* actions = new ActionColumn;
    actions->addActions(this, kActions);
    mDetails = new WSysSettingsViewDetails(this);
    setDetails(mDetails);
    mDetails->eventsTab().eventLists()->moved().connect(this, &WSysSettingsView::eventsMovedHandler);
    place(actions, {{.widget = mDetails, .stretch = 1}});
    updateNavActionButtons();
}

void WSysSettingsView::readFromDatabase(bool unconditional) {
    if (mDetails->hasChanged() && !unconditional) return tellWhatChanged();
    mDetails->readFromDatabase(unconditional, {}, false);
    updateNavActionButtons();
}

void WSysSettingsView::readAgain(bool force) {
    readFromDatabase(force);
    updateNavActionButtons();
}

void WSysSettingsView::updateNavActionButtons() {
    const auto* app = MirlApplication::current();
    const bool unsaved =
        mDetails->hasChanged() || (app && app->sectionChanged(ChangeTracker::SECTION_SYSTEM_SETTINGS));
    for (const auto& row : kActions)
        actions()->enable(static_cast<std::size_t>(row.value), !unsaved, "page.locked");
}

void WSysSettingsView::tabChangedHandler() {
    const int tab = mDetails->shownTab();
    if (tab != kKeepsEventSelection) mDetails->eventsTab().clearSelection();
    const WSettingsTab* shown = mDetails->shownSettingsTab();
    if (!shown) {
        EventLog_write(2, 7, __func__, "Unknown index %d.", tab);
        return;
    }
    if (!shown->hasChanged()) mDetails->readFromDatabase(false, {}, false);
}

bool WSysSettingsView::saveTab(SysTab tab) {
    return save(mDetails->settingsTabOf(tab));
}

void WSysSettingsView::cancelTab(SysTab tab) {
    cancel(mDetails->settingsTabOf(tab));
}

void WSysSettingsView::mirlSaveButtonClickedHandler() {
    if (!saveTab(SysTab::Mirl)) return;
    unsigned minutes = 0;
    std::vector<std::string> errors;
    if (Db::db.readUInt32("systemGlobals", 0, "mirlInactivityTimeout", minutes, errors) == 0)
        MirlApplication::current()->updateMirlInactivityTimeout(minutes);
}

void WSysSettingsView::eventsSaveButtonClickedHandler() {
    saveTab(SysTab::Events);
    mDetails->eventsTab().setUserHasChangedContent(mDetails->eventsTab().hasChanged());
}

void WSysSettingsView::eventsCancelButtonClickedHandler() {
    mDetails->eventsTab().clearSelection(); // which would keep the lists from being read
    cancelTab(SysTab::Events);
}

void WSysSettingsView::eventsMovedHandler() {
    WSettingsTab& tab = mDetails->eventsTab();
    tab.indicateChangedContent(true);
    tab.enableButtons(true, true);
    updateNavActionButtons();
}

WNavAccordionStdCell* WSysSettingsView::actionCell(SysAction action) const {
    return actions()->cell(static_cast<std::size_t>(action));
}
