// Reboot, remove, remove offline, flash.

#include "db/Db.h"
#include "db/DeviceState.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WFlashDisplayDialog.h"
#include "views/devices/list/SelectedDevice.h"
#include "views/devices/list/WDevViewList.h"
#include "views/devices/page/DevConfirm.h"
#include "views/devices/page/WDevView.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr DevConfirmation kConfirmReboot = {
    "enableResetDevicesWarning", "[RSnnn]Confirm Reboot",
    "[RSnnn]Are you sure you want to reboot the selected device(s)? Any active user sessions will be "
    "terminated.",
    "[RSnnn]Reboot"};

constexpr DevConfirmation kConfirmRemove = {"enableRemoveDevicesWarning", "[RSnnn]Confirm Remove",
                                            "[RSnnn]Are you sure you want to remove the selected device(s)?",
                                            "[RSnnn]Remove"};

constexpr DevConfirmation kConfirmRemoveOffline = {
    "enableRemoveOfflineDevicesWarning", "[RSnnn]Confirm Remove",
    "[RSnnn]Are you sure you want to remove all offline device(s)?", "[RSnnn]Remove"};

/// "1 device …" or "7 devices …", cut to `size` bytes.
template <std::size_t size>
Wt::WString countedText(std::size_t count, const char* oneKey, const char* manyKey) {
    char text[size];
    if (count == 1)
        std::snprintf(text, sizeof text, "%s", Wt::WString::tr(oneKey).toUTF8().c_str());
    else
        std::snprintf(text, sizeof text, "%d %s", static_cast<int>(count),
                      Wt::WString::tr(manyKey).toUTF8().c_str());
    return Wt::WString::fromUTF8(text);
}

bool holdsThisSwx(const std::vector<SelectedDevice>& devices) {
    return std::any_of(devices.begin(), devices.end(),
                       [](const SelectedDevice& device) { return device.isThisSwx(); });
}

bool isOffline(const SelectedDevice& device) {
    const auto offline = [](const auto& state) { return state && state->offline(); };
    switch (device.type) {
    case Info_DeviceType::Receiver:
        return offline(readRxState(device.index));
    case Info_DeviceType::Transmitter:
        return offline(readTxState(device.index));
    case Info_DeviceType::Switch:
        return offline(readSwxState(device.index));
    default:
        return false;
    }
}

void showRemoved(std::size_t count) {
    devShowBox(WMsgBox::Info, "[RSnnn]Removed",
               countedText<128>(count, "[RSnnn]1 device was removed.", "[RSnnn]devices were removed."),
               {"[RSnnn]Close"});
}

} // namespace

void WDevView::rebootDevActionButtonClicked() {
    if (mList->numSelected() == 0 || !devConfirm(kConfirmReboot)) return;
    const std::vector<SelectedDevice> devices = mList->selectedDevices();
    const bool self = holdsThisSwx(devices);
    if (self &&
        devShowBox(WMsgBox::Warning, "[RSnnn]Confirm Reboot Self",
                   tr("[RSnnn]You have chosen to reboot the Switch that you are currently connected to."),
                   {"[RSnnn]Reboot", "[RSnnn]Cancel"}) != 1)
        return;

    std::vector<std::string> errors;
    for (const SelectedDevice& device : devices) {
        if (!device.isThisSwx()) Db::db.requestDeviceReboot(device.resource().records, device.index, errors);
    }
    readFromDatabase(false, false);
    // This Switch goes last: it takes this very session with it.
    if (self) Db::db.requestDeviceReboot("swx", kThisSwxIndex, errors);

    const Wt::WString text =
        countedText<512>(devices.size(), "[RSnnn]1 device has been commanded to reboot.",
                         self ? "[RSnnn]devices have been commanded to reboot, including this Switch"
                              : "[RSnnn]devices have been commanded to reboot.");
    if (self)
        devShowBox(WMsgBox::Info, "[RSnnn]Reboot", text, {}); // stands until the connection goes
    else
        devShowBox(WMsgBox::Info, "[RSnnn]Reboot", text, {"[RSnnn]Close"});
}

void WDevView::removeDevicesActionButtonClicked() {
    if (mList->numSelected() == 0) return;
    if (holdsThisSwx(mList->selectedDevices())) {
        devShowBox(
            WMsgBox::Error, "[RSnnn]Error",
            tr("[RSnnn]You are attempting to remove the Switch you are logged in to. This operation is "
               "not allowed."),
            {"[RSnnn]Close"});
        return;
    }
    if (!devConfirm(kConfirmRemove)) return;

    const std::vector<SelectedDevice> devices = mList->selectedDevices();
    std::vector<std::string> errors;
    for (const SelectedDevice& device : devices)
        Db::db.deleteRecordByIndex(device.resource().records, device.index, errors);
    mList->table()->clearSelection();
    readFromDatabase(true, false);

    if (errors.empty()) {
        showRemoved(devices.size());
        return;
    }
    std::string text; // a line for each refusal
    for (const std::string& error : errors) text += (text.empty() ? "" : "\n") + error;
    devShowBox(WMsgBox::Error, errors.size() == 1 ? "[RSnnn]Error" : "[RSnnn]Errors",
               Wt::WString::fromUTF8(text), {"[RSnnn]Close"});
}

// Reaches what the filter shows, no more. This Switch is never offline.
void WDevView::removeOfflineDevicesActionButtonClicked() {
    if (!devConfirm(kConfirmRemoveOffline)) return;
    std::vector<std::string> errors;
    std::size_t removed = 0;
    for (const SelectedDevice& device : mList->shownDevices()) {
        if (!isOffline(device)) continue;
        Db::db.deleteRecordByIndex(device.resource().records, device.index, errors);
        ++removed;
    }
    mList->table()->clearSelection();
    readFromDatabase(removed > 0, false);
    showRemoved(removed);
}

void WDevView::flashDisplayActionButtonClicked() {
    if (mList->numSelected() == 0) return;
    WFlashDisplayDialog dialog("[RSnnn]device flash explanation");
    dialog.exec();
    if (dialog.cancelWasClicked()) return;

    const unsigned seconds = dialog.getDurationSec(); // 0 stops
    const std::vector<SelectedDevice> devices = mList->selectedDevices();
    std::vector<std::string> errors;
    for (const SelectedDevice& device : devices)
        Db::db.triggerLcdBacklightFlash(device.eid, device.resource().control, seconds, errors);
    const Wt::WString text =
        seconds == 0
            ? countedText<128>(devices.size(), "[RSnnn]1 device was commanded to stop flashing its display.",
                               "[RSnnn]devices were commanded to stop flashing their displays.")
            : countedText<128>(devices.size(), "[RSnnn]1 device was commanded to start flashing its display.",
                               "[RSnnn]devices were commanded to start flashing their displays.");
    devShowBox(WMsgBox::Info, "[RSnnn]Completed", text, {"[RSnnn]Close"});
}
