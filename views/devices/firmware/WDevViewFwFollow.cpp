// Following the firmware update of the Switch that the user is logged in to. All other devices tell of theirs
// in the list.

#include "db/Db.h"
#include "db/DeviceState.h"
#include "db/ThisSwx.h"
#include "frame/RebootingBox.h"
#include "platform/client/EventLog.h"
#include "shell/MirlApplication.h"
#include "shell/WallClock.h"
#include "views/devices/firmware/FwUpdateReset.h"
#include "views/devices/page/WDevView.h"

#include <Wt/WTimer>

namespace {

constexpr int kInterval = 5000;     // milliseconds between two looks
constexpr unsigned kPatience = 600; // seconds until an update counts as timed out

constexpr BoxRow kSucceeded = {WMsgBox::Info, "[RSnnn]Firmware update"};
constexpr BoxRow kNotSucceeded = {WMsgBox::Error, "[RSnnn]Firmware update", {"[RSnnn]Okay"}};

/// How an update fails. The key without its marker is the line in the log.
struct Failure {
    Info_DeviceUpgradeStatus status;
    const char* messageKey;
};

constexpr Failure kFailures[] = {
    {Info_DeviceUpgradeStatus::Failed, "[RSnnn]Firmware update of the Master Switch failed."},
    {Info_DeviceUpgradeStatus::FailedFileGet,
     "[RSnnn]Firmware update of the Master Switch failed -- unable to retrieve file."},
    {Info_DeviceUpgradeStatus::FailedFileContent,
     "[RSnnn]Firmware update of the Master Switch failed -- file corrupted or incorrect type."},
    {Info_DeviceUpgradeStatus::FailedDevType,
     "[RSnnn]Firmware update of the Master Switch failed -- file is incorrect type for device."},
    {Info_DeviceUpgradeStatus::FailedFilePush,
     "[RSnnn]Firmware update of the Master Switch failed -- unable to push file to target device."},
    {Info_DeviceUpgradeStatus::FailedFlash,
     "[RSnnn]Firmware update of the Master Switch failed -- unable to reflash device."},
};

constexpr const char* kTimedOut = "[RSnnn]Firmware update of the Master Switch timed out.";
constexpr std::string_view kMarker = "[RSnnn]";

const char* failureOf(Info_DeviceUpgradeStatus status, bool late) {
    for (const Failure& failure : kFailures) {
        if (failure.status == status) return failure.messageKey;
    }
    return late ? kTimedOut : nullptr;
}

bool userIsLoggedIn() {
    const MirlApplication* application = MirlApplication::current();
    return application && application->userIsLoggedIn();
}

void offerReboot() {
    if (devicesResetAfterUpgrade()) { // the Switch reboots by itself
        showBox(kSucceeded,
                Wt::WString::tr("[RSnnn]The Master Switch firmware update operation has succeeded. A reboot "
                                "or power cycle is required before it takes effect. Rebooting now."));
        return;
    }
    static constexpr BoxChoice<bool> kChoices[] = {{"[RSnnn]Reboot now", true},
                                                   {"[RSnnn]Reboot later", false}};
    if (chooseInBox(kSucceeded,
                    Wt::WString::tr("[RSnnn]The Master Switch firmware update operation has succeeded. A "
                                    "reboot or power cycle is required before it takes effect."),
                    kChoices, false))
        rebootThisSwx(Wt::WString::tr("[RSnnn]Rebooting unit. Please wait."));
}

} // namespace

void WDevView::followThisSwx() {
    if (!mFwUpdateTimer) {
        mFwUpdateTimer = new Wt::WTimer(this);
        mFwUpdateTimer->setInterval(kInterval);
        mFwUpdateTimer->timeout().connect(this, &WDevView::fwUpdateTimerTimeout);
    }
    mFwUpdateTimer->start();
    mFwUpdateStart = WallClock_now();
}

bool WDevView::followsThisSwx() const {
    return mFwUpdateTimer && mFwUpdateTimer->isActive();
}

void WDevView::fwUpdateTimerTimeout() {
    const auto state = readSwxState(kThisSwxIndex);
    if (!state) {
        EventLog_write(4, 7, __func__, "Cannot get Upgrade Status");
        mFwUpdateTimer->stop();
        return;
    }
    if (state->upgrade == Info_DeviceUpgradeStatus::Complete) {
        readFromDatabase(false, false);
        EventLog_write(2, 7, __func__,
                       "Firmware update of the Master Switch was successful. A reboot or power cycle is "
                       "required before it takes effect.");
        mFwUpdateTimer->stop();
        if (userIsLoggedIn()) offerReboot();
        return;
    }
    const char* failure = failureOf(state->upgrade, WallClock_secondsSince(mFwUpdateStart) > kPatience);
    if (!failure) return;
    EventLog_write(1, 7, __func__, "%s", failure + kMarker.size());
    readFromDatabase(false, false);
    mFwUpdateTimer->stop();
    if (userIsLoggedIn()) showBox(kNotSucceeded, tr(failure));
}
