// Starting firmware updates: choosing or describing a file, and telling the devices to fetch it.

#include "db/Db.h"
#include "db/MirlUtil.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "views/devices/firmware/FwUpdateReset.h"
#include "views/devices/firmware/WDevViewChooseFwUpdateSrcDialog.h"
#include "views/devices/firmware/WDevViewFwUpdateSrcLoginDialog.h"
#include "views/devices/firmware/WDevViewNewFwUpdateSrcDialog.h"
#include "views/devices/list/WDevViewList.h"
#include "views/devices/page/DevConfirm.h"
#include "views/devices/page/WDevView.h"

#include <cstdio>

namespace {

constexpr int kMaxFiles = 8; // that the list of remembered files may hold

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
    const std::string note =
        (devicesResetAfterUpgrade()
             ? Wt::WString::tr("[RSnnn]The device(s) will automatically reboot after the firmware update is "
                               "complete.")
             : Wt::WString::tr("[RSnnn]You must reboot the device(s) manually after the firmware update is "
                               "complete."))
            .toUTF8();
    char text[1024];
    if (count == 1)
        std::snprintf(text, sizeof text, "%s %s",
                      Wt::WString::tr("[RSnnn]1 device has been commanded to update firmware. Please check "
                                      "the device list and event log for status.")
                          .toUTF8()
                          .c_str(),
                      note.c_str());
    else
        std::snprintf(text, sizeof text, "%d %s %s", static_cast<int>(count),
                      Wt::WString::tr("[RSnnn]devices have been commanded to update firmware. Please check "
                                      "the device list and event log for status.")
                          .toUTF8()
                          .c_str(),
                      note.c_str());
    return Wt::WString::fromUTF8(text);
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
            devShowBox(WMsgBox::Info, "[RSnnn]Cannot Create Entry",
                       tr("[RSnnn]The firmware update file list has reached its maximum allowed size."),
                       {"[RSnnn]Ok"});
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
    devShowBox(WMsgBox::Warning, "[RSnnn]Firmware update", Wt::WString::fromUTF8(text), {"[RSnnn]Close"});
}

void WDevView::proceedWithSelection(unsigned upgradeIndex) {
    Info_DeviceType type{};
    Info_DetailedDeviceType detail{};
    mList->devTypeSelected(type, detail);
    proceedWithFirmwareUpdate(upgradeIndex, type, mList->selectedZeqIndexes());
}

void WDevView::proceedWithFirmwareUpdate(unsigned upgradeIndex, Info_DeviceType deviceType,
                                         const std::vector<unsigned>& indexes) {
    std::size_t count = 0;
    bool masterIncluded = false;
    if (upgradeIndex != 0) {
        const bool known = deviceType != Info_DeviceType::None;
        std::vector<std::string> errors; // what becomes of it shows in the list
        for (const unsigned index : indexes) {
            Db::db.writeUInt32(deviceResourceOf(deviceType).records, index, known ? "upgradeIndex" : "",
                               upgradeIndex, errors);
            if (deviceType == Info_DeviceType::Switch && index == kThisSwxIndex) masterIncluded = true;
            ++count;
        }
    }
    devShowBox(WMsgBox::Info, "[RSnnn]Firmware update", commandedText(count), {"[RSnnn]Close"});
    readFromDatabase(false, true);
    if (masterIncluded) followThisSwx();
}
