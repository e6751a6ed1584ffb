// Restoring factory defaults, all of them or all but the network settings.

#include "db/Db.h"
#include "db/MirlUtil.h"
#include "views/devices/list/SelectedDevice.h"
#include "views/devices/list/WDevViewList.h"
#include "views/devices/page/DevConfirm.h"
#include "views/devices/page/WDevView.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr const char* kFull = "factory_default";
constexpr const char* kPartial = "factory_default_partial";
constexpr const char* kWarningFlag = "enableRestoreFactoryDefaultsWarning"; // both share it

constexpr DevConfirmation kConfirmFull = {
    kWarningFlag, "[RSnnn]Confirm Restore Settings",
    "[RSnnn]Are you sure you want to restore the selected device(s) to factory default settings?",
    "[RSnnn]Restore settings"};

constexpr DevConfirmation kConfirmPartial = {
    kWarningFlag, "[RSnnn]Confirm Restore Settings",
    "[RSnnn]Are you sure you want to restore the selected Switches to partial factory default",
    "[RSnnn]Restore settings"};

/// What becomes of this Switch's own settings: null skips it.
const char* askAboutThisSwxFull() {
    constexpr const char* kByButton[] = {nullptr, nullptr, kPartial, kFull}; // closed, skip, partial, full
    return kByButton[devShowBox(
        WMsgBox::Warning, "[RSnnn]Factory default",
        Wt::WString::tr(
            "[RSnnn]You have chosen to factory default the Switch that you are currently logged in "
            "to! A complete factory default may cause you to lose network connectivity with the "
            "Switch. You may choose to proceed with a complete factory default, a partial factory "
            "default that retains the network settings, or you may skip setting defaults for this "
            "Switch."),
        {"[RSnnn]Skip device", "[RSnnn]Partial defaults", "[RSnnn]Full defaults"})];
}

const char* askAboutThisSwxPartial() {
    const int button = devShowBox(
        WMsgBox::Warning, "[RSnnn]Factory default",
        Wt::WString::tr("[RSnnn]You have chosen to apply partial factory defaults to your own Switch."),
        {"[RSnnn]Skip device", "[RSnnn]Partial defaults"});
    return button == 2 ? kPartial : nullptr;
}

/// The two ways of restoring.
struct Restore {
    const DevConfirmation& confirmation;
    const char* value; // written to "reset"
    bool switchesOnly;
    const char* (*askAboutThisSwx)();
};

struct Outcome {
    unsigned done = 0;
    unsigned failed = 0;
    unsigned devices = 0;
    std::vector<std::string> errors;
};

void showOutcome(const Outcome& outcome) {
    const bool failed = outcome.failed > 0;
    const auto part = [](const char* key) { return Wt::WString::tr(key).toUTF8(); };
    char text[256];
    std::snprintf(text, sizeof text, "%s %u %s %u %s",
                  part(failed ? "[RSnnn]Failed to restore"
                              : "[RSnnn]Factory default settings restore has been initiated on")
                      .c_str(),
                  failed ? outcome.failed : outcome.done, part("[RSnnn]of").c_str(), outcome.devices,
                  part(failed ? "[RSnnn]to factory default settings." : "[RSnnn]devices.").c_str());
    std::string message = text;
    if (failed) MirlUtil_concatErrMsgs(message, outcome.errors);
    devShowBox(failed ? WMsgBox::Warning : WMsgBox::Info, "[RSnnn]Restore factory default",
               Wt::WString::fromUTF8(message), {"[RSnnn]Ok"});
}

/// False: a device of a kind that cannot be restored ended the work.
bool restoreDevices(const std::vector<SelectedDevice>& devices, const Restore& restore, Outcome& outcome) {
    outcome.devices = static_cast<unsigned>(devices.size());
    for (const SelectedDevice& device : devices) {
        const bool isSwitch = device.type == Info_DeviceType::Switch;
        if (device.type == Info_DeviceType::None || (restore.switchesOnly && !isSwitch)) return false;
        const char* value = device.isThisSwx() ? restore.askAboutThisSwx() : restore.value;
        if (!value) continue;
        if (Db::db.writeString(device.resource().records, device.index, "reset", value, outcome.errors) == 0)
            ++outcome.done;
        else
            ++outcome.failed;
    }
    return true;
}

constexpr Restore kRestoreFull = {kConfirmFull, kFull, false, askAboutThisSwxFull};
constexpr Restore kRestorePartial = {kConfirmPartial, kPartial, true, askAboutThisSwxPartial};

void restoreSelected(WDevView& view, const Restore& restore) {
    if (view.list()->rowCount() == 0 || !devConfirm(restore.confirmation)) return;
    Outcome outcome;
    if (!restoreDevices(view.list()->selectedDevices(), restore, outcome)) return;
    showOutcome(outcome);
    view.readFromDatabase(false, true);
}

} // namespace

void WDevView::restoreSettingsActionButtonClicked() {
    restoreSelected(*this, kRestoreFull);
}

void WDevView::partialRestoreSettingsActionButtonClicked() {
    restoreSelected(*this, kRestorePartial);
}
