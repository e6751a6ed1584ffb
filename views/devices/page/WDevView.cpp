#include "views/devices/page/WDevView.h"

#include "db/InfoMgr.h"
#include "frame/FoldedPane.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WNavAccordion.h"
#include "frame/WNavAccordionStdCell.h"
#include "views/devices/list/WDevViewList.h"
#include "widgets/WSettingsTab.h"

#include <Wt/WHBoxLayout>
#include <Wt/WPushButton>
#include <Wt/WTabWidget>
#include <Wt/WTimer>
#include <Wt/WVBoxLayout>

namespace {

constexpr int kRefreshInterval = 5000; // milliseconds

// Pixels.
constexpr int kAccordionWidth = 160;
constexpr int kAccordionMinWidth = 148;
constexpr int kAccordionMaxWidth = 380;
constexpr int kListHeight = 180;
constexpr int kListMinHeight = 115;
constexpr int kDetailsHeight = 555;

} // namespace

struct WDevView::Action {
    const char* title;
    const char* button;
    const char* hint;
    void (WDevView::*handler)();
    bool enabledAtFirst = false;
};

const WDevView::Action WDevView::kActions[] = {
    {"[RSnnn]Restore Full Defaults", "[RSnnn]Restore Full",
     "[RSnnn]Restore device settings to default for one or more selected devices.",
     &WDevView::restoreSettingsActionButtonClicked},
    {"[RSnnn]Restore Partial Defaults", "[RSnnn]Restore Partial",
     "[RSnnn]Restore Switches to factory default settings, excluding the network settings.",
     &WDevView::partialRestoreSettingsActionButtonClicked},
    {"[RSnnn]Update Firmware", "[RSnnn]Update",
     "[RSnnn]Update firmware on one or more selected devices of the same type.",
     &WDevView::updateFirmwareActionButtonClicked},
    {"[RSnnn]Reboot Device", "[RSnnn]Reboot", "[RSnnn]Reboot one or more selected devices.",
     &WDevView::rebootDevActionButtonClicked},
    {"[RSnnn]Remove Devices", "[RSnnn]Remove", "[RSnnn]Remove the selected device(s) from the system.",
     &WDevView::removeDevicesActionButtonClicked},
    {"[RSnnn]Remove Offline Devices", "[RSnnn]Remove Offline",
     "[RSnnn]Automatically remove all devices from the system that have an offline status.",
     &WDevView::removeOfflineDevicesActionButtonClicked, true},
    {"[RSnnn]Flash Display", "[RSnnn]Flash",
     "[RSnnn]Flash the display backlight of the device to help locate it.",
     &WDevView::flashDisplayActionButtonClicked, true},
};

struct WDevView::Editing {
    DevEditableTab tab;
    void (WDevView::*save)();
    void (WDevView::*cancel)();
    void (WDevView::*changed)() = &WDevView::contentChangedHandler;
};

const WDevView::Editing WDevView::kEditing[] = {
    {DevEditableTab::RxAttribs, &WDevView::rxAttribsSaveButtonClickedHandler,
     &WDevView::rxAttribsCancelButtonClickedHandler},
    {DevEditableTab::RxSettings, &WDevView::rxSettingsSaveButtonClickedHandler,
     &WDevView::rxSettingsCancelButtonClickedHandler},
    {DevEditableTab::TxAttribs, &WDevView::txAttribsSaveButtonClickedHandler,
     &WDevView::txAttribsCancelButtonClickedHandler},
    {DevEditableTab::TxSettings, &WDevView::txSettingsSaveButtonClickedHandler,
     &WDevView::txSettingsCancelButtonClickedHandler},
    {DevEditableTab::SwxMode, &WDevView::swxModeSaveButtonClickedHandler,
     &WDevView::swxModeCancelButtonClickedHandler, &WDevView::swxModeChangedHandler},
    {DevEditableTab::SwxAttribs, &WDevView::swxAttribsSaveButtonClickedHandler,
     &WDevView::swxAttribsCancelButtonClickedHandler},
    {DevEditableTab::SwxIpV4Settings, &WDevView::swxIpV4SettingsSaveButtonClickedHandler,
     &WDevView::swxIpV4SettingsCancelButtonClickedHandler},
    {DevEditableTab::SwxIpV6Settings, &WDevView::swxIpV6SettingsSaveButtonClickedHandler,
     &WDevView::swxIpV6SettingsCancelButtonClickedHandler},
    {DevEditableTab::SwxNtpSettings, &WDevView::swxNtpSettingsSaveButtonClickedHandler,
     &WDevView::swxNtpSettingsCancelButtonClickedHandler},
};

