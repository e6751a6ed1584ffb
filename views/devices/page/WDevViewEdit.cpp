// Editing in the details pane: what a change enables, saving and throwing away. Nine tabs, one body each.

#include "frame/WMsgBox.h"
#include "frame/WMsgBoxDbErr.h"
#include "shell/WallClock.h"
#include "views/devices/list/WDevViewList.h"
#include "views/devices/page/WDevView.h"
#include "views/devices/tabs/WDevViewSwxNtp.h"
#include "widgets/WSettingsTab.h"

void WDevView::contentChangedHandler() {
    for (const DeviceAction action :
         {DeviceAction::RestoreFull, DeviceAction::RestorePartial, DeviceAction::Update, DeviceAction::Reboot,
          DeviceAction::Remove, DeviceAction::RemoveOffline})
        enableAction(action, false); // Flash disturbs no edit
    const int selected = mList->numSelected();
    WSettingsTab* tab = mDetails->currentEditableTab();
    if (selected == 0 || !tab) return;
    tab->indicateChangedContent(true);
    tab->enableButtons(selected == 1 ? tab->isAllValid() : tab->isAnyValid(), true);
}

void WDevView::save(DevEditableTab which) {
    WSettingsTab& tab = mDetails->editableTab(which);
    std::vector<std::string> errors;
    const bool failed = tab.writeToDatabase(mList->selectedZeqIndexes(), errors) != 0;
    if (failed) WMsgBoxDbErr(WMsgBoxDbErr::Write, errors).exec();
    tab.enableButtons(false, false);
    tab.indicateChangedContent(false);
    // What was refused is no news for the change status: the tab is read all the same, and shows what is
    // stored.
    readFromDatabase(failed || !errors.empty(), false);
}

void WDevView::cancel(DevEditableTab which) {
    WSettingsTab& tab = mDetails->editableTab(which);
    tab.enableButtons(false, false);
    tab.indicateChangedContent(false);
    tab.readFromDatabase(false, mList->selectedZeqIndexes(), true);
    readFromDatabase(false, false);
}

void WDevView::rxAttribsSaveButtonClickedHandler() {
    save(DevEditableTab::RxAttribs);
}
void WDevView::rxAttribsCancelButtonClickedHandler() {
    cancel(DevEditableTab::RxAttribs);
}
void WDevView::rxSettingsSaveButtonClickedHandler() {
    save(DevEditableTab::RxSettings);
}
void WDevView::rxSettingsCancelButtonClickedHandler() {
    cancel(DevEditableTab::RxSettings);
}
void WDevView::txAttribsSaveButtonClickedHandler() {
    save(DevEditableTab::TxAttribs);
}
void WDevView::txAttribsCancelButtonClickedHandler() {
    cancel(DevEditableTab::TxAttribs);
}
void WDevView::txSettingsSaveButtonClickedHandler() {
    save(DevEditableTab::TxSettings);
}
void WDevView::txSettingsCancelButtonClickedHandler() {
    cancel(DevEditableTab::TxSettings);
}
void WDevView::swxModeSaveButtonClickedHandler() {
    save(DevEditableTab::SwxMode);
}
void WDevView::swxModeCancelButtonClickedHandler() {
    cancel(DevEditableTab::SwxMode);
}
void WDevView::swxAttribsSaveButtonClickedHandler() {
    save(DevEditableTab::SwxAttribs);
}
void WDevView::swxAttribsCancelButtonClickedHandler() {
    cancel(DevEditableTab::SwxAttribs);
}
void WDevView::swxIpV4SettingsSaveButtonClickedHandler() {
    save(DevEditableTab::SwxIpV4Settings);
}
void WDevView::swxIpV4SettingsCancelButtonClickedHandler() {
    cancel(DevEditableTab::SwxIpV4Settings);
}
void WDevView::swxIpV6SettingsSaveButtonClickedHandler() {
    save(DevEditableTab::SwxIpV6Settings);
}
void WDevView::swxIpV6SettingsCancelButtonClickedHandler() {
    cancel(DevEditableTab::SwxIpV6Settings);
}
void WDevView::swxNtpSettingsSaveButtonClickedHandler() {
    save(DevEditableTab::SwxNtpSettings);
    static_cast<WDevViewSwxNtp&>(mDetails->editableTab(DevEditableTab::SwxNtpSettings)).clearStatus();
}
void WDevView::swxNtpSettingsCancelButtonClickedHandler() {
    cancel(DevEditableTab::SwxNtpSettings);
}

void WDevView::swxModeChangedHandler() {
    contentChangedHandler();
    constexpr std::time_t kWarningPause = 60; // seconds
    const std::time_t now = WallClock_now();
    if (now - mLastModeWarning <= kWarningPause) return;
    mLastModeWarning = now;
    WMsgBox box(WMsgBox::Warning);
    box.setMaximumSize(400, Wt::WLength::Auto);
    box.titleSet(tr("[RSnnn]Master/Slave Mode Change"));
    box.msgSet(tr("[RSnnn]warn about master/slave mode change"));
    box.buttonAdd(tr("[RSnnn]Close"));
    box.exec();
}
