#include "frame/RebootingBox.h"

#include "db/Db.h"
#include "db/ThisSwx.h"
#include "frame/WMsgBoxDbErr.h"

namespace {

constexpr BoxRow kRebooting{.type = WMsgBox::Info, .title = "[RSnnn]Rebooting", .maxWidthPx = 0};

} // namespace

void standUntilGone(const BoxRow& row, const Wt::WString& text, const ActionResults::Request& request) {
    std::vector<std::string> errors;
    {
        WMsgBox box(row.type);
        fillBox(box, row, text);
        box.show();
        request(errors);
        if (errors.empty()) box.exec();
    }
    if (!errors.empty()) WMsgBoxDbErr(WMsgBoxDbErr::Operation, errors).exec();
}

void rebootThisSwx(const Wt::WString& text) {
    standUntilGone(kRebooting, text, [](std::vector<std::string>& errors) {
        return Db::db.requestDeviceReboot("swx", kThisSwxIndex, errors);
    });
}
