// Reboot, remove, remove offline, flash.

#include "db/Db.h"
#include "db/DeviceState.h"
#include "frame/ActionResults.h"
#include "frame/Confirm.h"
#include "frame/CountedText.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WFlashDisplayDialog.h"
#include "views/devices/list/SelectedDevice.h"
#include "views/devices/list/WDevViewList.h"
#include "views/devices/page/WDevView.h"

#include <algorithm>
#include <optional>

namespace {

using Errors = std::vector<std::string>;

constexpr Confirmation kConfirmReboot = {
    .flag = "enableResetDevicesWarning",
    .title = "[RSnnn]Confirm Reboot",
    .message = "[RSnnn]Are you sure you want to reboot the selected device(s)? Any active user sessions will "
               "be terminated.",
    .proceed = "[RSnnn]Reboot"};

constexpr Confirmation kConfirmRemove = {.flag = "enableRemoveDevicesWarning",
                                         .title = "[RSnnn]Confirm Remove",
                                         .message =
                                             "[RSnnn]Are you sure you want to remove the selected device(s)?",
                                         .proceed = "[RSnnn]Remove",
                                         .focusOnCancel = true};

constexpr Confirmation kConfirmRemoveOffline = {
    .flag = "enableRemoveOfflineDevicesWarning",
    .title = "[RSnnn]Confirm Remove",
    .message = "[RSnnn]Are you sure you want to remove all offline device(s)?",
    .proceed = "[RSnnn]Remove",
    .focusOnCancel = true};

constexpr BoxRow kConfirmRebootSelf = {
    WMsgBox::Warning, "[RSnnn]Confirm Reboot Self", {"[RSnnn]Reboot", "[RSnnn]Cancel"}};
constexpr BoxRow kRebooted = {WMsgBox::Info, "[RSnnn]Reboot", {"[RSnnn]Close"}};
constexpr BoxRow kRebootedSelf = {WMsgBox::Info, "[RSnnn]Reboot", {}}; // stands until the connection goes
constexpr BoxRow kNotAllowed = {WMsgBox::Error, "[RSnnn]Error", {"[RSnnn]Close"}};
constexpr BoxRow kRemoved = {WMsgBox::Info, "[RSnnn]Removed", {"[RSnnn]Close"}};
constexpr BoxRow kFlashed = {WMsgBox::Info, "[RSnnn]Completed", {"[RSnnn]Close"}};

bool holdsThisSwx(const std::vector<SelectedDevice>& devices) {
    return std::any_of(devices.begin(), devices.end(),
                       [](const SelectedDevice& device) { return device.isThisSwx(); });
}

/// Whether the device is offline; nothing when it is not known.
std::optional<bool> readOffline(const SelectedDevice& device, Errors& errors) {
    const auto offline = [](const auto& state) {
        return state ? std::optional(state->offline()) : std::nullopt;
    };
    switch (device.type) {
    case Info_DeviceType::Receiver:
        return offline(readRxState(device.index, errors));
    case Info_DeviceType::Transmitter:
        return offline(readTxState(device.index, errors));
    case Info_DeviceType::Switch:
        return offline(readSwxState(device.index, errors));
    default:
        return false;
    }
}

/// Removes the device if it is offline. A status that is refused passes it over: it has been removed already.
/// A status without an answer is a failure, told with the removals'.
void removeIfOffline(const SelectedDevice& device, ActionResults& results) {
    Errors refusals;
    const std::optional<bool> offline = readOffline(device, refusals);
    if (offline ? !*offline : !refusals.empty()) return;
    results.run(device.eid, [&](Errors& errors) {
        return offline ? Db::db.deleteRecordByIndex(device.resource().records, device.index, errors) : 1;
    });
}

unsigned reboot(const SelectedDevice& device, Errors& errors) {
    return Db::db.requestDeviceReboot(device.resource().records, device.index, errors);
}

Wt::WString removedText(std::size_t count) {
    return countedText(count, "[RSnnn]1 device was removed.", "[RSnnn]devices were removed.");
}

} // namespace

