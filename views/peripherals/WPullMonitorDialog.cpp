#include "views/peripherals/WPullMonitorDialog.h"

#include "db/Db.h"
#include "frame/MsgBoxParts.h"
#include "shell/WallClock.h"
#include "views/peripherals/Edid.h"
#include "views/peripherals/WPullMonitorDialogDevList.h"

#include <Wt/WStackedWidget>
#include <Wt/WText>

#include <ctime>

namespace {

constexpr DialogFormHead kHead = {"video-monitor-pull.png", "[RSnnn]Pull Monitor or EDID",
                                  "[RSnnn]Select the Device, then click Pull."};

constexpr int kListWidth = 400, kListHeight = 350; // pixels
constexpr unsigned kRecordSize = 256;              // bytes of a stored block

/// One kind of device that has a block to give.
struct Source {
    const char* kind; // as the service names it
    char letter;      // begins the record's name
    const char* description;
    unsigned (Db::*nameOf)(unsigned index, std::string& name, Db::Errors& errors);
    const char* failure;
};

constexpr Source kReceiver = {"rx", 'M', "[RSnnn]Monitor attributes pulled from receiver ",
                              &Db::getRxNameOrEidFromRxIndex,
                              "[RSnnn]Failed to pull monitor attributes from Receiver."};
constexpr Source kTransmitter = {"tx", 'E', "[RSnnn]EDID pulled from transmitter ",
                                 &Db::getTxNameOrEidFromTxIndex,
                                 "[RSnnn]Failed to pull EDID from Transmitter."};

std::string localTime() {
    const std::time_t now = WallClock_now();
    std::tm local{};
    ::localtime_r(&now, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d_%H:%M:%S", &local);
    return text;
}

} // namespace

WPullMonitorDialog::WPullMonitorDialog()
    : MonitorTransfer(kHead, new WPullMonitorDialogDevList, kListWidth, kListHeight, "[RSnnn]Pull"),
      mDevices(static_cast<WPullMonitorDialogDevList*>(list())),
      mError(addPage(newMsgBoxText(Wt::WString()))) {
    mDevices->readFromDatabase();
}

void WPullMonitorDialog::transfer() {
    const unsigned value = mDevices->selectedZeqIndex();
    if (value == 0) return;
    begin();
    // On purpose: a Transmitter of index 0, if there could be one, would be a Receiver of index 2000 here.
    const bool isReceiver = value < WPullMonitorDialogDevList::kTransmitterOffset + 1;
    const Source& source = isReceiver ? kReceiver : kTransmitter;
    const unsigned index = isReceiver ? value : value - WPullMonitorDialogDevList::kTransmitterOffset;

    // Two pulls within a second make the same name; the service refuses the second one.
    const std::string name = source.letter + localTime();
    std::string device;
    std::vector<std::string> errors, dropped;
    (Db::db.*source.nameOf)(index, device, dropped);
    const std::string description = tr(source.description).toUTF8() + device;
    if (Db::db.pullEdidFromDevice(source.kind, index, name, description, errors) != 0)
        return fail(source.failure, errors);

    char bytes[kRecordSize] = {};
    if (Db::db.getEdidByName(name, bytes, sizeof bytes, errors) != 0)
        return fail("[RSnnn]Error retreiving attributes (EDID).", errors);
    Edid edid;
    edid.populate(bytes, sizeof bytes);
    // On purpose: the record stays in the library, whatever the words say.
    if (!edid.isValid()) return fail("[RSnnn]Invalid EDID received. Discarded.");
    if (!end(tr("[RSnnn]The attributes were successfully pulled and added to the list."))) stack()->hide();
}

void WPullMonitorDialog::fail(const char* messageKey, const std::vector<std::string>& errors) {
    std::string text = tr(messageKey).toUTF8();
    for (const std::string& error : errors) text += ' ' + error;
    mError->setText(Wt::WString::fromUTF8(text));
    endWithFailure(tr("[RSnnn]Error:"), mError);
}
