#include "views/devices/firmware/WDevViewFwUpdateSrcLoginDialog.h"

#include <Wt/WLineEdit>

namespace {

constexpr DialogFormHead kHead = {
    "upload.png", "[RSnnn]Update firmware",
    "[RSnnn]Enter the username and password that should be used to retrieve the firmware update file."};

} // namespace

WDevViewFwUpdateSrcLoginDialog::WDevViewFwUpdateSrcLoginDialog(const std::string& username)
    : DialogForm(kHead), mUsername(addLineEdit("[RSnnn]Username")),
      mPassword(addPassword("[RSnnn]Password")) {
    mUsername->setText(Wt::WString::fromUTF8(username));
    Wt::WPushButton* proceedButton = addButton("[RSnnn]Proceed", Proceed);
    addButton("[RSnnn]Close", Close, Rejected);
    enterPresses(mUsername, proceedButton);
    enterPresses(mPassword, proceedButton);
}

std::string WDevViewFwUpdateSrcLoginDialog::username() const {
    return mUsername->text().toUTF8();
}

std::string WDevViewFwUpdateSrcLoginDialog::password() const {
    return mPassword->text().toUTF8();
}