WDevView::WDevView(Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mHBox(new Wt::WHBoxLayout), mVBox(new Wt::WVBoxLayout),
      mAccordion(new WNavAccordion), mWatched{{{unsigned(InfoMgr_InfoID::Transmitters)},
                                               {unsigned(InfoMgr_InfoID::Receivers)},
                                               {unsigned(InfoMgr_InfoID::Switches)},
                                               {unsigned(InfoMgr_InfoID::Connections)},
                                               {unsigned(InfoMgr_InfoID::UserSessions)}}},
      mRefreshTimer(new Wt::WTimer(this)) {
    for (std::size_t i = 0; i < mCells.size(); ++i) {
        const Action& action = kActions[i];
        mCells[i] = new WNavAccordionStdCell(tr(action.button), tr(action.hint));
        mCells[i]->connectAction(this, action.handler);
        if (!action.enabledAtFirst) mCells[i]->disableActionButton();
        mAccordion->sectionAdd(tr(action.title), mCells[i]);
    }
    mAccordion->resize(kAccordionWidth, Wt::WLength::Auto);
    mAccordion->setMinimumSize(kAccordionMinWidth, Wt::WLength::Auto);
    mAccordion->setMaximumSize(kAccordionMaxWidth, Wt::WLength::Auto);

    mList = new WDevViewList(tr("[RSnnn]Devices"));
    mList->setHeight(kListHeight);
    mList->setMinimumSize(Wt::WLength::Auto, kListMinHeight);
    mDetails = new WDevViewDetails(tr("[RSnnn]Device Details"), kDetailsHeight, mList->table());

    mVBox->addWidget(mList);
    mVBox->addWidget(mDetails, 1);
    mVBox->setResizable(0);
    giveRoomWhenFolded(*mDetails, *mVBox, *mList);
    mHBox->addWidget(mAccordion);
    mHBox->addLayout(mVBox, 1);
    mHBox->setResizable(0);
    setLayout(mHBox);

    mRefreshTimer->setInterval(kRefreshInterval);
    wire();
}

void WDevView::wire() {
    for (const Editing& editing : kEditing) {
        WSettingsTab& tab = mDetails->editableTab(editing.tab);
        tab.saveButton()->clicked().connect(this, editing.save);
        tab.cancelButton()->clicked().connect(this, editing.cancel);
        tab.contentChanged().connect(this, editing.changed);
    }
    connectListSelection();
    for (const DevDetailsPage page :
         {DevDetailsPage::Receiver, DevDetailsPage::Transmitter, DevDetailsPage::Switch})
        mDetails->tabWidget(page)->currentChanged().connect(this, &WDevView::detailsTabChangedHandler);
    mRefreshTimer->timeout().connect(this, &WDevView::refreshTimerTimeout);
}

void WDevView::connectListSelection() {
    mSelectionConnection =
        mList->table()->selectionChanged().connect(this, &WDevView::devListSelectionChangedHandler);
}

void WDevView::enableAction(DeviceAction action, bool enable) {
    if (enable)
        actionCell(action)->enableActionButton();
    else
        actionCell(action)->disableActionButton();
}
