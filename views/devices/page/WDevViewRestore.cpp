// Restoring factory defaults, all of them or all but the network settings.

#include "db/Db.h"
#include "frame/ActionResults.h"
#include "frame/Confirm.h"
#include "views/devices/list/SelectedDevice.h"
#include "views/devices/list/WDevViewList.h"
#include "views/devices/page/WDevView.h"

namespace {

constexpr const char* kFull = "factory_default";
constexpr const char* kPartial = "factory_default_partial";
constexpr const char* kWarningFlag = "enableRestoreFactoryDefaultsWarning"; // both share it

constexpr Confirmation kConfirmFull = {
    .flag = kWarningFlag,
    .title = "[RSnnn]Confirm Restore Settings",
    .message = "[RSnnn]Are you sure you want to restore the selected device(s) to factory default settings?",
    .proceed = "[RSnnn]Restore settings",
    .focusOnCancel = true};

constexpr Confirmation kConfirmPartial = {
    .flag = kWarningFlag,
    .title = "[RSnnn]Confirm Restore Settings",
    .message = "[RSnnn]Are you sure you want to restore the selected Switches to partial factory default",
    .proceed = "[RSnnn]Restore settings",
    .focusOnCancel = true};

constexpr BoxRow kAboutThisSwx = {WMsgBox::Warning, "[RSnnn]Factory default"};
constexpr BoxRow kOutcome = {WMsgBox::Info, "[RSnnn]Restore factory default", {"[RSnnn]Ok"}};

/// What becomes of this Switch's own settings: null, also if nobody chose, skips it.
const char* askAboutThisSwxFull() {
    static constexpr BoxChoice<const char*> kChoices[] = {{"[RSnnn]Skip device", nullptr},
                                                          {"[RSnnn]Partial defaults", kPartial},
                                                          {"[RSnnn]Full defaults", kFull}};
    return chooseInBox<const char*>(
        kAboutThisSwx,
        Wt::WString::tr(
            "[RSnnn]You have chosen to factory default the Switch that you are currently logged in "
            "to! A complete factory default may cause you to lose network connectivity with the "
            "Switch. You may choose to proceed with a complete factory default, a partial factory "
            "default that retains the network settings, or you may skip setting defaults for this "
            "Switch."),
        kChoices, nullptr);
}

const char* askAboutThisSwxPartial() {
    static constexpr BoxChoice<const char*> kChoices[] = {{"[RSnnn]Skip device", nullptr},
                                                          {"[RSnnn]Partial defaults", kPartial}};
    return chooseInBox<const char*>(
        kAboutThisSwx,
        Wt::WString::tr("[RSnnn]You have chosen to apply partial factory defaults to your own Switch."),
        kChoices, nullptr);
}

/// The two ways of restoring.
struct Restore {
    const Confirmation& confirmation;
    const char* value; // written to "reset"
    bool switchesOnly;
    const char* (*askAboutThisSwx)();
};

/// "Failed to restore 1 of 3 to factory default settings."
void showOutcome(const ActionResults& results, std::size_t devices) {
    const bool failed = results.failed() > 0;
    const auto part = [](const char* key) { return Wt::WString::tr(key).toUTF8(); };
    const std::string begin = part(failed ? "[RSnnn]Failed to restore"
                                          : "[RSnnn]Factory default settings restore has been initiated on");
    const std::string end = part(failed ? "[RSnnn]to factory default settings." : "[RSnnn]devices.");
    const std::string count = std::to_string(failed ? results.failed() : results.done());
    showResults(kOutcome,
                Wt::WString::fromUTF8(begin + " " + count + " " + part("[RSnnn]of") + " " +
                                      std::to_string(devices) + " " + end),
                results);
}

/// False: a device of a kind that cannot be restored ended the work.
bool restoreDevices(const std::vector<SelectedDevice>& devices, const Restore& restore,
                    ActionResults& results) {
    for (const SelectedDevice& device : devices) {
        const bool isSwitch = device.type == Info_DeviceType::Switch;
        if (device.type == Info_DeviceType::None || (restore.switchesOnly && !isSwitch)) return false;
        const char* value = device.isThisSwx() ? restore.askAboutThisSwx() : restore.value;
        if (!value) continue; // neither done nor failed
        results.run(device.eid, [&](std::vector<std::string>& errors) {
            return Db::db.writeString(device.resource().records, device.index, "reset", value, errors);
        });
    }
    return true;
}

constexpr Restore kRestoreFull = {kConfirmFull, kFull, false, askAboutThisSwxFull};
constexpr Restore kRestorePartial = {kConfirmPartial, kPartial, true, askAboutThisSwxPartial};

void restoreSelected(WDevView& view, const Restore& restore, const Wt::WString& hit) {
    // On purpose: rows are asked for, not a selection. Without one the result is 0 of 0.
    if (view.list()->rowCount() == 0 || !confirm(restore.confirmation, 1, hit)) return;
    const std::vector<SelectedDevice> devices = view.list()->selectedDevices();
    ActionResults results;
    if (!restoreDevices(devices, restore, results)) return;
    showOutcome(results, devices.size());
    view.readFromDatabase(false, true);
}

} // namespace

void WDevView::restoreSettingsActionButtonClicked() {
    restoreSelected(*this, kRestoreFull, hit(WDevViewList::Status));
}

void WDevView::partialRestoreSettingsActionButtonClicked() {
    restoreSelected(*this, kRestorePartial, hit(WDevViewList::Status));
}
