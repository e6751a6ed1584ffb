#include "platform/service/domain/Devices.h"

namespace zeqd {

std::string thisSwitchEid(const View& view) {
    const RecordPtr swx = view.find(Res::Swx, kThisSwitch);
    return swx ? swx->text("eid") : std::string();
}

std::string deviceLabel(const Record& device) {
    return device.text("name").empty() ? device.text("eid") : device.text("name");
}

bool isReady(const Record& device) {
    return device.is("status", "ready");
}

Errno notOnline(Res id) {
    if (id == Res::Swx) return Errno::SwxNotOnline;
    return id == Res::Rx ? Errno::RxNotOnline : Errno::TxNotOnline;
}

} // namespace zeqd
