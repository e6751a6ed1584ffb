#include "frame/Confirm.h"

#include "db/Db.h"
#include "frame/ShowBox.h"

namespace {

constexpr int kCancelButton = 2;

bool asks(const char* flag, unsigned user) {
    std::vector<std::string> errors;
    bool ask = true;
    if (flag) Db::db.readEnableDisable("user", user, flag, ask, errors);
    return ask;
}

Wt::WString question(const char* messageKey, const Wt::WString& hit) {
    const Wt::WString message = Wt::WString::tr(messageKey);
    return hit.empty() ? message : Wt::WString::fromUTF8(message.toUTF8() + "\n\n" + hit.toUTF8());
}

} // namespace

bool confirm(const Confirmation& confirmation, std::size_t count, const Wt::WString& hit) {
    const unsigned user = Db::db.getIndexOfCurrentlyLoggedInMirlUsr();
    if (!asks(confirmation.flag, user)) return true;

    const auto words = [count](const char* one, const char* many) { return count != 1 && many ? many : one; };
    const BoxRow row{WMsgBox::Warning,
                     confirmation.title,
                     {words(confirmation.proceed, confirmation.proceedOfMany), "[RSnnn]Cancel"},
                     confirmation.maxWidthPx};
    WMsgBox box(row.type);
    fillBox(box, row, question(words(confirmation.message, confirmation.messageOfMany), hit));
    if (confirmation.flag) box.checkBoxSet(Wt::WString::tr("[RSnnn]Do not show this message again."));
    if (confirmation.focusOnCancel) box.focusSet(kCancelButton);
    box.exec();
    if (box.isCheckBoxChecked()) {
        std::vector<std::string> errors;
        Db::db.writeEnableDisable("user", user, confirmation.flag, false, errors);
    }
    return box.buttonClicked() == 1;
}
