// What the actions of the page do.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/ActionColumn.h"
#include "frame/ActionResults.h"
#include "frame/Confirm.h"
#include "frame/DetailsTabs.h"
#include "frame/WMsgBoxDbErr.h"
#include "platform/client/EventLog.h"
#include "platform/client/ZeqReq.h"
#include "shell/MirlApplication.h"
#include "shell/Security.h"
#include "shell/WForceLoginDialog.h"
#include "shell/WallClock.h"
#include "views/users/WUsrView.h"
#include "views/users/list/WUsrViewList.h"
#include "views/users/tabs/WUsrViewAttribs.h"

#include <Wt/WTabWidget>

#include <cstdio>
#include <ctime>
#include <fstream>

namespace {

constexpr Confirmation kConfirmLogout = {
    .flag = "enableLogoutUserWarning",
    .title = "[RSnnn]Confirm User Logout",
    .message =
        "[RSnnn]Are you sure you want to logout the selected user? This will immediately interrupt their current activities.",
    .proceed = "[RSnnn]Logout user",
    .messageOfMany =
        "[RSnnn]Are you sure you want to logout the selected users? This will immediately interrupt their current activities.",
    .proceedOfMany = "[RSnnn]Logout users"};

constexpr Confirmation kConfirmDelete = {.flag = "enableDeleteUserWarning",
                                         .title = "[RSnnn]Confirm User Delete",
                                         .message =
                                             "[RSnnn]Are you sure you want to delete the selected user?",
                                         .proceed = "[RSnnn]Delete",
                                         .focusOnCancel = true};

constexpr BoxRow kLoggedIn = {WMsgBox::Info, "[RSnnn]Login", {"[RSnnn]Close"}};
constexpr BoxRow kNotLoggedIn = {WMsgBox::Error, "[RSnnn]Error", {"[RSnnn]Close"}};

constexpr int kRoleUser = 1;

/// Two administrators may press New in one second: whoever is second takes the name of the next one.
constexpr int kNamesTried = 3;

std::string provisionalName(int secondsAhead) {
    const std::time_t now = WallClock_now() + secondsAhead;
    std::tm local{};
    localtime_r(&now, &local);
    char name[32];
    std::strftime(name, sizeof name, "N%Y%m%d%H%M%S", &local);
    return name;
}

/// 20 hexadecimal digits that nobody is told: the account is not open before its real password is saved. Empty without
/// a source of randomness.
std::string provisionalPassword() {
    unsigned char bytes[10];
    std::ifstream source("/dev/urandom", std::ios::binary);
    if (!source.read(reinterpret_cast<char*>(bytes), sizeof bytes)) return "";
    std::string password;
    for (const unsigned char byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02X", byte);
        password += digits;
    }
    return password;
}

} // namespace

void WUsrView::newUsrActionButtonClicked() {
    const std::string password = provisionalPassword();
    ZeqExchange exchange(ZeqPtr(ZeqReq_userNewCreateReq()), __func__);
    if (!exchange.ready()) return;
    if (password.empty()) {
        EventLog_write(1, 7, __func__, "No randomness for the password of a new user.");
        return;
    }
    ZeqReq_userSetFullName(exchange.request(), "");
    ZeqReq_userSetRole(exchange.request(), kRoleUser);
    ZeqReq_userSetPassword(exchange.request(), password.c_str());
    ZeqReqUtil_setStringParam(exchange.request(), "provisional", "enabled");
    std::string name;
    std::vector<std::string> errors;
    unsigned refused = 1;
    for (int tried = 0; tried < kNamesTried && refused != 0; ++tried) {
        name = provisionalName(tried);
        errors.clear();
        ZeqReq_userSetName(exchange.request(), name.c_str());
        refused = exchange.send(errors);
        if (!exchange.response()) break;
    }
    if (refused != 0) {
        // Without the account there is nothing to edit but somebody else's.
        WMsgBoxDbErr(WMsgBoxDbErr::Write, errors).exec();
        readFromDatabase(true, false);
        return;
    }
    readFromDatabase(true, true);
    if (!mList->selectEntryByName(name, Wt::WAbstractItemView::PositionAtBottom)) return;
    mProvisional = chosenRecords().front();
    mDetails->tabWidget(0)->setCurrentIndex(0);
    readFromDatabase(true, false);
    attribs().beginNewUser();
    contentChangedHandler();
    attribs().enableButtons(false, true);
}

void WUsrView::loginUsrActionButtonClicked() {
    if (selection().count() != 1) return;
    const unsigned user = chosenRecords().front();
    WForceLoginDialog dialog(user);
    dialog.exec();
    if (dialog.buttonClicked() != WForceLoginDialog::Login || dialog.rxSelected() == 0) return;
    std::vector<std::string> errors;
    if (Security_loginRxUser(user, dialog.rxSelected(), errors) == 0) {
        showBox(kLoggedIn, tr("[RSnnn]User has been successfully logged in to receiver."));
        readFromDatabase(true, false);
        return;
    }
    Wt::WString text = tr("[RSnnn]Unable to log user in to receiver.");
    for (const std::string& error : errors) text += Wt::WString::fromUTF8(" " + error);
    showBox(kNotLoggedIn, text);
}

void WUsrView::logoutUsrActionButtonClicked() {
    const std::vector<unsigned> users = chosenRecords();
    if (users.empty() || !confirm(kConfirmLogout, users.size(), hit(WUsrViewList::Status))) return;
    ActionResults results;
    for (const unsigned user : users)
        results.run(mList->nameOf(user), [&](auto& errors) {
            return static_cast<unsigned>(Security_logoutUserByUserIndex(user, errors));
        });
    if (results.failed() > 0) showFailures(results);
    readFromDatabase(true, false);
}

void WUsrView::deleteUsrActionButtonClicked() {
    const std::vector<unsigned> users = chosenRecords();
    if (users.empty() || !confirm(kConfirmDelete, users.size(), hit(WUsrViewList::Status))) return;
    ActionResults results;
    for (const unsigned user : users)
        results.run(mList->nameOf(user),
                    [&](auto& errors) { return Db::db.deleteRecordByIndex("user", user, errors); });
    if (results.failed() > 0) showFailures(results);
    if (!loginStands()) return; // whoever was among them himself is out at once
    mList->table()->clearSelection();
    readFromDatabase(true, false);
}
