#pragma once

#include "frame/ListPage.h"
#include "views/devices/page/DevTab.h"
#include "views/devices/page/DeviceSelection.h"

#include <ctime>
#include <vector>

namespace Wt {
class WTimer;
}

class WDevViewDetails;
class WDevViewList;
class WNavAccordionStdCell;

/// The Devices tab: every device of the system in one list, actions on the selected ones, and their
/// settings in the pane below.
class WDevView : public ListPage {
public:
    explicit WDevView(Wt::WContainerWidget* parent = nullptr);

    virtual void restoreSettingsActionButtonClicked();
    virtual void partialRestoreSettingsActionButtonClicked();
    virtual void updateFirmwareActionButtonClicked();
    virtual void rebootDevActionButtonClicked();
    virtual void removeDevicesActionButtonClicked();
    virtual void removeOfflineDevicesActionButtonClicked();
    virtual void flashDisplayActionButtonClicked();

    virtual void devListSelectionChangedHandler();
    virtual void detailsTabChangedHandler();
    /// Beside the edit, warns of what a change of mode means: at most once a minute.
    virtual void swxModeChangedHandler();

    virtual void rxAttribsSaveButtonClickedHandler() { saveTab(DevTab::RxAttribs); }
    virtual void rxAttribsCancelButtonClickedHandler() { cancelTab(DevTab::RxAttribs); }
    virtual void rxSettingsSaveButtonClickedHandler() { saveTab(DevTab::RxSettings); }
    virtual void rxSettingsCancelButtonClickedHandler() { cancelTab(DevTab::RxSettings); }
    virtual void txAttribsSaveButtonClickedHandler() { saveTab(DevTab::TxAttribs); }
    virtual void txAttribsCancelButtonClickedHandler() { cancelTab(DevTab::TxAttribs); }
    virtual void txSettingsSaveButtonClickedHandler() { saveTab(DevTab::TxSettings); }
    virtual void txSettingsCancelButtonClickedHandler() { cancelTab(DevTab::TxSettings); }
    virtual void swxModeSaveButtonClickedHandler() { saveTab(DevTab::SwxMode); }
    virtual void swxModeCancelButtonClickedHandler() { cancelTab(DevTab::SwxMode); }
    virtual void swxAttribsSaveButtonClickedHandler() { saveTab(DevTab::SwxAttribs); }
    virtual void swxAttribsCancelButtonClickedHandler() { cancelTab(DevTab::SwxAttribs); }
    virtual void swxIpV4SettingsSaveButtonClickedHandler() { saveAddress(DevTab::SwxIpV4Settings); }
    virtual void swxIpV4SettingsCancelButtonClickedHandler() { cancelTab(DevTab::SwxIpV4Settings); }
    virtual void swxIpV6SettingsSaveButtonClickedHandler() { saveAddress(DevTab::SwxIpV6Settings); }
    virtual void swxIpV6SettingsCancelButtonClickedHandler() { cancelTab(DevTab::SwxIpV6Settings); }
    /// Empties the status too: after new settings the old one says nothing.
    virtual void swxNtpSettingsSaveButtonClickedHandler();
    virtual void swxNtpSettingsCancelButtonClickedHandler() { cancelTab(DevTab::SwxNtp); }

    virtual void fwUpdateTimerTimeout();

    /// Watches the firmware update of the Switch that one is logged in to, from now on.
    void followThisSwx();
    bool followsThisSwx() const;

    WDevViewList* list() const { return mList; }
    WDevViewDetails* details() const { return mDetails; }
    WNavAccordionStdCell* actionCell(DeviceAction action) const;

protected:
    void showSelection(bool forceDetails) override;
    bool listIsDue() const override;
    const char* countedKey() const override;

private:
    void saveTab(DevTab tab);
    /// Says where the interface is behind it, if this Switch has moved.
    void saveAddress(DevTab tab);
    void cancelTab(DevTab tab);
    /// What puts the selection back after a rebuild: indexes of Receivers, Transmitters and Switches overlap.
    KeptSelection::Job rememberSelectionByKind();

    void createNewFirmwareUpdateRecordThenProceed();
    void proceedWithSelection(unsigned upgradeIndex);
    void proceedWithFirmwareUpdate(unsigned upgradeIndex, Info_DeviceType deviceType,
                                   const std::vector<unsigned>& indexes);

    WDevViewList* mList;
    WDevViewDetails* mDetails;
    std::time_t mLastModeWarning = 0; // seconds since the epoch

    Wt::WTimer* mFwUpdateTimer = nullptr; // made at its first use
    std::time_t mFwUpdateStart = 0;       // of this Switch's own update, seconds since the epoch
};
