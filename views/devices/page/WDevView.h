#pragma once

#include "views/devices/page/DeviceSelection.h"
#include "views/devices/page/WDevViewDetails.h"

#include <Wt/WContainerWidget>
#include <Wt/WSignal>

#include <array>
#include <ctime>
#include <string>
#include <vector>

namespace Wt {
class WBoxLayout;
class WTimer;
} // namespace Wt

class WDevViewList;
class WNavAccordion;
class WNavAccordionStdCell;

/// The Devices tab: every device of the system in one list, actions on the selected ones, and their settings
/// in the pane below.
class WDevView : public Wt::WContainerWidget {
public:
    explicit WDevView(Wt::WContainerWidget* parent = nullptr);

    /// Refreshes what is new; nothing while there are unsaved edits. `forceDetails`: read the details in any
    /// case. `forceList`: rebuild the list in any case, also over unsaved edits.
    virtual void readFromDatabase(bool forceDetails, bool forceList);
    virtual void enableAutoRefresh();
    virtual void disableAutoRefresh();

    /// A field of the tab on show was edited.
    virtual void contentChangedHandler();

    virtual void restoreSettingsActionButtonClicked();
    virtual void partialRestoreSettingsActionButtonClicked();
    virtual void updateFirmwareActionButtonClicked();
    virtual void rebootDevActionButtonClicked();
    virtual void removeDevicesActionButtonClicked();
    virtual void removeOfflineDevicesActionButtonClicked();
    virtual void flashDisplayActionButtonClicked();

    virtual void devListSelectionChangedHandler();
    virtual void detailsTabChangedHandler();
    virtual void swxModeChangedHandler();

    virtual void rxAttribsSaveButtonClickedHandler();
    virtual void rxAttribsCancelButtonClickedHandler();
    virtual void rxSettingsSaveButtonClickedHandler();
    virtual void rxSettingsCancelButtonClickedHandler();
    virtual void txAttribsSaveButtonClickedHandler();
    virtual void txAttribsCancelButtonClickedHandler();
    virtual void txSettingsSaveButtonClickedHandler();
    virtual void txSettingsCancelButtonClickedHandler();
    virtual void swxModeSaveButtonClickedHandler();
    virtual void swxModeCancelButtonClickedHandler();
    virtual void swxAttribsSaveButtonClickedHandler();
    virtual void swxAttribsCancelButtonClickedHandler();
    virtual void swxIpV4SettingsSaveButtonClickedHandler();
    virtual void swxIpV4SettingsCancelButtonClickedHandler();
    virtual void swxIpV6SettingsSaveButtonClickedHandler();
    virtual void swxIpV6SettingsCancelButtonClickedHandler();
    virtual void swxNtpSettingsSaveButtonClickedHandler();
    virtual void swxNtpSettingsCancelButtonClickedHandler();

    virtual void refreshTimerTimeout();
    virtual void fwUpdateTimerTimeout();

    /// Watches the firmware update of the Switch that one is logged in to, from now on.
    void followThisSwx();
    bool followsThisSwx() const;

    WDevViewList* list() const { return mList; }
    WDevViewDetails* details() const { return mDetails; }
    WNavAccordionStdCell* actionCell(DeviceAction action) const {
        return mCells[static_cast<std::size_t>(action)];
    }

private:
    struct Action;
    static const Action kActions[];
    struct Editing;
    static const Editing kEditing[];

    /// One watched kind of data.
    struct Watch {
        unsigned id; // InfoMgr_InfoID
        unsigned lastChange = 0;
    };

    void wire();
    bool newDataIsAvailable();
    void rebuildList();
    void connectListSelection();
    void enableAction(DeviceAction action, bool enable);
    void save(DevEditableTab which);
    void cancel(DevEditableTab which);

    void createNewFirmwareUpdateRecordThenProceed();
    void proceedWithSelection(unsigned upgradeIndex);
    void proceedWithFirmwareUpdate(unsigned upgradeIndex, Info_DeviceType deviceType,
                                   const std::vector<unsigned>& indexes);

    Wt::WBoxLayout* mHBox;
    Wt::WBoxLayout* mVBox;
    std::array<WNavAccordionStdCell*, kDeviceActionCount> mCells{}; // by DeviceAction
    WNavAccordion* mAccordion;
    WDevViewList* mList;
    WDevViewDetails* mDetails;
    std::array<Watch, 5> mWatched;
    Wt::WTimer* mRefreshTimer;
    std::time_t mLastModeWarning = 0; // seconds since the epoch
    Wt::Signals::connection mSelectionConnection;

    Wt::WTimer* mFwUpdateTimer = nullptr; // made at its first use
    std::time_t mFwUpdateStart = 0;       // of this Switch's own update, seconds since the epoch
};