void WDevView::rebootDevActionButtonClicked() {
    if (mList->numSelected() == 0 || !confirm(kConfirmReboot, selection().count(), hit(WDevViewList::Status)))
        return;
    const std::vector<SelectedDevice> devices = mList->selectedDevices();
    const bool self = holdsThisSwx(devices);
    if (self &&
        showBox(kConfirmRebootSelf,
                tr("[RSnnn]You have chosen to reboot the Switch that you are currently connected to.")) != 1)
        return;

    ActionResults results;
    const auto rebootAll = [&](bool thisSwx) {
        bool done = true;
        for (const SelectedDevice& device : devices) {
            if (device.isThisSwx() != thisSwx) continue;
            done = results.run(device.eid, [&](Errors& errors) { return reboot(device, errors); }) && done;
        }
        return done;
    };
    rebootAll(false);
    readFromDatabase(false, false);
    // This Switch goes last: it takes this very session with it.
    const bool goesDown = self && rebootAll(true);
    showResults(goesDown ? kRebootedSelf : kRebooted,
                countedText(results.done(), "[RSnnn]1 device has been commanded to reboot.",
                            goesDown ? "[RSnnn]devices have been commanded to reboot, including this Switch"
                                     : "[RSnnn]devices have been commanded to reboot."),
                results);
}

void WDevView::removeDevicesActionButtonClicked() {
    if (mList->numSelected() == 0) return;
    if (holdsThisSwx(mList->selectedDevices())) {
        showBox(kNotAllowed, tr("[RSnnn]You are attempting to remove the Switch you are logged in to. This "
                                "operation is not allowed."));
        return;
    }
    if (!confirm(kConfirmRemove, selection().count(), hit(WDevViewList::Status))) return;

    ActionResults results;
    for (const SelectedDevice& device : mList->selectedDevices()) {
        results.run(device.eid, [&](Errors& errors) {
            return Db::db.deleteRecordByIndex(device.resource().records, device.index, errors);
        });
    }
    mList->table()->clearSelection();
    readFromDatabase(true, false);

    if (results.failed() == 0)
        showBox(kRemoved, removedText(results.done()));
    else
        showFailures(results); // without the count
}

// On purpose it reaches what the filter shows, no more. This Switch is never offline.
void WDevView::removeOfflineDevicesActionButtonClicked() {
    const std::vector<HitRecord> offline = mList->shownOffline();
    if (!confirm(kConfirmRemoveOffline, offline.size(), hitText(offline, "devices.count"))) return;
    ActionResults results;
    for (const SelectedDevice& device : mList->shownDevices()) removeIfOffline(device, results);
    mList->table()->clearSelection();
    readFromDatabase(results.done() > 0, false);
    showResults(kRemoved, removedText(results.done()), results);
}

void WDevView::flashDisplayActionButtonClicked() {
    if (mList->numSelected() == 0) return;
    WFlashDisplayDialog dialog("[RSnnn]device flash explanation");
    dialog.exec();
    if (dialog.cancelWasClicked()) return;

    const unsigned seconds = dialog.getDurationSec(); // 0 stops
    ActionResults results;
    for (const SelectedDevice& device : mList->selectedDevices()) {
        results.run(device.eid, [&](Errors& errors) {
            return Db::db.triggerLcdBacklightFlash(device.eid, device.resource().control, seconds, errors);
        });
    }
    const std::size_t done = results.done();
    showResults(kFlashed,
                seconds == 0
                    ? countedText(done, "[RSnnn]1 device was commanded to stop flashing its display.",
                                  "[RSnnn]devices were commanded to stop flashing their displays.")
                    : countedText(done, "[RSnnn]1 device was commanded to start flashing its display.",
                                  "[RSnnn]devices were commanded to start flashing their displays."),
                results);
}
