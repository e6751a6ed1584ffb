#include "views/devices/page/DevConfirm.h"

#include "db/Db.h"

namespace {

constexpr int kBoxMaxWidth = 300; // pixels

} // namespace

bool devConfirm(const DevConfirmation& confirmation) {
    const unsigned user = Db::db.getIndexOfCurrentlyLoggedInMirlUsr();
    std::vector<std::string> errors;
    bool ask = true;
    Db::db.readEnableDisable("user", user, confirmation.flag, ask, errors);
    if (!ask) return true;

    WMsgBox box(WMsgBox::Warning);
    box.setMaximumSize(kBoxMaxWidth, Wt::WLength::Auto);
    box.titleSet(Wt::WString::tr(confirmation.title));
    box.msgSet(Wt::WString::tr(confirmation.message));
    box.checkBoxSet(Wt::WString::tr("[RSnnn]Do not show this message again."));
    box.buttonAdd(Wt::WString::tr(confirmation.proceed));
    box.buttonAdd(Wt::WString::tr("[RSnnn]Cancel"));
    box.exec();
    if (box.isCheckBoxChecked()) Db::db.writeEnableDisable("user", user, confirmation.flag, false, errors);
    return box.buttonClicked() == 1;
}

int devShowBox(WMsgBox::MsgType type, const char* title, const Wt::WString& text,
               std::initializer_list<const char*> buttons) {
    WMsgBox box(type);
    box.setMaximumSize(kBoxMaxWidth, Wt::WLength::Auto);
    box.titleSet(Wt::WString::tr(title));
    box.msgSet(text);
    for (const char* button : buttons) box.buttonAdd(Wt::WString::tr(button));
    box.exec();
    return box.buttonClicked();
}
