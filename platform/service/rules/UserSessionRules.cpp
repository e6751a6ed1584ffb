// Logins of users at Receivers.
#include "platform/service/domain/Alerts.h"
#include "platform/service/domain/AutoSession.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"
#include "platform/service/rules/Rules.h"

namespace zeqd {

Errno judgeLogin(const View& view, const Record& user, const Record& rx) {
    if (!user.enabled("accountEnable")) return Errno::AccountDisabled;
    if (!isReady(rx)) return Errno::RxNotOnline;
    if (!rx.is("usage", "usable")) return Errno::NotAllowed;
    return view.findNumber(Res::UserSession, "rxIndex", rx.index()) ? Errno::RxUserSessionActive : Errno{};
}

void userLogin(Context& context) {
    Record& session = *context.after;
    const RecordPtr user = context.tx.find(Res::User, session.number("userIndex"));
    const RecordPtr rx = context.tx.find(Res::Rx, session.number("rxIndex"));
    if (!user || !rx) return;
    if (const Errno error = judgeLogin(context.tx, *user, *rx); error != Errno{}) {
        context.fail(error);
        context.failureAlert = {&alerts::kFailedUserLogin,
                                "Login of " + user->text("name") + " at " + deviceLabel(*rx) + " failed"};
        return;
    }
    session.set("sessionStartTime", static_cast<std::uint32_t>(context.now));
    raiseAlert(context.tx, context.now, alerts::kUserLogin, rx->text("eid"),
               user->text("name") + " logged in at " + deviceLabel(*rx));
}

void userLogout(Context& context) {
    const std::uint32_t rx = context.before->number("rxIndex");
    endSessionsOf(context.tx, context.now, {{Res::Rx, rx}}, alerts::kSessionEnded);
}

} // namespace zeqd
