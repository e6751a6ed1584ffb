// Starting firmware updates: choosing or describing a file, and telling the devices to fetch it.

#include "db/Db.h"
#include "db/MirlUtil.h"
#include "db/ZeqExchange.h"
#include "frame/ActionResults.h"
#include "frame/CountedText.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "views/devices/firmware/FwUpdateReset.h"
#include "views/devices/firmware/WDevViewChooseFwUpdateSrcDialog.h"
#include "views/devices/firmware/WDevViewFwUpdateSrcLoginDialog.h"
#include "views/devices/firmware/WDevViewNewFwUpdateSrcDialog.h"
#include "views/devices/list/SelectedDevice.h"
#include "views/devices/list/WDevViewList.h"
#include "views/devices/page/WDevView.h"

namespace {

constexpr int kMaxFiles = 8; // that the list of remembered files may hold

constexpr BoxRow kListIsFull = {WMsgBox::Info, "[RSnnn]Cannot Create Entry", {"[RSnnn]Ok"}};
constexpr BoxRow kNotCreated = {WMsgBox::Warning, "[RSnnn]Firmware update", {"[RSnnn]Close"}};
constexpr BoxRow kCommanded = {WMsgBox::Info, "[RSnnn]Firmware update", {"[RSnnn]Close"}};

enum class Files { Unavailable, None, Some };

Files rememberedFiles() {
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return Files::Unavailable;
    const ZeqPtr files = zeqRetrieve(ZeqReq_upgradeRetrieve, client, nullptr);
    if (!files) return Files::None;
    if (const json_t* refusal = ZeqRspUtil_getObjectParam(files.get(), "errors")) {
        std::vector<std::string> errors;
        Db::db.interpZeqErrors(refusal, errors, true); // an empty list is nothing to report
        Db::db.logZeqErrors(errors);
        return Files::None;
    }
    return ZeqRspUtil_numEntries(files.get()) > 0 ? Files::Some : Files::None;
}

/// A file whose record has a username but no password: asks for both and stores them. False: give up.
bool completeLogin(unsigned upgradeIndex) {
    std::vector<std::string> errors;
    std::string username;
    std::string password;
    Db::db.readString("upgrade", upgradeIndex, "username", username, errors);
    Db::db.readString("upgrade", upgradeIndex, "password", password, errors);
    if (username.empty() || !password.empty()) return true;
    WDevViewFwUpdateSrcLoginDialog dialog(username);
    dialog.exec();
    if (dialog.buttonClicked() != WDevViewFwUpdateSrcLoginDialog::Proceed) return false;
    Db::db.writeString("upgrade", upgradeIndex, "username", dialog.username(), errors);
    Db::db.writeString("upgrade", upgradeIndex, "password", dialog.password(), errors);
    return true;
}

Wt::WString commandedText(std::size_t count) {
    const Wt::WString commanded =
        countedText(count,
                    "[RSnnn]1 device has been commanded to update firmware. Please check the device list and "
                    "event log for status.",
                    "[RSnnn]devices have been commanded to update firmware. Please check the device list and "
                    "event log for status.");
    const Wt::WString note =
        devicesResetAfterUpgrade()
            ? Wt::WString::tr("[RSnnn]The device(s) will automatically reboot after the firmware update is "
                              "complete.")
            : Wt::WString::tr("[RSnnn]You must reboot the device(s) manually after the firmware update is "
                              "complete.");
    return Wt::WString::fromUTF8(commanded.toUTF8() + " " + note.toUTF8());
}

/// EID of a selected device, for words about it; its index if it is selected no more.
std::string eidOf(const std::vector<SelectedDevice>& devices, Info_DeviceType type, unsigned index) {
    for (const SelectedDevice& device : devices)
        if (device.type == type && device.index == index) return device.eid;
    return std::to_string(index);
}

} // namespace

void WDevView::updateFirmwareActionButtonClicked() {
    const Files files = rememberedFiles();
    if (files == Files::Unavailable) return;
    if (files == Files::None) {
        createNewFirmwareUpdateRecordThenProceed();
        return;
    }
    WDevViewChooseFwUpdateSrcDialog dialog;
    dialog.exec();
    if (dialog.buttonClicked() == WDevViewChooseFwUpdateSrcDialog::NewFile) {
        if (dialog.numberOfExistingEntries() < kMaxFiles) {
            createNewFirmwareUpdateRecordThenProceed();
        } else {
            showBox(kListIsFull,
                    tr("[RSnnn]The firmware update file list has reached its maximum allowed size."));
        }
    } else if (dialog.buttonClicked() == WDevViewChooseFwUpdateSrcDialog::Proceed) {
        const unsigned upgradeIndex = dialog.selectedZeqIndex();
        if (upgradeIndex != 0 && completeLogin(upgradeIndex)) proceedWithSelection(upgradeIndex);
    }
}

void WDevView::createNewFirmwareUpdateRecordThenProceed() {
    WDevViewNewFwUpdateSrcDialog dialog;
    dialog.exec();
    if (dialog.buttonClicked() != WDevViewNewFwUpdateSrcDialog::Proceed) {
        dialog.removeUploads();
        return;
    }
    dialog.removeUploads(dialog.fileName());
    unsigned upgradeIndex = 0;
    std::vector<std::string> errors;
    if (Db::db.createUpgradeRecord(dialog.protocol(), dialog.location(), dialog.fileName(), dialog.username(),
                                   dialog.password(), upgradeIndex, errors) == 0) {
        proceedWithSelection(upgradeIndex);
        return;
    }
    std::string text = tr("[RSnnn]Unable to create update entry. You need to delete one or more existing "
                          "entries first.")
                           .toUTF8();
    MirlUtil_concatErrMsgs(text, errors);
    showBox(kNotCreated, Wt::WString::fromUTF8(text));
}

void WDevView::proceedWithSelection(unsigned upgradeIndex) {
    Info_DeviceType type{};
    Info_DetailedDeviceType detail{};
    mList->devTypeSelected(type, detail);
    proceedWithFirmwareUpdate(upgradeIndex, type, mList->selectedZeqIndexes());
}

void WDevView::proceedWithFirmwareUpdate(unsigned upgradeIndex, Info_DeviceType deviceType,
                                         const std::vector<unsigned>& indexes) {
    ActionResults results;
    bool followed = false;
    if (upgradeIndex != 0) {
        const std::vector<SelectedDevice> devices = mList->selectedDevices();
        const char* key = deviceType == Info_DeviceType::None ? "" : "upgradeIndex";
        for (const unsigned index : indexes) {
            const bool commanded =
                results.run(eidOf(devices, deviceType, index), [&](std::vector<std::string>& errors) {
                    return Db::db.writeUInt32(deviceResourceOf(deviceType).records, index, key, upgradeIndex,
                                              errors);
                });
            if (deviceType == Info_DeviceType::Switch && index == kThisSwxIndex) followed = commanded;
        }
    }
    showResults(kCommanded, commandedText(results.done()), results);
    readFromDatabase(false, true);
    if (followed) followThisSwx();
}
